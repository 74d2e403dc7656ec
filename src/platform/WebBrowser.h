#pragma once

#include "core/Result.h"

#include <string>

namespace pryvane {

/// The user's web browser. Main thread only.
class WebBrowser {
public:
    virtual ~WebBrowser() = default;

    /// Opens the page of an http or https address without waiting for it. Any other address, or a
    /// desktop without a browser, is an error.
    virtual Result<Done> open(const std::string& address) = 0;
};

} // namespace pryvane
