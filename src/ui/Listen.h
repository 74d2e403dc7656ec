#pragma once

#include "core/Signal.h"

#include <QObject>

#include <functional>
#include <utility>

namespace pryvane::ui {

/// Has the object hear the signal for as long as it is there. What is heard is called with the
/// object, if it takes one: a method will do.
template <typename Object, typename Heard>
void listen(Signal& signal, Object* object, Heard heard)
{
    auto listening = signal.listen([object, heard = std::move(heard)] {
        static_cast<void>(object); // not everyone takes it
        if constexpr (std::is_invocable_v<const Heard&, Object*>)
            std::invoke(heard, object);
        else
            heard();
    });
    // Kept by the object among its own connections, which end with it.
    QObject::connect(object, &QObject::destroyed, [listening = std::move(listening)] {});
}

} // namespace pryvane::ui
