#include "removal/disk/JournalStorage.h"

#include "core/Escape.h"
#include "core/HostFiles.h"
#include "core/Result.h"
#include "store/StoreFolder.h"
#include "volume/folders/FolderHandle.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace pryvane {

namespace {

std::string textOf(const nlohmann::json& object, const char* key)
{
    const auto found = object.find(key);
    return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

template <typename Number>
Number numberOf(const nlohmann::json& object, const char* key)
{
    const auto found = object.find(key);
    return found != object.end() && found->is_number_integer() ? found->get<Number>() : Number{0};
}

/// The moment that iso8601() wrote; the beginning of 1970 for anything else.
Date dateOf(const std::string& text)
{
    std::tm parts{};
    int milliseconds = 0;
    if (std::sscanf(text.c_str(), "%4d-%2d-%2dT%2d:%2d:%2d.%3dZ", &parts.tm_year, &parts.tm_mon,
                    &parts.tm_mday, &parts.tm_hour, &parts.tm_min, &parts.tm_sec,
                    &milliseconds) != 7)
        return {};
    parts.tm_year -= 1900;
    parts.tm_mon -= 1;
    return Date(std::chrono::seconds(timegm(&parts)) + std::chrono::milliseconds(milliseconds));
}

} // namespace

void forEachLine(int file, const std::function<void(std::string_view line)>& told)
{
    std::array<char, 16384> buffer;
    std::string line;
    bool tooLong = false;
    off_t at = 0;
    while (true) {
        const ssize_t got = pread(file, buffer.data(), buffer.size(), at);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return;
        at += got;
        std::string_view rest(buffer.data(), static_cast<std::size_t>(got));
        while (!rest.empty()) {
            const auto end = rest.find('\n');
            const std::string_view part = rest.substr(0, end);
            tooLong = tooLong || line.size() + part.size() > kLongestJournalLine;
            if (!tooLong)
                line.append(part);
            if (end == std::string_view::npos)
                break;
            if (!tooLong)
                told(line);
            line.clear();
            tooLong = false;
            rest.remove_prefix(end + 1);
        }
    }
}

std::optional<JournalLine> parsedJournalLine(std::string_view line)
{
    // Ours are flat. What is nested deeper is dropped as it is read, or it could take all memory.
    const auto isFlat = [](int depth, nlohmann::json::parse_event_t, nlohmann::json&) {
        return depth <= 1;
    };
    const auto object = nlohmann::json::parse(line, isFlat, false);
    if (!object.is_object())
        return std::nullopt;
    const std::string event = textOf(object, "event");
    JournalLine parsed;
    parsed.isOutcome = event == "outcome";
    if (!parsed.isOutcome && event != "intent")
        return std::nullopt;
    parsed.id = textOf(object, "id");
    parsed.volume = textOf(object, "volume");
    parsed.url = textOf(object, "url");
    parsed.time = dateOf(textOf(object, "time"));
    parsed.outcome = textOf(object, "outcome");
    parsed.reason = textOf(object, "reason");
    parsed.remark = textOf(object, "remark");
    parsed.purpose = textOf(object, "purpose");
    parsed.pathHash = textOf(object, "pathSha256");
    parsed.pathLength = numberOf<std::uint64_t>(object, "pathBytes");
    parsed.bytes = numberOf<std::int64_t>(object, "bytes");
    parsed.entries = numberOf<std::uint64_t>(object, "entries");
    parsed.countedWhole = object.value("countedWhole", nlohmann::json()) == true;
    parsed.ofContents = textOf(object, "scope") == "contents";
    if (parsed.id.empty() || parsed.url.empty())
        return std::nullopt;
    return parsed;
}

namespace {

constexpr std::string_view kOlderPrefix = "Removals-";
constexpr std::string_view kSuffix = ".jsonl";

Error journalError(const std::string& what, int error)
{
    return {"the journal of removals " + what + " (" + errorText(error) +
            "); make room in its folder, " + std::string(kElsewhere)};
}

} // namespace

std::vector<std::string> olderJournals(int folder)
{
    std::vector<std::string> names;
    FolderHandle readable = FolderHandle::openIn(folder, ".");
    FolderBatch batch;
    FolderBatch::Entry entry;
    while (readable && batch.fill(readable)) {
        while (batch.next(entry)) {
            if (entry.name.starts_with(kOlderPrefix) && entry.name.ends_with(kSuffix))
                names.emplace_back(entry.name);
        }
        if (batch.atEnd())
            break;
    }
    std::ranges::sort(names);
    return names;
}

Result<Done> JournalStorage::open()
{
    if (auto made = makeFolders(m_dataFolder); !made)
        return made;
    const auto resolved = resolvedFolder(m_dataFolder);
    if (!resolved)
        return resolved.error();
    m_folder.reset(
        ::open(resolved->c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!m_folder)
        return journalError("cannot be opened", errno);
    m_file.reset(openat(m_folder.get(), kJournalName,
                        O_RDWR | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600));
    struct stat data {};
    if (!m_file || fstat(m_file.get(), &data) != 0)
        return journalError("cannot be opened", errno);
    if (!S_ISREG(data.st_mode)) {
        m_file.reset();
        return Error{forScreen(*resolved + "/" + kJournalName) +
                     " is not a regular file, so no account of removals can be kept; remove it, " +
                     std::string(kElsewhere)};
    }
    if ((data.st_mode & 077) != 0)
        static_cast<void>(fchmod(m_file.get(), 0600));
    // Or a power cut could take the new name, and with it what is on the device.
    if (data.st_size == 0)
        static_cast<void>(syncToDevice(m_folder.get()));
    return Done{};
}

Result<Done> JournalStorage::lock()
{
    const auto until = std::chrono::steady_clock::now() + kStorePatience;
    while (flock(m_file.get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            return Done{}; // a file system without locks
        if (std::chrono::steady_clock::now() > until)
            return Error{"another program is removing at this moment; try again when it is done"};
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return Done{};
}

/// Whether the open file is still the one of that name: another program may have begun a new one.
bool JournalStorage::isInPlace() const
{
    struct stat named {
    }, held{};
    return m_file && fstatat(m_folder.get(), kJournalName, &named, AT_SYMLINK_NOFOLLOW) == 0 &&
           fstat(m_file.get(), &held) == 0 && named.st_dev == held.st_dev &&
           named.st_ino == held.st_ino;
}

Result<Done> JournalStorage::hold()
{
    constexpr int kTries = 16;
    for (int tries = 0; tries < kTries; ++tries) {
        if (!isInPlace()) {
            if (auto opened = open(); !opened)
                return opened;
        }
        if (auto locked = lock(); !locked)
            return locked;
        if (isInPlace())
            return append({});
        release();
    }
    return Error{"the journal of removals is exchanged again and again; end the program that does"};
}

void JournalStorage::release()
{
    if (m_file)
        flock(m_file.get(), LOCK_UN);
}

Result<Done> JournalStorage::append(const std::string& lines)
{
    const off_t before = size();
    char last = '\n';
    if (before < 0 || (before > 0 && pread(m_file.get(), &last, 1, before - 1) != 1))
        return journalError("cannot be read", errno);
    const std::string text = last == '\n' ? lines : "\n" + lines;
    for (std::size_t written = 0; written < text.size();) {
        const ssize_t count = ::write(m_file.get(), text.data() + written, text.size() - written);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0) {
            const int error = count < 0 ? errno : ENOSPC;
            // Where that fails, what is appended next ends the torn line first.
            if (written > 0 && size() == before + static_cast<off_t>(written))
                takeBack(before);
            return journalError("cannot be written", error);
        }
        written += static_cast<std::size_t>(count);
    }
    return Done{};
}

Result<Done> JournalStorage::sync()
{
    if (syncContentToDevice(m_file.get()) != 0)
        return journalError("cannot be put on the device", errno);
    return Done{};
}

void JournalStorage::takeBack(off_t size)
{
    while (ftruncate(m_file.get(), size) != 0 && errno == EINTR) {
    }
}

off_t JournalStorage::size() const
{
    struct stat data {};
    return fstat(m_file.get(), &data) == 0 ? data.st_size : -1;
}

Result<Done> JournalStorage::startAnew()
{
    const std::string older = std::string(kOlderPrefix) + asideStamp() + std::string(kSuffix);
    struct stat data {};
    if (fstatat(m_folder.get(), older.c_str(), &data, AT_SYMLINK_NOFOLLOW) == 0 ||
        renameat(m_folder.get(), kJournalName, m_folder.get(), older.c_str()) != 0)
        return Done{}; // it goes on
    static_cast<void>(syncToDevice(m_folder.get()));
    const auto names = olderJournals(m_folder.get());
    for (std::size_t i = 0; i + kKeptAside < names.size(); ++i)
        unlinkat(m_folder.get(), names[i].c_str(), 0);
    return hold();
}

} // namespace pryvane
