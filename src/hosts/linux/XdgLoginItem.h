#pragma once

#include "platform/LoginItem.h"

#include <string>

namespace pryvane {

/// Start at login by an XDG autostart entry for the login helper.
class XdgLoginItem final : public LoginItem {
public:
    /// Host paths: the folder of the entries (made when it is needed), the two programs, and where
    /// the helper's lock lies.
    struct Places {
        std::string autostartFolder;
        std::string helper;
        std::string application;
        std::string runtimeFolder;
    };

    explicit XdgLoginItem(Places places) : m_places(std::move(places)) {}

    Result<Done> setEnabled(bool enabled) override;
    [[nodiscard]] bool helperIsRunning() override;

    [[nodiscard]] std::string entryPath() const;

private:
    [[nodiscard]] Result<Done> write();
    [[nodiscard]] Result<Done> remove();

    Places m_places;
};

} // namespace pryvane
