#include "hosts/linux/XdgLoginItem.h"

#include "core/ErrorText.h"
#include "core/Escape.h"
#include "core/WholeFile.h"
#include "hosts/linux/AutostartEntry.h"
#include "hosts/linux/LoginHelperLock.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <system_error>

namespace pryvane {

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
