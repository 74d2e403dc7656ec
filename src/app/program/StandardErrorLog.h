#pragma once

#include "core/Escape.h"
#include "platform/Log.h"

#include <cstdio>

namespace pryvane {

/// Log lines on standard error, where a desktop's journal picks them up.
class StandardErrorLog final : public Log {
public:
    void line(std::string_view text) override
    {
        const std::string whole = "pryvane: " + forTerminal(text) + "\n";
        static_cast<void>(std::fwrite(whole.data(), 1, whole.size(), stderr));
    }
};

} // namespace pryvane
