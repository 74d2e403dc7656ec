#include "inventory/Packages.h"

#include "core/Texts.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace pryvane {

namespace {

/// The package types that a Mac knows by itself or from its usual applications.
constexpr auto kPackageExtensions = std::to_array<std::string_view>({
    "action",
    "app",
    "appex",
    "aplibrary",
    "band",
    "bundle",
    "caction",
    "colorpicker",
    "component",
    "definition",
    "dictionary",
    "download",
    "driver",
    "dSYM",
    "fcpbundle",
    "fbproj",
    "imovielibrary",
    "kext",
    "key",
    "logicx",
    "mailbundle",
    "mdimporter",
    "menu",
    "migratedphotolibrary",
    "mpkg",
    "musiclibrary",
    "numbers",
    "pages",
    "photoboothlibrary",
    "photolibrary",
    "photoslibrary",
    "pkg",
    "playground",
    "plugin",
    "prefPane",
    "qlgenerator",
    "rtfd",
    "safariextension",
    "saver",
    "scptd",
    "service",
    "slideSaver",
    "sparsebundle",
    "spreporter",
    "systemextension",
    "tvlibrary",
    "vst",
    "wdgt",
    "workflow",
    "xcarchive",
    "xcodeproj",
    "xcdatamodeld",
    "xcworkspace",
    "xpc",
});

} // namespace

bool isPackage(const FileURL& folder)
{
    const std::string extension = lowerAscii(folder.pathExtension());
    return std::any_of(kPackageExtensions.begin(), kPackageExtensions.end(),
                       [&](std::string_view known) { return lowerAscii(known) == extension; });
}

} // namespace pryvane
