#include "findings/Spyware.h"

#include "platform/FileSystem.h"

namespace pryvane {

namespace {

/// Whether both are the same but for the letter case of ASCII letters and for all bytes outside
/// ASCII.
bool isSpelledLike(std::string_view a, std::string_view b)
{
    const auto next = [](std::string_view& text) {
        while (!text.empty() && static_cast<unsigned char>(text.front()) >= 0x80)
            text.remove_prefix(1);
        if (text.empty())
            return '\0';
        const char c = text.front();
        text.remove_prefix(1);
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    };
    for (char c = 1; c != '\0';) {
        c = next(a);
        if (c != next(b))
            return false;
    }
    return true;
}

} // namespace

std::shared_ptr<Spyware> Spyware::SpyWareWithName(std::string_view name, bool /*isChecked*/,
                                                  std::string_view infections, std::int64_t size,
                                                  const FileURL& url, std::string_view risk,
                                                  FileSystem& disk)
{
    auto record = SpyWareSeen(name, infections, size, url, risk);
    record->setPresence(disk.presence(url), kUnsearchable);
    return record;
}

std::shared_ptr<Spyware> Spyware::SpyWareSeen(std::string_view name, std::string_view infections,
                                              std::int64_t size, const FileURL& url,
                                              std::string_view risk)
{
    auto record = std::make_shared<Spyware>();
    record->infections = infections;
    record->size = size;
    record->url = url;
    record->setName(name);
    record->risk = risk;
    record->setPresence(Presence::Present);
    return record;
}

void Spyware::setSighting(const std::optional<Sighting>& sighting)
{
    kind = sighting ? sighting->kind : FileKind::Unknown;
    // A walk that could not tell the folder leaves its inode 0.
    seen = sighting && sighting->inode != 0 ? sighting : std::nullopt;
}

void Spyware::setName(std::string_view name)
{
    m_isNamedAsLocated = name == url.lastPathComponent();
    m_name = m_isNamedAsLocated ? std::string_view() : name;
}

void Spyware::setSpelling(std::string_view path)
{
    while (path.size() > 1 && path.ends_with('/'))
        path.remove_suffix(1);
    m_isSpelledAsAsked = !path.empty() && path == url.relativePath();
    m_spelling = m_isSpelledAsAsked ? std::string_view() : path;
}

void Spyware::setPresence(Presence now, std::string_view reason)
{
    presence = now;
    presenceReason = now == Presence::Unknown ? reason : std::string_view();
    isChecked = isAvail();
    redGreen = isAvail() ? RowColor::Black : RowColor::Grey;
}

const char* presenceWord(Presence presence)
{
    switch (presence) {
    case Presence::Present:
        return "there";
    case Presence::Absent:
        return "gone";
    case Presence::Unknown:
        break;
    }
    return "unknown";
}

const char* kindWord(FileKind kind)
{
    switch (kind) {
    case FileKind::Missing:
        return "gone";
    case FileKind::Folder:
        return "folder";
    case FileKind::RegularFile:
        return "file";
    case FileKind::SymbolicLink:
        return "link";
    case FileKind::Other:
        return "other";
    case FileKind::Unknown:
        break;
    }
    return "unknown";
}

/// The spelling on the disk where it differs from the location in letter case or normal form alone:
/// a location behind a link is one of its own.
std::string_view ResultList::placeOf(const Spyware& record)
{
    const std::string_view asked = record.url.identity();
    std::string_view spelled = record.spelling();
    if (spelled.starts_with('/'))
        spelled.remove_prefix(1);
    return !spelled.empty() && isSpelledLike(asked, spelled) ? spelled : asked;
}

void ResultList::append(std::shared_ptr<Spyware> record)
{
    m_locations.insert(record->url.identity());
    m_locations.insert(placeOf(*record));
    m_records->push_back(std::move(record));
}

void ResultList::clear()
{
    m_locations.clear();
    m_records = std::make_shared<SpywareList>();
}

} // namespace pryvane
