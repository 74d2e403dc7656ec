// Browsers' JSON files come from disks that anybody may have written: no bytes may crash their
// readers or cost much memory, and what is read keeps within what was promised.

#include "inventory/ExtensionFiles.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace pryvane;
    const std::string_view json(reinterpret_cast<const char*>(data), size);
    for (const ChromeProfile& profile : chromeProfiles(json).entries) {
        if (profile.folder.empty() || profile.folder == "." || profile.folder == ".." ||
            profile.folder.find('/') != std::string::npos)
            std::abort();
    }
    for (const FirefoxAddOn& addOn : firefoxAddOns(json).entries) {
        if (addOn.location.empty() || addOn.name == "Default")
            std::abort();
        if (addOn.name.size() > kLongestShown + 3 || addOn.version.size() > kLongestShown + 3)
            std::abort();
    }
    if (const auto manifest = extensionManifest(json)) {
        if (const auto key = messageKey(manifest->name))
            static_cast<void>(messageText(json, *key));
    }
    static_cast<void>(messageKey(json));
    return 0;
}
