#include "hosts/mac/FullDiskAccess.h"

#include "core/Files.h"

#include <cerrno>
#include <fcntl.h>

namespace pryvane {

FullDiskAccess fullDiskAccess()
{
    // Readable by all as far as its mode says, so that a refusal comes from the privacy settings.
    constexpr const char* kProbe = "/Library/Application Support/com.apple.TCC/TCC.db";
    if (const UniqueFd probe(open(kProbe, O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC)); probe)
        return FullDiskAccess::Given;
    return errno == EPERM ? FullDiskAccess::Refused : FullDiskAccess::NotKnown;
}

std::string fullDiskAccessAdvice(FullDiskAccess access)
{
    if (access != FullDiskAccess::Refused)
        return {};
    return "Some folders cannot be read. Give Full Disk Access to Pryvane, or to the terminal it "
           "is started from, in the system's privacy settings, then start it again.";
}

} // namespace pryvane
