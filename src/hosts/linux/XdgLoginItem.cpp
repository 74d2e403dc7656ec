#include "hosts/linux/XdgLoginItem.h"

#include "core/Escape.h"
#include "core/Files.h"
#include "core/Result.h"
#include "hosts/linux/LoginHelper.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <system_error>

namespace pryvane {

namespace {

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
}

/// Values of the type string have escapes of their own, below whatever else they hold.
std::string stringValue(std::string_view text)
{
    std::string value;
    for (const char c : text)
        value.append(c == '\\' ? "\\\\" : std::string(1, c));
    return value;
}

std::string quotedArgument(std::string_view argument)
{
    std::string quoted = "\"";
    for (const char c : argument) {
        if (std::string_view("\"`$\\").find(c) != std::string_view::npos)
            quoted += '\\';
        if (c == '%')
            quoted += '%';
        quoted += c;
    }
    return quoted + "\"";
}

} // namespace

Result<std::string> execValue(const std::vector<std::string>& command)
{
    std::string value;
    for (const std::string& argument : command) {
        if (!isUtf8(argument) || std::any_of(argument.begin(), argument.end(), isControl) ||
            (value.empty() && argument.find('=') != std::string::npos))
            return Error{forScreen(argument) + " cannot stand in an autostart entry; install "
                                               "Pryvane in a folder with a plainer name"};
        value.append(value.empty() ? "" : " ").append(quotedArgument(argument));
    }
    return stringValue(value);
}

Result<std::string> autostartEntry(std::string_view name, const std::vector<std::string>& command)
{
    const auto exec = execValue(command);
    if (!exec)
        return exec.error();
    // TryExec: once the program has been removed, logins pass over the entry in silence.
    return "[Desktop Entry]\nType=Application\nVersion=1.0\nName=" + stringValue(name) +
           "\nComment=Starts " + stringValue(name) + " at login\nExec=" + *exec +
           "\nTryExec=" + stringValue(command.front()) +
           "\nTerminal=false\nNoDisplay=true\nX-GNOME-Autostart-enabled=true\n";
}

namespace {

/// Whether the file holds just that, so that it need not be written once more at every start.
bool holds(const std::string& path, const std::string& text)
{
    const UniqueFd file(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    std::string found(text.size() + 1, '\0');
    const ssize_t count = file ? read(file.get(), found.data(), found.size()) : -1;
    return count == static_cast<ssize_t>(text.size()) && found.starts_with(text);
}

} // namespace

std::string XdgLoginItem::entryPath() const
{
    return m_places.autostartFolder + "/com.torvell.Pryvane.desktop";
}

Result<Done> XdgLoginItem::setEnabled(bool enabled)
{
    return enabled ? write() : remove();
}

Result<Done> XdgLoginItem::write()
{
    if (access(m_places.helper.c_str(), X_OK) != 0)
        return Error{forScreen(m_places.helper) + " cannot be run: " + errorText(errno) +
                     "; install Pryvane anew"};
    const auto entry = autostartEntry("Pryvane", {m_places.helper, m_places.application});
    if (!entry)
        return entry.error();
    if (holds(entryPath(), *entry))
        return Done{};
    std::error_code failed;
    std::filesystem::create_directories(m_places.autostartFolder, failed);
    if (failed)
        return Error{forScreen(m_places.autostartFolder) +
                     " cannot be made: " + errorText(failed.value())};
    return writeWholeFile(entryPath(), *entry);
}

Result<Done> XdgLoginItem::remove()
{
    if (unlink(entryPath().c_str()) != 0 && !meansAbsent(errno))
        return Error{forScreen(entryPath()) + " cannot be removed: " + errorText(errno)};
    return Done{};
}

bool XdgLoginItem::helperIsRunning()
{
    return loginHelperLockIsHeld(m_places.runtimeFolder);
}

} // namespace pryvane
