#pragma once

#include "core/Result.h"
#include "platform/DesktopPrograms.h"

#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// A command as the Exec value of a desktop entry: each argument quoted, field codes and escapes
/// taken out of force. The error names an argument that no desktop entry can hold.
[[nodiscard]] Result<std::string> execValue(const std::vector<std::string>& command);

/// The text of the entry that runs the command at login.
[[nodiscard]] Result<std::string> autostartEntry(std::string_view name,
                                                 const std::vector<std::string>& command);

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
