#include "inventory/ChromeExtensions.h"

#include <algorithm>

namespace pryvane {

namespace {

FileURL in(const FileURL& folder, std::string_view name)
{
    return FileURL::fileURLWithPath(joinedPath(folder.absolutePath(), name));
}

} // namespace

void ChromeExtensions::add(const FileURL& folder, const std::string& profileName)
{
    for (const FileURL& identifier : foldersIn(in(folder, "Extensions"))) {
        for (const FileURL& version : foldersIn(identifier)) {
            if (!goesOn())
                return;
            addOne(version, profileName);
        }
    }
}

void ChromeExtensions::addOne(const FileURL& version, const std::string& profileName)
{
    const auto found = manifest(in(version, "manifest.json"));
    if (!found)
        return;
    if (m_left.extensions == 0) {
        m_found.whole = false;
        return;
    }
    --m_left.extensions;
    m_found.entries.push_back(
        {version, found->version, displayName(found->name, version), 0, profileName});
}

/// What may be a folder there: a link can lead to one.
std::vector<FileURL> ChromeExtensions::foldersIn(const FileURL& folder)
{
    std::vector<FileURL> folders;
    if (!goesOn())
        return folders;
    const FolderListing listing = m_disk.list(folder);
    if (listing.entries.size() > m_left.folderEntries)
        m_found.whole = false;
    const std::size_t taken = std::min(listing.entries.size(), m_left.folderEntries);
    m_left.folderEntries -= taken;
    for (std::size_t i = 0; i < taken; ++i) {
        const FolderEntry& entry = listing.entries[i];
        if (entry.kind != FileKind::RegularFile && entry.kind != FileKind::Other)
            folders.push_back(in(folder, entry.name));
    }
    return folders;
}

std::optional<std::string> ChromeExtensions::read(const FileURL& file)
{
    auto content = m_disk.readSmallFile(file, kLongestListedFile);
    if (!content)
        return std::nullopt;
    // What is read first counts whole, so that a bound of any size lets something through.
    if (m_left.bytesRead == 0) {
        m_found.whole = false;
        return std::nullopt;
    }
    m_left.bytesRead -= std::min(content->size(), m_left.bytesRead);
    return std::move(content).value();
}

std::optional<ExtensionManifest> ChromeExtensions::manifest(const FileURL& file)
{
    const auto identity = m_disk.fileIdentity(file);
    if (!identity)
        return std::nullopt;
    if (const auto known = m_manifests.find(*identity); known != m_manifests.end())
        return known->second;
    const auto content = read(file);
    auto found = content ? extensionManifest(*content) : std::nullopt;
    m_manifests.emplace(*identity, found);
    return found;
}

std::optional<std::string> ChromeExtensions::message(const FileURL& file, const std::string& key)
{
    const auto identity = m_disk.fileIdentity(file);
    if (!identity)
        return std::nullopt;
    const auto [known, isNew] = m_messages.try_emplace({*identity, key});
    if (isNew) {
        if (const auto content = read(file))
            known->second = messageText(*content, key);
    }
    return known->second;
}

/// The name that a reference stands for; the reference itself if there is no message for it.
std::string ChromeExtensions::displayName(const std::string& name, const FileURL& folder)
{
    const auto key = messageKey(name);
    if (!key)
        return name;
    for (const std::string_view locale : {"en", "en_US", "en_GB"}) {
        const std::string messages = "_locales/" + std::string(locale);
        if (m_disk.exists(in(folder, messages + "/")))
            return message(in(folder, messages + "/messages.json"), *key).value_or(name);
    }
    return name;
}

} // namespace pryvane
