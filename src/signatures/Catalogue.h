#pragma once

#include "signatures/CatalogueTypes.h"

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The built-in knowledge of the scanner: constant tables, each in a file of its own under tables/.
namespace pryvane::catalogue {

/// The family names of the checks that are not rows of the threat table, and their methods.
inline constexpr std::string_view kOtherSpyware = "Other Spyware";
inline constexpr std::string_view kBackdoor = "Backdoor.OSX.Mokes.a";
inline constexpr std::string_view kRemoteDesktop = "Apple Remote Desktop";
inline constexpr std::string_view kFullSystem = "Spyware";
inline constexpr std::string_view kOtherSpywareMethod = "OtherSpyWareSearch";
inline constexpr std::string_view kBackdoorMethod = "checkForBackDoor";
inline constexpr std::string_view kDefaultOnlyMethod = "otherCheckDefaultOnly";
inline constexpr std::string_view kRemoteDesktopMethod = "checkForARD";

/// The one remote-desktop finding carries this name, and the first of its paths that is there.
inline constexpr std::string_view kRemoteDesktopName = "ARD";

/// Apple's support article on switching remote management on and off, for whoever finds it on.
inline constexpr std::string_view kRemoteDesktopArticle =
    "https://support.apple.com/guide/remote-desktop/apd8b1c65bd/mac";

[[nodiscard]] std::span<const ThreatCheck> threatChecks();
[[nodiscard]] const ThreatCheck* threatCheck(std::string_view method);
[[nodiscard]] std::span<const SequenceRow> sequence();

[[nodiscard]] std::span<const std::string_view> otherSpywareScoped();
[[nodiscard]] std::span<const std::string_view> otherSpywareLocations();
[[nodiscard]] std::span<const DefaultOnlyEntry> defaultOnlyEntries();
[[nodiscard]] std::span<const std::string_view> backdoorPaths();
[[nodiscard]] std::span<const std::string_view> remoteDesktopPaths();
[[nodiscard]] std::span<const std::string_view> fullSystemEntries();

[[nodiscard]] std::span<const std::string_view> defaultFolders();
[[nodiscard]] std::span<const std::string_view> knownGoodFiles();
[[nodiscard]] std::span<const std::string_view> libraryRoots();

/// Puts the arguments where "%@" stands, in order; what they hold is not looked at again. Further
/// "%@" than there are arguments stay. A user may be the path of a home, which then stands in place
/// of
/// "/Users/" and the name.
[[nodiscard]] std::string filled(std::string_view pattern,
                                 std::initializer_list<std::string_view> arguments);

/// Whether there is one such location for each user.
[[nodiscard]] bool isOfUser(std::string_view pattern);

/// The full-system list of those users, for the deep walk.
[[nodiscard]] std::vector<std::string> fullSyatemScanPath(std::span<const std::string> users);
[[nodiscard]] inline std::vector<std::string> fullSyatemScanPath(const std::string& user)
{
    return fullSyatemScanPath(std::span(&user, 1));
}

/// Whether there is one such library root for each user.
[[nodiscard]] bool isRootOfUser(std::string_view root);

/// A location below a library root, for one user.
[[nodiscard]] std::string underLibraryRoot(std::string_view root, std::string_view user,
                                           std::string_view relative);

/// Whether a candidate is also looked for in the user's own Applications folder, and where.
[[nodiscard]] bool hasTwinInUsersApplications(std::string_view candidate);
[[nodiscard]] std::string inUsersApplications(std::string_view candidate, std::string_view user);

} // namespace pryvane::catalogue
