#include "findings/Spyware.h"

#include "platform/FileSystem.h"

namespace pryvane {

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
    record->name = name;
    record->infections = infections;
    record->size = size;
    record->url = url;
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

void ResultList::append(std::shared_ptr<Spyware> record)
{
    m_locations.insert(record->url.identity());
    m_records->push_back(std::move(record));
}

void ResultList::clear()
{
    m_locations.clear();
    m_records = std::make_shared<SpywareList>();
}

} // namespace pryvane
