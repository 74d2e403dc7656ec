#pragma once

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

} // namespace pryvane
