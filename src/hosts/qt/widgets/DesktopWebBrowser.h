#pragma once

#include "platform/Network.h"

namespace pryvane {

/// The browser that the desktop opens web addresses with.
class DesktopWebBrowser final : public WebBrowser {
public:
    Result<Done> open(const std::string& address) override;
};

} // namespace pryvane
