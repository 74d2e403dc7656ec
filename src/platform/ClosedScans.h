#pragma once

#include "core/Result.h"
#include "core/Texts.h"

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace pryvane {

/// Has the system start the timed scans while the window's program is closed. What stands on the
/// disk and with the system is asked each time; nothing is remembered. Nothing waits: outcomes are
/// told later, each once, and none after this has ended. Main thread only.
class ClosedScans {
public:
    struct Standing {
        enum class Kind : std::uint8_t { Unavailable, Off, On };
        Kind kind = Kind::Unavailable;
        std::string why = {}; ///< of Unavailable: what is in the way, already escaped for display
    };
    using Stands = std::function<void(const Standing&)>;
    using Outcome = std::function<void(const Result<Done>&)>;

    virtual ~ClosedScans() = default;

    /// Whether this system has such a thing at all; without it nothing of it is shown.
    [[nodiscard]] virtual bool isOffered() const = 0;

    virtual void look(Stands told) = 0;

    /// Has a scan started at each of these moments, in ascending order, and at no other. Does
    /// nothing where it stands so already. On an error all is as it was.
    virtual void arrange(const std::vector<Date>& moments, Outcome told) = 0;

    /// Has none started any more. A success where there was none.
    virtual void cancel(Outcome told) = 0;
};

/// Of a system where programs have no such thing.
class NoClosedScans final : public ClosedScans {
public:
    [[nodiscard]] bool isOffered() const override { return false; }
    void look(Stands) override {}
    void arrange(const std::vector<Date>&, Outcome) override {}
    void cancel(Outcome) override {}
};

} // namespace pryvane
