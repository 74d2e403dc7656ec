#pragma once

#include "core/SharedText.h"
#include "platform/FileSystem.h"
#include "platform/FileURL.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace pryvane {

/// Colour of a finding's row text.
enum class RowColor : std::uint8_t { Black, Grey };

/// The only risk level that the system uses.
inline constexpr std::string_view kHighRisk = "High Risk";

/// Why a disk that is asked cannot tell whether something is there.
inline constexpr std::string_view kUnsearchable = "a folder on the way to it cannot be searched";

/// The three answers for programs: "there", "gone", "unknown".
[[nodiscard]] const char* presenceWord(Presence presence);

/// What stands somewhere, for programs: "file", "folder", "link", "other", "gone" or "unknown".
[[nodiscard]] const char* kindWord(FileKind kind);

/// One finding: a named threat at one location, with the flags that carry it through removal. A
/// plain record; while a scan runs the main thread owns it once it is on the result list.
class Spyware {
public:
    /// A new record. `isChecked` is ignored on purpose: a record is selected exactly when its
    /// location exists on `disk` now.
    [[nodiscard]] static std::shared_ptr<Spyware>
    SpyWareWithName(std::string_view name, bool isChecked, std::string_view infections,
                    std::int64_t size, const FileURL& url, std::string_view risk, FileSystem& disk);

    /// The same for a location that is known to exist at this moment.
    [[nodiscard]] static std::shared_ptr<Spyware> SpyWareSeen(std::string_view name,
                                                              std::string_view infections,
                                                              std::int64_t size, const FileURL& url,
                                                              std::string_view risk);

    /// Notes where and what it is, as far as a scan could tell.
    void setSighting(const std::optional<Sighting>& sighting);

    /// Notes under which absolute path the disk itself has it.
    void setSpelling(std::string_view path);

    /// That absolute path, raw bytes, without a slash at its end; stored. Where letter case or
    /// normal form do not matter it may differ from the location. Empty: not known, as in older
    /// reports. Good while the record is as it is.
    [[nodiscard]] std::string_view spelling() const
    {
        return m_isSpelledAsAsked ? std::string_view(url.relativePath())
                                  : std::string_view(m_spelling);
    }

    /// Follows the disk, and isChecked and the row's colour with it. `reason` says in words why it
    /// cannot be told, and lasts as long as the program.
    void setPresence(Presence now, std::string_view reason = {});

    /// Known to be there.
    [[nodiscard]] bool isAvail() const { return presence == Presence::Present; }

    /// The last path component as raw bytes, or "ARD". Good while the record is as it is.
    [[nodiscard]] std::string_view name() const
    {
        return m_isNamedAsLocated ? url.lastPathComponent() : std::string_view(m_name);
    }
    void setName(std::string_view name);

    SharedText infections; ///< the threat's family label
    std::int64_t size = 0; ///< bytes
    FileURL url;
    SharedText risk;
    SharedText
        user; ///< in whose home it lies, as Users.h names them; empty: in a place that all share
    bool isChecked = false; ///< selected for removal
    bool isDeleted = false; ///< its removal succeeded
    bool isNoAction = false;
    Presence presence = Presence::Unknown; ///< when the record was made or read back; not stored
    std::string_view presenceReason;       ///< why it is not known, in words
    SharedText removalFailure; ///< why it could not be removed, for a person; not stored
    SharedText removalRemark;  ///< what else is to be known of its removal; not stored
    RowColor redGreen = RowColor::Grey;

    /// What stood at the location when a scan found it; stored, and unknown in older reports.
    FileKind kind = FileKind::Unknown;

    FileTimes times;   ///< of what stood there when a scan found it; stored
    SharedText sha256; ///< of its content, where a scan was asked for that and could tell; stored

    /// Where it was when a scan found it; none for a record that was read back from the store.
    std::optional<Sighting> seen;

private:
    // Where they are not the location's own: there may be a million of these.
    SharedText m_name, m_spelling;
    bool m_isNamedAsLocated = false, m_isSpelledAsAsked = false;
};

/// In whose home it lies; "whole Mac" for what all share. Raw bytes.
[[nodiscard]] inline std::string_view whoseText(const Spyware& record)
{
    return record.user.empty() ? std::string_view("whole Mac") : std::string_view(record.user);
}

using SpywareList = std::vector<std::shared_ptr<Spyware>>;

/// The ordered list of findings of the running or last scan, with an index of their locations.
/// Main thread only.
class ResultList {
public:
    [[nodiscard]] const SpywareList& records() const { return *m_records; }

    /// The list itself, shared with the report that is made from it.
    [[nodiscard]] const std::shared_ptr<SpywareList>& shared() const { return m_records; }

    [[nodiscard]] bool contains(const FileURL& url) const
    {
        return m_locations.contains(url.identity());
    }

    /// The same for a location by any spelling, where the record's own on the disk is known.
    [[nodiscard]] bool contains(const Spyware& record) const
    {
        return m_locations.contains(placeOf(record));
    }

    void append(std::shared_ptr<Spyware> record);

    /// Starts over with a list of its own, so that a report made from the last one keeps it.
    void clear();

private:
    [[nodiscard]] static std::string_view placeOf(const Spyware& record);

    std::shared_ptr<SpywareList> m_records = std::make_shared<SpywareList>();
    std::unordered_set<std::string_view>
        m_locations; // views into m_records' URLs and spellings, which never change
};

} // namespace pryvane
