#pragma once

#include "core/StopFlag.h"
#include "inventory/ExtensionFiles.h"
#include "platform/FileSystem.h"

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace pryvane {

/// One extension of Chrome or add-on of Firefox.
struct ExtensionEntry {
    FileURL urlExt;           ///< Chrome: the version's folder; Firefox: as Firefox wrote it
    std::string verExt;       ///< version
    std::string nameExt;      ///< as shown to the user
    std::int64_t sizeExt = 0; ///< allocated bytes
    std::string PersonExt;    ///< Chrome: the profile's name; Firefox: "Default"
};

/// The bounds of one listing. No honest browser comes near; links can make any number of folders of
/// a few.
struct ListingBounds {
    std::size_t extensions = 10'000;
    std::size_t folderEntries = 200'000;
    std::size_t bytesRead = std::size_t{256} * 1024 * 1024;
};

/// The longest file that is read for a listing.
inline constexpr std::size_t kLongestListedFile = std::size_t{16} * 1024 * 1024;

/// Lists Chrome's extensions, not measured. A file is read once, however many links lead to it.
class ChromeExtensions {
public:
    ChromeExtensions(FileSystem& disk, const StopFlag& stop, const ListingBounds& bounds = {})
        : m_disk(disk), m_stop(stop), m_left(bounds)
    {
    }

    /// Adds those of one profile; `folder` is the profile's own.
    void add(const FileURL& folder, const std::string& profileName);

    /// Adds the extension in a folder of its own, if one is there.
    void addOne(const FileURL& version, const std::string& profileName);

    /// What was found since the last time. `whole` is false where a bound was met so far.
    [[nodiscard]] BoundedList<ExtensionEntry> take()
    {
        return {std::exchange(m_found.entries, {}), m_found.whole};
    }

private:
    using MessageKey = std::pair<FileIdentity, std::string>;

    [[nodiscard]] bool goesOn() const { return m_found.whole && !m_stop.requested(); }
    [[nodiscard]] std::vector<FileURL> foldersIn(const FileURL& folder);
    [[nodiscard]] std::optional<std::string> read(const FileURL& file);
    [[nodiscard]] std::optional<ExtensionManifest> manifest(const FileURL& file);
    [[nodiscard]] std::optional<std::string> message(const FileURL& file, const std::string& key);
    [[nodiscard]] std::string displayName(const std::string& name, const FileURL& folder);

    FileSystem& m_disk;
    const StopFlag& m_stop;
    ListingBounds m_left;
    BoundedList<ExtensionEntry> m_found;
    std::map<FileIdentity, std::optional<ExtensionManifest>> m_manifests;
    std::map<MessageKey, std::optional<std::string>> m_messages;
};

} // namespace pryvane
