#include "removal/disk/RemovalJournalFile.h"

#include "core/Escape.h"
#include "core/Sha256.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "removal/disk/JournalStorage.h"
#include "removal/disk/TreeCensus.h"

#include <nlohmann/json.hpp>

#include <fcntl.h>
#include <map>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

namespace pryvane {

namespace {

// A journal that has grown past this is set aside, and a fresh one begun.
constexpr off_t kLarge = off_t{8} * 1024 * 1024;

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

/// A path as a line holds it, which is never too long to be put on record.
struct PathOnRecord {
    FileURL url;
    std::string hash; ///< of the whole path, where the url is only its beginning
    std::uint64_t length = 0;

    PathOnRecord(const FileURL& whole) : url(whole), length(whole.relativePath().size())
    {
        if (length <= kLongestPathOnRecord)
            return;
        hash = sha256Hex(whole.relativePath());
        url = FileURL::fileURLWithPath(whole.relativePath().substr(0, kShortenedPath));
    }
    PathOnRecord(const JournalLine& line)
        : url(FileURL::fromUrlText(line.url)), hash(line.pathHash), length(line.pathLength)
    {
    }
};

struct LineHead {
    std::string_view event, id, volume;
    PathOnRecord path;
    Date time;
};

nlohmann::ordered_json lineWith(const LineHead& head)
{
    nlohmann::ordered_json line{{"event", head.event},
                                {"time", iso8601(head.time)},
                                {"id", head.id},
                                {"volume", head.volume},
                                {"path", forJson(head.path.url.relativePath())},
                                {"url", head.path.url.urlText()}};
    if (!head.path.hash.empty())
        line.update({{"pathBytes", head.path.length}, {"pathSha256", head.path.hash}});
    return line;
}

std::string textOf(const nlohmann::ordered_json& line)
{
    using Json = nlohmann::ordered_json;
    return line.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

/// Every line on record, oldest first, of the journals set aside too.
void forEachJournalLine(const std::string& dataFolder,
                        const std::function<void(std::string_view line)>& told)
{
    const UniqueFd folder(::open(dataFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder)
        return;
    auto names = olderJournals(folder.get());
    names.emplace_back(kJournalName);
    for (const std::string& name : names) {
        const UniqueFd file(
            openat(folder.get(), name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        struct stat data {};
        if (file && fstat(file.get(), &data) == 0 && S_ISREG(data.st_mode))
            forEachLine(file.get(), told);
    }
}

/// What the disk says of an item whose removal was begun and not ended.
std::string whatIsLeft(const JournalLine& begun, const EntryCount& now)
{
    switch (now.state) {
    case EntryCount::State::Unknown:
        return "interrupted; it cannot be looked at";
    case EntryCount::State::Missing:
        return begun.entries == 0 ? "interrupted; nothing was there" : "interrupted; it is gone";
    case EntryCount::State::There:
        break;
    }
    const std::string count = std::to_string(now.entries) + " of " + std::to_string(begun.entries);
    if (now.entries < begun.entries)
        return "interrupted; it is partly removed: " + count + " entries are left";
    if (now.whole && begun.countedWhole && now.entries == begun.entries)
        return "interrupted; it is untouched";
    return "interrupted; it is still there, perhaps not whole";
}

} // namespace

RemovalJournalFile::RemovalJournalFile(const std::string& dataFolder, FileSystem& disk,
                                       Clock& clock)
    : m_dataFolder(dataFolder), m_storage(dataFolder), m_disk(disk), m_clock(clock),
      m_volume(percentEncoded(disk.identity()))
{
}

Result<std::unique_ptr<RemovalJournalFile>> RemovalJournalFile::open(const std::string& dataFolder,
                                                                     FileSystem& disk, Clock& clock)
{
    auto journal = std::make_unique<RemovalJournalFile>(dataFolder, disk, clock);
    if (const auto settled = journal->settle(); !settled)
        return settled.error();
    return journal;
}

Result<Done> RemovalJournalFile::settle()
{
    auto held = hold();
    m_storage.release();
    return held;
}

/// Holds the file, with nothing open in it of this volume when it is held for the first time.
Result<Done> RemovalJournalFile::hold()
{
    if (auto held = m_storage.hold(); !held)
        return held;
    const bool large = m_storage.size() > kLarge;
    if (!m_settled || large) {
        if (auto settled = settleOpen(large ? Others::Ended : Others::Left); !settled)
            return settled;
        m_settled = true;
    }
    return large ? m_storage.startAnew() : Done{};
}

std::string RemovalJournalFile::intentions(std::span<const RemovalItem> items)
{
    const std::string run = freshId();
    m_begun.clear();
    std::string lines;
    for (const RemovalItem& item : items) {
        m_begun.push_back({run + "/" + std::to_string(m_begun.size()), item.url, item.purpose});
        const EntryCount count = countEntries(m_disk, item.url, item.scope);
        auto line =
            lineWith({"intent", m_begun.back().id, m_volume, m_begun.back().url, m_clock.now()});
        line["scope"] = item.scope == RemovalScope::ContentsOf ? "contents" : "item";
        line["entries"] = count.entries;
        line["countedWhole"] = count.whole;
        lines += textOf(line);
    }
    return lines;
}

Result<Done> RemovalJournalFile::begin(std::span<const RemovalItem> items)
{
    const std::string lines = intentions(items);
    auto held = hold();
    if (!held) {
        m_storage.release();
        return held;
    }
    const off_t before = m_storage.size();
    auto written = m_storage.append(m_unwritten + lines);
    if (written) {
        written = m_storage.sync();
        if (!written)
            m_storage.takeBack(before); // nothing is going to be removed
    }
    if (written)
        m_unwritten.clear();
    else
        m_storage.release();
    return written;
}

std::string RemovalJournalFile::outcome(const Begun& item, const RemovalResult& result) const
{
    auto line = lineWith({"outcome", item.id, m_volume, item.url, m_clock.now()});
    line["bytes"] = result.bytesRemoved;
    line["entries"] = result.entriesRemoved;
    line["outcome"] = outcomeText(result.outcome);
    line["reason"] = forJson(result.reason());
    if (!item.purpose.empty())
        line["purpose"] = forJson(item.purpose);
    if (!result.remark.empty())
        line["remark"] = forJson(result.remark);
    return textOf(line);
}

void RemovalJournalFile::ended(std::size_t item, const RemovalResult& result)
{
    const std::string line = outcome(m_begun.at(item), result);
    if (!m_unwritten.empty() || !m_storage.append(line))
        m_unwritten += line; // flush() tries once more
}

Result<Done> RemovalJournalFile::flush()
{
    Result<Done> done = m_unwritten.empty() ? Done{} : m_storage.append(m_unwritten);
    if (done) {
        m_unwritten.clear();
        done = m_storage.sync();
    }
    m_storage.release();
    return done;
}

Result<Done> RemovalJournalFile::conclude(const RemovalTally& tally)
{
    const nlohmann::ordered_json line{{"event", "summary"},     {"time", iso8601(m_clock.now())},
                                      {"volume", m_volume},     {"removed", tally.removed},
                                      {"failed", tally.failed}, {"left", tally.left}};
    auto done = hold();
    if (done)
        done = m_storage.append(textOf(line));
    if (done)
        done = m_storage.sync();
    m_storage.release();
    return done;
}

bool RemovalJournalFile::tellsOfEarlier()
{
    bool told = false;
    const auto look = [&](std::string_view text) {
        if (told || text.find(m_volume) == std::string_view::npos)
            return;
        const auto line = parsedJournalLine(text);
        // What has a purpose was private data that was cleared.
        told = line && line->isOutcome && line->volume == m_volume && line->purpose.empty() &&
               line->outcome != outcomeText(RemovalOutcome::Failed);
    };
    if (!m_volume.empty())
        forEachJournalLine(m_dataFolder, look);
    return told;
}

std::string RemovalJournalFile::interruption(const JournalLine& begun) const
{
    const PathOnRecord path(begun);
    auto line = lineWith({"outcome", begun.id, begun.volume, path, m_clock.now()});
    line["outcome"] = "interrupted";
    if (begun.volume.empty())
        line["reason"] = "interrupted; which disk it was on cannot be told";
    else if (begun.volume != m_volume)
        line["reason"] = "interrupted; its volume was not there to be looked at";
    else if (!path.hash.empty())
        line["reason"] = "interrupted; its path is too long to be on record, so it cannot be "
                         "looked at";
    else
        line["reason"] = whatIsLeft(
            begun, countEntries(m_disk, path.url,
                                begun.ofContents ? RemovalScope::ContentsOf : RemovalScope::Item));
    return textOf(line);
}

/// Ends what was begun and never ended. What was begun on another volume waits until that is
/// there, unless this journal comes to its end; where that cannot be told, waiting is no use.
Result<Done> RemovalJournalFile::settleOpen(Others otherVolumes)
{
    std::map<std::string, JournalLine> open;
    forEachLine(m_storage.file(), [&](std::string_view text) {
        auto line = parsedJournalLine(text);
        if (!line)
            return;
        if (line->isOutcome)
            open.erase(line->id);
        else if (line->volume == m_volume || line->volume.empty() || otherVolumes == Others::Ended)
            open.insert_or_assign(line->id, std::move(*line));
    });
    if (open.empty())
        return Done{};
    std::string lines;
    for (const auto& [id, begun] : open)
        lines += interruption(begun);
    if (auto written = m_storage.append(lines); !written)
        return written;
    return m_storage.sync();
}

std::string journalKey(const FileURL& url)
{
    const PathOnRecord path(url);
    return path.hash.empty() ? std::string(url.identity()) : path.hash;
}

std::string removalJournalPath(const std::string& dataFolder)
{
    return dataFolder + "/" + kJournalName;
}

void readRemovalJournal(const std::string& dataFolder,
                        const std::function<void(const RemovalRecord&)>& told)
{
    forEachJournalLine(dataFolder, [&](std::string_view text) {
        const auto line = parsedJournalLine(text);
        if (!line)
            return;
        const auto url = FileURL::fromUrlText(line->url);
        told({url, line->pathHash.empty() ? std::string(url.identity()) : line->pathHash,
              percentDecoded(line->volume), line->time, line->isOutcome ? line->outcome : "begun",
              line->reason, line->remark, line->bytes, line->entries});
    });
}

} // namespace pryvane
