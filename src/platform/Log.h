#pragma once

#include "core/Result.h"

#include <string_view>

namespace pryvane {

/// Takes plain log lines. Callable from any thread.
class Log {
public:
    virtual ~Log() = default;
    virtual void line(std::string_view text) = 0;
};

class SilentLog final : public Log {
public:
    void line(std::string_view) override {}
};

/// For an outcome that changes nothing for the caller: a failure leaves a line in the log.
inline void logFailure(Log& log, const Result<Done>& outcome)
{
    if (!outcome)
        log.line(outcome.error().message);
}

} // namespace pryvane
