#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace pryvane {

/// Tells whoever listens that something has happened; called like the function that it stands for.
/// One thread, the listeners' own. While it tells, listeners may come and go, and it may end with
/// its owner: nobody else is told then.
class Signal {
public:
    using Heard = std::function<void()>;
    /// Held by whoever listens: its end ends the listening, also after the signal's.
    using Listening = std::shared_ptr<const Heard>;

    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    [[nodiscard]] Listening listen(Heard heard)
    {
        std::erase_if(*m_listeners, [](const auto& each) { return each.expired(); });
        auto listening = std::make_shared<const Heard>(std::move(heard));
        m_listeners->push_back(listening);
        return listening;
    }

    void operator()() const
    {
        const std::weak_ptr<const Listeners> alive = m_listeners;
        const Listeners told = *m_listeners;
        for (const auto& each : told) {
            const Listening listening = each.lock();
            if (listening)
                (*listening)();
            if (alive.expired())
                return;
        }
    }

private:
    using Listeners = std::vector<std::weak_ptr<const Heard>>;
    std::shared_ptr<Listeners> m_listeners = std::make_shared<Listeners>();
};

} // namespace pryvane
