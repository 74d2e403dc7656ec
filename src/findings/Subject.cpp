#include "findings/Subject.h"

#include "core/Escape.h"
#include "formats/PropertyList.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pryvane {

namespace {

constexpr std::size_t kMostBytes = std::size_t{1} << 20; ///< these files have a few kilobytes
constexpr std::size_t kLongestName = 256;

std::string shortText(const PropertyValue& value)
{
    return std::string(value.text().value_or(std::string_view()).substr(0, kLongestName));
}

/// The outermost dictionary of a property list of the disk, handed to `read`.
template <typename Read>
void withPropertyList(FileSystem& disk, std::string_view path, Read read)
{
    auto content = disk.readSmallFile(FileURL::fileURLWithPath(path), kMostBytes);
    if (!content)
        return;
    const auto list = PropertyList::read(std::move(content).value());
    if (list)
        read(list->root());
}

struct SourceName {
    DiskSource::Kind kind;
    const char* word;
    const char* text;
};

constexpr std::array<SourceName, 5> kSources = {{
    {DiskSource::Kind::Unknown, "unknown", kNotKnown},
    {DiskSource::Kind::ThisMac, "this-mac", "This computer"},
    {DiskSource::Kind::Folder, "folder", "Folder"},
    {DiskSource::Kind::Image, "image", "Image"},
    {DiskSource::Kind::Listing, "listing", "Listing"},
}};

const SourceName& nameOf(DiskSource::Kind kind)
{
    const auto* found = std::ranges::find(kSources, kind, &SourceName::kind);
    return found == kSources.end() ? kSources.front() : *found;
}

} // namespace

Subject readSubject(FileSystem& disk, std::vector<std::string> users)
{
    Subject subject{disk.source(), {}, {}, std::move(users)};
    withPropertyList(disk, "/Library/Preferences/SystemConfiguration/preferences.plist",
                     [&](const PropertyValue& root) {
                         subject.computerName = shortText(root["System"]["System"]["ComputerName"]);
                     });
    withPropertyList(disk, "/System/Library/CoreServices/SystemVersion.plist",
                     [&](const PropertyValue& root) {
                         subject.systemVersion = shortText(root["ProductVersion"]);
                         const std::string build = shortText(root["ProductBuildVersion"]);
                         if (!subject.systemVersion.empty() && !build.empty())
                             subject.systemVersion += " (" + build + ")";
                     });
    return subject;
}

std::string sourceText(const Subject& subject)
{
    const std::string kind = nameOf(subject.source.kind).text;
    const bool named = subject.source.kind != DiskSource::Kind::Unknown &&
                       subject.source.kind != DiskSource::Kind::ThisMac &&
                       !subject.source.name.empty();
    return named ? kind + " " + forScreen(subject.source.name) : kind;
}

std::string systemText(const Subject& subject)
{
    return subject.systemVersion.empty() ? kNotKnown : "macOS " + forScreen(subject.systemVersion);
}

std::string userNames(const Subject& subject)
{
    std::string names;
    for (const std::string& user : subject.users)
        names += (names.empty() ? "" : ", ") + user;
    return names.empty() ? kNotKnown : names;
}

std::string macName(const Subject& subject)
{
    if (!subject.computerName.empty())
        return subject.computerName;
    return subject.source.kind == DiskSource::Kind::ThisMac || subject.source.name.empty()
               ? nameOf(subject.source.kind).text
               : subject.source.name;
}

std::string subjectText(const Subject& subject)
{
    if (!subject.isKnown())
        return kNotKnown;
    std::string text = forScreen(macName(subject));
    if (!subject.systemVersion.empty())
        text += ", " + systemText(subject);
    if (!subject.computerName.empty())
        text += ", " + sourceText(subject);
    if (subject.users.empty())
        return text;
    return text + (subject.users.size() == 1 ? "; user " : "; users ") +
           forScreen(userNames(subject));
}

const char* sourceWord(DiskSource::Kind kind)
{
    return nameOf(kind).word;
}

DiskSource::Kind sourceOfWord(std::string_view word)
{
    const auto* found = std::ranges::find(kSources, word, &SourceName::word);
    return found == kSources.end() ? DiskSource::Kind::Unknown : found->kind;
}

bool isAbout(std::string_view volume, const Subject& of, std::string_view here,
             std::span<const std::string> users)
{
    return of.isKnown() && isSameVolume(volume, here) &&
           std::ranges::all_of(users, [&](const std::string& user) {
               return std::ranges::find(of.users, user) != of.users.end();
           });
}

} // namespace pryvane
