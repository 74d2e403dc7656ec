#pragma once

#include "core/Result.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace pryvane {

/// How long to wait for another program that uses the store.
inline constexpr std::chrono::milliseconds kStorePatience{5000};

/// How many things of one kind stay set aside.
inline constexpr std::size_t kKeptAside = 3;

/// What stands between a name and the moment at which its bearer was set aside.
inline constexpr std::string_view kAsideMark = ".damaged-";

/// A moment for a file name or key, such that later ones sort later: "20261121T042623.000Z".
[[nodiscard]] std::string asideStamp();

/// What helps wherever a folder cannot be used, as the end of a sentence.
inline constexpr std::string_view kElsewhere = "or set PRYVANE_DATA_DIR to a folder of your own";

[[nodiscard]] Error folderError(std::string_view folder, std::string_view what);

/// Where the store lies in its folder.
[[nodiscard]] std::string storePath(const std::string& folder);

/// Makes the folder and those above it where they are missing; for the user alone.
[[nodiscard]] Result<Done> makeFolders(const std::string& folder);

/// The folder without any link on the way, because SQLite is told to follow none.
[[nodiscard]] Result<std::string> resolvedFolder(const std::string& folder);

enum class InPlace : std::uint8_t { Nothing, EmptyFile, File };

/// What stands where the file belongs. Anything but a regular file is refused unopened, there and
/// where SQLite keeps what belongs to the file: opening a FIFO waits without end.
[[nodiscard]] Result<InPlace> inPlace(const std::string& path);

/// Reads the file and the journal beside it from end to end, opened as SQLite would open them. What
/// cannot be read is an error, and then nothing can be said of the content.
[[nodiscard]] Result<Done> readsThrough(const std::string& path, bool forWriting);

/// Whether this user may write the folder, and the file where there is one.
[[nodiscard]] Result<Done> mayWrite(const std::string& folder, const std::string& path,
                                    InPlace found);

/// Renames the file, and first what SQLite would otherwise apply to the fresh one; all of it or
/// nothing. Gives the new path.
[[nodiscard]] Result<std::string> moveFileAside(const std::string& path);

/// Takes a move back; false where that failed, and the file is still where it was moved to.
[[nodiscard]] bool moveFileBack(const std::string& aside, const std::string& path);

/// Drops all that were set aside but the newest and the largest, with what belongs to them. An
/// empty or nearly empty file cannot push out the one that holds the reports.
void forgetOldAsides(const std::string& folder);

/// Keeps two starting programs from both making, or both moving, the file. It locks the folder
/// itself, so no file of its own is needed; where the file system cannot do that, it holds nothing.
class FolderLock {
public:
    explicit FolderLock(const std::string& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    [[nodiscard]] bool timedOut() const { return m_timedOut; }

private:
    int m_folder;
    bool m_timedOut = false;
};

} // namespace pryvane
