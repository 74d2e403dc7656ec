#include "inventory/facts/BackgroundItems.h"

#include "core/Escape.h"
#include "inventory/facts/Bookmarks.h"
#include "inventory/facts/KeyedArchive.h"

#include <map>

namespace pryvane {

namespace {

constexpr std::int64_t kOldest = 2;
constexpr std::int64_t kNewest = 18;

// What an item is, as bits of a number.
constexpr std::int64_t kApplication = 0x2;
constexpr std::int64_t kLoginItem = 0x4;
constexpr std::int64_t kAgent = 0x8;
constexpr std::int64_t kDaemon = 0x10;
constexpr std::int64_t kDeveloper = 0x20; ///< heads a group of items and runs nothing

// What was decided about it.
constexpr std::int64_t kEnabled = 0x1;
constexpr std::int64_t kAllowed = 0x2;
constexpr std::int64_t kHidden = 0x4;

[[nodiscard]] Error notUnderstood(const std::string& why)
{
    return Error{"the background items are not understood: " + why};
}

[[nodiscard]] std::string pathOfAddress(std::string_view address)
{
    constexpr std::string_view kFile = "file://";
    if (address.starts_with(kFile))
        address.remove_prefix(kFile.size());
    std::string path = boundedText(percentDecoded(address));
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

/// Reads the records of one account.
class Records {
public:
    Records(KeyedArchive& archive, ReadFacts<StartUpItem>& found)
        : m_archive(archive), m_found(found)
    {
    }

    /// False where a record is none that is known.
    [[nodiscard]] bool add(const std::string& user, const std::vector<PropertyValue>& records)
    {
        // An item's address may be relative to that of the item which holds it.
        std::map<std::string, std::string, std::less<>> addresses;
        for (const PropertyValue& record : records) {
            std::string identifier = textIn(record, "identifier");
            std::string path = pathOf(record);
            constexpr std::size_t kLongest = 1024; // many may share one long text
            if (identifier.size() <= kLongest && path.size() <= kLongest)
                addresses.try_emplace(std::move(identifier), std::move(path));
        }
        for (const PropertyValue& record : records) {
            const auto type = m_archive.in(record, "type").integer();
            if (!type)
                return false;
            if ((*type & kDeveloper) != 0)
                continue;
            if (!addBounded(m_found, item(record, *type, user, addresses)))
                break;
        }
        return true;
    }

private:
    using Addresses = std::map<std::string, std::string, std::less<>>;

    [[nodiscard]] std::string textIn(const PropertyValue& record, std::string_view key)
    {
        return m_archive.text(m_archive.in(record, key));
    }

    [[nodiscard]] std::string pathOf(const PropertyValue& record)
    {
        const auto address = m_archive.address(m_archive.in(record, "url"));
        std::string path = pathOfAddress(address.relative);
        if (path.empty() || path.starts_with('/') || address.base.empty())
            return path;
        return boundedText(pathOfAddress(address.base) + "/" + path);
    }

    [[nodiscard]] StartUpItem item(const PropertyValue& record, std::int64_t type,
                                   const std::string& user, const Addresses& addresses)
    {
        StartUpItem item;
        item.kind = StartUpKind::BackgroundItem;
        item.origin.user = user;
        item.label = textIn(record, "name");
        const std::string identifier = textIn(record, "identifier");
        if (item.label.empty())
            item.label = identifier;
        item.developer = textIn(record, "developerName");
        item.application = textIn(record, "container");
        std::string path = pathOf(record);
        const auto holder = addresses.find(item.application);
        if (holder != addresses.end() && !holder->second.empty()) {
            item.application = holder->second;
            if (!path.empty() && !path.starts_with('/'))
                path = boundedText(holder->second + "/" + path);
        } else if (item.application.empty()) {
            item.application = textIn(record, "bundleIdentifier");
        }
        item.programText = textIn(record, "executablePath");
        if (item.programText.empty())
            item.programText = path;
        for (const PropertyValue& argument :
             m_archive.elements(m_archive.in(record, "programArguments")))
            if (item.arguments.size() < kMostFactParts)
                item.arguments.push_back(m_archive.text(argument));
        const std::int64_t decided = m_archive.in(record, "disposition").integer().value_or(-1);
        if (decided >= 0)
            item.state =
                (decided & kEnabled) != 0 && (decided & kAllowed) != 0 ? OnOff::On : OnOff::Off;
        item.hidden = decided >= 0 && (decided & kHidden) != 0;
        item.when.emplace_back((type & kDaemon) != 0  ? "daemon"
                               : (type & kAgent) != 0 ? "agent"
                               : (type & kLoginItem) != 0 || (type & kApplication) != 0
                                   ? "at login"
                                   : "kind " + std::to_string(type));
        return item;
    }

    KeyedArchive& m_archive;
    ReadFacts<StartUpItem>& m_found;
};

/// The form of macOS 13 and later: records by account.
[[nodiscard]] Result<Done> readByUser(KeyedArchive& archive, const PropertyValue& store,
                                      ReadFacts<StartUpItem>& found)
{
    const PropertyValue byUser = archive.in(store, "itemsByUserIdentifier");
    if (!archive.isCollection(byUser))
        return notUnderstood("they hold no items by account");
    for (const auto& [user, records] : archive.entries(byUser)) {
        if (!archive.isCollection(records))
            return notUnderstood("an account's items are no list");
        if (!Records(archive, found).add(user, archive.elements(records)))
            return notUnderstood("an item does not say what it is");
        if (!found.problem.empty())
            break;
    }
    return Done{};
}

/// The form of macOS 27: a file for each account.
[[nodiscard]] Result<Done> readOfOneUser(KeyedArchive& archive, const PropertyValue& store,
                                         ReadFacts<StartUpItem>& found)
{
    const PropertyValue records = archive.in(store, "records");
    if (!archive.isCollection(records))
        return notUnderstood("an account's items are no list");
    if (!Records(archive, found).add({}, archive.elements(records)))
        return notUnderstood("an item does not say what it is");
    return Done{};
}

/// The form of macOS 10.13 to 12: login items inside containers, each with a bookmark.
[[nodiscard]] Result<Done> readContainers(KeyedArchive& archive, const PropertyValue& items,
                                          ReadFacts<StartUpItem>& found)
{
    const PropertyValue containers = archive.in(items, "allContainers");
    if (!archive.isCollection(containers))
        return notUnderstood("they hold no containers");
    for (const PropertyValue& container : archive.elements(containers)) {
        const PropertyValue inside = archive.in(container, "internalItems");
        if (!archive.isCollection(inside))
            return notUnderstood("a container holds no list");
        for (const PropertyValue& element : archive.elements(inside)) {
            StartUpItem item;
            item.kind = StartUpKind::BackgroundItem;
            const PropertyValue bookmark = archive.in(element, "bookmark");
            item.programText = pathOfBookmark(archive.data(archive.in(bookmark, "data")));
            item.label = item.programText.substr(item.programText.rfind('/') + 1);
            item.hidden = archive.in(element, "hidden").boolean().value_or(false);
            item.when.emplace_back("at login");
            if (!addBounded(found, std::move(item)))
                return Done{};
        }
    }
    return Done{};
}

} // namespace

Result<ReadFacts<StartUpItem>> readBackgroundItems(std::string bytes)
{
    auto read = KeyedArchive::read(std::move(bytes));
    if (!read)
        return notUnderstood(read.error().message);
    KeyedArchive& archive = *read;
    ReadFacts<StartUpItem> found;
    std::int64_t version = archive.top("version").integer().value_or(0);
    PropertyValue oldItems;
    if (version == 0) {
        for (const auto& [key, value] : archive.entries(archive.top("root"))) {
            if (key == "version")
                version = value.integer().value_or(0);
            else if (key == "backgroundItems")
                oldItems = value;
        }
    }
    if (version < kOldest || version > kNewest)
        return notUnderstood("their version is " +
                             (version == 0 ? "missing" : std::to_string(version)));
    const PropertyValue store = archive.top("store");
    const PropertyValue userStore = archive.top("userStore");
    const auto done = oldItems    ? readContainers(archive, oldItems, found)
                      : store     ? readByUser(archive, store, found)
                      : userStore ? readOfOneUser(archive, userStore, found)
                                  : Result<Done>(notUnderstood("they hold no items"));
    if (!done)
        return done.error();
    if (archive.isExhausted() && found.problem.empty())
        found.problem = "its parts refer to each other too often; the rest was left out";
    return found;
}

} // namespace pryvane
