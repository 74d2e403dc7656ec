#pragma once

#include "core/Texts.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What a Mac's disk says of the programs that may watch, that start by themselves, and of remote
/// access. Facts only: nothing here judges. All texts are raw bytes from the disk.
namespace pryvane {

enum class FactKind : std::uint8_t { Permissions, StartUp, RemoteAccess };

/// Whether a program is on the disk. Missing is said only of a path that was looked for.
enum class Whereabouts : std::uint8_t { NotKnown, There, Missing };

/// Where a program's path lies.
enum class PlaceKind : std::uint8_t {
    NotKnown,
    Usual,
    HiddenFolder,
    TemporaryFolder,
    Shared,
    Home
};

/// The program of a fact.
struct ProgramOnDisk {
    std::string path; ///< empty where it is not known
    Whereabouts whereabouts = Whereabouts::NotKnown;
    PlaceKind place = PlaceKind::NotKnown;
    std::string home; ///< the folder's name, where the path lies in a home
};

/// What every fact carries.
struct FactOrigin {
    std::string source; ///< the file that says it
    std::string user;   ///< in whose home it lies, or whom it is about; empty: the whole Mac
};

enum class PermissionGroup : std::uint8_t {
    SeesTyping,
    SeesScreen,
    ReadsEveryFile,
    ListensOrWatches,
    ActsForYou,
    SteersPrograms,
    Other,
};
inline constexpr std::size_t kPermissionGroups = 7;

enum class Decision : std::uint8_t { NotKnown, Denied, Allowed, Limited };

struct Permission {
    FactOrigin origin;
    std::string service; ///< as the system names it
    std::string client;  ///< a bundle identifier or a path
    bool clientIsPath = false;
    std::string target; ///< which program is steered
    Decision decision = Decision::NotKnown;
    std::optional<std::int64_t> reason; ///< who decided, as the system's number
    bool managed = false;               ///< from the list of a management profile
    std::optional<Date> when;           ///< last changed
    std::string name;                   ///< the application's, where it was found
    ProgramOnDisk program;
};

enum class StartUpKind : std::uint8_t {
    LaunchAgent,
    LaunchDaemon,
    BackgroundItem,
    LoginItem,
    Hook,
    Scheduled,
    EventRule,
    Script,
    StartupItem,
    LoginPlugIn,
    Extension,
    Helper,
    ShellFile,
};
inline constexpr std::size_t kStartUpKinds = 13;

enum class OnOff : std::uint8_t { NotKnown, On, Off };

struct StartUpItem {
    FactOrigin origin;
    StartUpKind kind = StartUpKind::LaunchAgent;
    std::string label;
    std::string programText; ///< as written; may be relative to an application
    std::vector<std::string> arguments;
    std::vector<std::string> when; ///< "when loaded", "every 3600 seconds"
    std::string runsAs;            ///< an account; empty where the file does not say
    OnOff state = OnOff::NotKnown;
    bool hidden = false;     ///< by its name, or because it says so
    std::string application; ///< which one it belongs to: a path, an identifier or a name
    std::string developer;   ///< as the system noted it
    ProgramOnDisk program;
};

enum class RemoteKind : std::uint8_t { Access, Management, Network, Tool };
inline constexpr std::size_t kRemoteKinds = 4;

struct RemoteFact {
    FactOrigin origin;
    RemoteKind kind = RemoteKind::Access;
    std::string what;           ///< "Remote login (SSH)"
    std::optional<OnOff> state; ///< none where nothing is switched
    std::string detail;         ///< "2 keys", a line of a file
};

/// How reading one file or folder went. A place that does not exist has none.
struct SourceNote {
    enum class State : std::uint8_t { Read, NotRead, NotUnderstood, Partly };
    std::string path;
    FactKind kind = FactKind::Permissions;
    State state = State::Read;
    std::string reason; ///< in words, where it was not read whole
};

struct Facts {
    std::vector<Permission> permissions;
    std::vector<StartUpItem> startUp;
    std::vector<RemoteFact> remoteAccess;
    std::vector<SourceNote> sources;
    /// Whether no bound was met.
    bool whole = true;
};

/// Entries of one file, up to a bound; `problem` says why there are not more.
template <typename Entry>
struct ReadFacts {
    std::vector<Entry> entries;
    std::string problem;   ///< empty: all were read
    std::size_t bytes = 0; ///< of their texts
};

inline constexpr std::size_t kMostFactsOfASource = 20'000;
inline constexpr std::size_t kMostFacts = 100'000; ///< of one kind
inline constexpr std::size_t kMostFactBytes =
    std::size_t{32} * 1024 * 1024; ///< of a source's texts
inline constexpr std::size_t kLongestFactText = 4096;
inline constexpr std::size_t kMostFactParts = 64; ///< arguments, times of one item

/// The text with at most kLongestFactText bytes, and "…" where it was longer.
[[nodiscard]] std::string boundedText(std::string_view text);

/// How many bytes an item's texts take.
[[nodiscard]] std::size_t textBytes(const Permission& permission);
[[nodiscard]] std::size_t textBytes(const StartUpItem& item);
[[nodiscard]] std::size_t textBytes(const RemoteFact& fact);

/// Adds the entry, unless there are too many or their texts are too long; then says so.
template <typename Entry>
[[nodiscard]] bool addBounded(ReadFacts<Entry>& found, Entry entry)
{
    found.bytes += textBytes(entry);
    if (found.entries.size() >= kMostFactsOfASource || found.bytes > kMostFactBytes) {
        found.problem = "it holds more than any Mac's; the rest was left out";
        return false;
    }
    found.entries.push_back(std::move(entry));
    return true;
}

} // namespace pryvane
