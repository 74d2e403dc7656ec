#include "platform/posix/removal/RemovalJournalFile.h"

#include "core/Escape.h"
#include "core/Texts.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/posix/StoreFolder.h"
#include "platform/posix/removal/JournalLines.h"

#include <nlohmann/json.hpp>

#include <cerrno>
#include <fcntl.h>
#include <map>
#include <random>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace pryvane {

namespace {

// A journal that has grown past this is set aside, with the store's other things of the past.
constexpr off_t kLargest = off_t{8} * 1024 * 1024;

Error journalError(const std::string& what)
{
    return {"the journal of removals " + what + "; make room in its folder, " +
            std::string(kElsewhere)};
}

/// Tells this begin() from all others, of other processes too.
std::string freshId()
{
    static std::random_device source;
    std::string id;
    for (int i = 0; i < 4; ++i)
        id += std::to_string(source()) + (i < 3 ? "-" : "");
    return id;
}

std::string_view outcomeText(RemovalOutcome outcome)
{
    switch (outcome) {
    case RemovalOutcome::Removed:
        return "removed";
    case RemovalOutcome::AlreadyGone:
        return "already gone";
    case RemovalOutcome::Failed:
        break;
    }
    return "failed";
}

Result<UniqueFd> openedFile(const std::string& path)
{
    UniqueFd file(::open(path.c_str(),
                         O_RDWR | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600));
    struct stat data {};
    if (!file || fstat(file.get(), &data) != 0)
        return journalError("cannot be opened (" + reasonOf(errno) + ")");
    if (!S_ISREG(data.st_mode))
        return journalError("is not a regular file");
    return file;
}

/// Held while intentions are open, so that no other program takes them for interrupted ones.
Result<Done> locked(int file)
{
    const auto until = std::chrono::steady_clock::now() + kStorePatience;
    while (flock(file, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            return Done{}; // a file system without locks
        if (std::chrono::steady_clock::now() > until)
            return Error{"another program is removing at this moment; try again when it is done"};
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return Done{};
}

} // namespace

std::string removalJournalPath(const std::string& dataFolder)
{
    return dataFolder + "/Removals.jsonl";
}

Result<std::unique_ptr<RemovalJournalFile>> RemovalJournalFile::open(const std::string& dataFolder,
                                                                     FileSystem& disk, Clock& clock)
{
    if (const auto made = makeFolders(dataFolder); !made)
        return made.error();
    const auto folder = resolvedFolder(dataFolder);
    if (!folder)
        return folder.error();
    const std::string path = removalJournalPath(*folder);
    auto file = openedFile(path);
    if (!file)
        return file.error();
    std::unique_ptr<RemovalJournalFile> journal(
        new RemovalJournalFile(std::move(*file), disk, clock));
    if (const auto lock = locked(journal->m_file.get()); !lock)
        return lock.error();
    if (const auto ended = journal->endTornLine(); !ended)
        return ended.error();
    if (const auto settled = journal->settleInterrupted(); !settled)
        return settled.error();
    struct stat data {};
    if (fstat(journal->m_file.get(), &data) == 0 && data.st_size > kLargest) {
        if (const auto moved = moveFileAside(*folder, path); !moved)
            return moved.error();
        auto fresh = openedFile(path);
        if (!fresh)
            return fresh.error();
        journal->m_file = std::move(*fresh);
    }
    flock(journal->m_file.get(), LOCK_UN);
    return journal;
}

RemovalJournalFile::RemovalJournalFile(UniqueFd file, FileSystem& disk, Clock& clock)
    : m_file(std::move(file)), m_disk(disk), m_clock(clock),
      m_volume(percentEncoded(disk.identity()))
{
}

std::string RemovalJournalFile::line(const char* event, const Begun& item,
                                     const RemovalResult* result) const
{
    nlohmann::ordered_json object;
    object["event"] = event;
    object["time"] = iso8601(m_clock.now());
    object["id"] = item.id;
    object["volume"] = m_volume;
    object["path"] = forJson(item.url.relativePath());
    object["url"] = item.url.urlText();
    if (result) {
        object["bytes"] = result->bytesRemoved;
        object["entries"] = result->entriesRemoved;
        object["outcome"] = outcomeText(result->outcome);
        object["reason"] = result->reason();
    }
    return object.dump() + "\n";
}

/// Writes whole lines or nothing.
Result<Done> RemovalJournalFile::write(const std::string& lines)
{
    struct stat before {};
    if (fstat(m_file.get(), &before) != 0)
        return journalError("cannot be written (" + reasonOf(errno) + ")");
    std::size_t written = 0;
    while (written < lines.size()) {
        const ssize_t count = ::write(m_file.get(), lines.data() + written, lines.size() - written);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0) {
            const int error = errno;
            if (written > 0 && ftruncate(m_file.get(), before.st_size) != 0)
                m_unwritten.insert(0, "\n"); // so that what comes next is a line of its own
            return journalError("cannot be written (" + reasonOf(error) + ")");
        }
        written += static_cast<std::size_t>(count);
    }
    return Done{};
}

Result<Done> RemovalJournalFile::begin(std::span<const RemovalItem> items)
{
    if (const auto lock = locked(m_file.get()); !lock)
        return lock;
    const std::string run = freshId();
    m_begun.clear();
    std::string lines = std::exchange(m_unwritten, {});
    for (const RemovalItem& item : items) {
        m_begun.push_back({run + "/" + std::to_string(m_begun.size()), item.url});
        lines += line("intent", m_begun.back(), nullptr);
    }
    auto written = write(lines);
    if (written && fdatasync(m_file.get()) != 0)
        written = journalError("cannot be put on the device (" + reasonOf(errno) + ")");
    if (!written)
        flock(m_file.get(), LOCK_UN);
    return written;
}

void RemovalJournalFile::ended(std::size_t item, const RemovalResult& result)
{
    const std::string outcome = line("outcome", m_begun.at(item), &result);
    if (!m_unwritten.empty() || !write(outcome))
        m_unwritten += outcome; // flush() tries once more
}

Result<Done> RemovalJournalFile::flush()
{
    Result<Done> done = Done{};
    if (!m_unwritten.empty()) {
        done = write(m_unwritten);
        if (done)
            m_unwritten.clear();
    }
    if (done && fdatasync(m_file.get()) != 0)
        done = journalError("cannot be put on the device (" + reasonOf(errno) + ")");
    flock(m_file.get(), LOCK_UN);
    return done;
}

/// A crash in the middle of a write leaves a line without its end.
Result<Done> RemovalJournalFile::endTornLine()
{
    struct stat data {};
    char last = '\n';
    if (fstat(m_file.get(), &data) == 0 && data.st_size > 0 &&
        pread(m_file.get(), &last, 1, data.st_size - 1) == 1 && last != '\n')
        return write("\n");
    return Done{};
}

/// What was begun and never ended is told from the disk, where it is the same volume's.
Result<Done> RemovalJournalFile::settleInterrupted()
{
    std::map<std::string, JournalLine> open;
    forEachLine(m_file.get(), [&](std::string_view text) {
        auto parsed = parsedJournalLine(text);
        if (!parsed)
            return;
        if (parsed->isOutcome)
            open.erase(parsed->id);
        else if (parsed->volume == m_volume)
            open.insert_or_assign(parsed->id, std::move(*parsed));
    });
    std::string lines;
    for (const auto& [id, begun] : open) {
        const auto url = FileURL::fromUrlText(begun.url);
        const FileKind kind = m_disk.kind(url);
        nlohmann::ordered_json object;
        object["event"] = "outcome";
        object["time"] = iso8601(m_clock.now());
        object["id"] = id;
        object["volume"] = m_volume;
        object["path"] = forJson(url.relativePath());
        object["url"] = begun.url;
        object["outcome"] = "interrupted";
        object["reason"] = kind == FileKind::Missing   ? "interrupted; it is gone"
                           : kind == FileKind::Unknown ? "interrupted; it cannot be looked at"
                           : kind == FileKind::Folder
                               ? "interrupted; it is still there, perhaps not whole"
                               : "interrupted; it is still there";
        lines += object.dump() + "\n";
    }
    if (lines.empty())
        return Done{};
    auto written = write(lines);
    if (written && fdatasync(m_file.get()) != 0)
        written = journalError("cannot be put on the device (" + reasonOf(errno) + ")");
    return written;
}

void readRemovalJournal(const std::string& dataFolder,
                        const std::function<void(const RemovalRecord&)>& told)
{
    const UniqueFd file(::open(removalJournalPath(dataFolder).c_str(),
                               O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat data {};
    if (!file || fstat(file.get(), &data) != 0 || !S_ISREG(data.st_mode))
        return;
    forEachLine(file.get(), [&](std::string_view text) {
        const auto parsed = parsedJournalLine(text);
        if (!parsed || !parsed->isOutcome)
            return;
        told({FileURL::fromUrlText(parsed->url), percentDecoded(parsed->volume), parsed->time,
              parsed->outcome, parsed->reason, parsed->bytes, parsed->entries});
    });
}

} // namespace pryvane
