#include "findings/Homes.h"

#include "formats/Account.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>

namespace pryvane {

namespace {

constexpr std::string_view kAccounts = "/private/var/db/dslocal/nodes/Default/users";
constexpr std::size_t kMostBytes = std::size_t{64} << 20;      ///< of all accounts
constexpr std::size_t kLongestAccount = std::size_t{16} << 20; ///< it may hold a picture
constexpr std::size_t kMostAccounts = 10'000;

/// Which folder stands behind a path, links followed.
std::optional<FileIdentity> folderAt(FileSystem& disk, const std::string& path)
{
    return disk.fileIdentity(FileURL::fileURLWithPath(path + "/."));
}

/// How a home at that real path is named.
std::string userAt(const std::string& path)
{
    constexpr std::string_view kUsers = "/Users/";
    const bool inUsers = path.starts_with(kUsers) && path.find('/', kUsers.size()) == path.npos;
    return inUsers ? path.substr(kUsers.size()) : path;
}

/// The users of a disk, each home once.
class UserList {
public:
    explicit UserList(FileSystem& disk) : m_disk(disk) {}

    void gather()
    {
        const FolderListing users = m_disk.list(FileURL::fileURLWithPath("/Users"));
        noteRefusal("/Users", users);
        for (const FolderEntry& entry : users.entries) {
            if (entry.kind == FileKind::Folder && entry.name != "Shared" &&
                !entry.name.starts_with('.'))
                add(entry.name);
        }
        addAccounts();
        std::ranges::sort(m_users);
    }

    [[nodiscard]] std::vector<std::string>& users() { return m_users; }
    [[nodiscard]] std::vector<Refusal>& refused() { return m_refused; }

    /// The home that an account of that short name has elsewhere, or none.
    [[nodiscard]] std::optional<std::string> elsewhere(const std::string& name) const
    {
        const auto found = std::ranges::find(m_accounts, name, &Named::name);
        return found == m_accounts.end() ? std::nullopt : std::optional(found->user);
    }

private:
    struct Named {
        std::string name;
        std::string user;
    };

    void noteRefusal(std::string_view folder, const FolderListing& listing)
    {
        if (listing.status == ListStatus::Refused)
            m_refused.push_back({std::string(folder), listing.reason});
    }

    /// False for a home that is known by another path.
    bool add(const std::string& user)
    {
        const auto identity = folderAt(m_disk, homePath(user));
        if (identity && !m_folders.insert(*identity).second)
            return false;
        m_users.push_back(user);
        return true;
    }

    void addAccounts()
    {
        const FolderListing files = m_disk.list(FileURL::fileURLWithPath(kAccounts));
        noteRefusal(kAccounts, files);
        std::size_t bytes = 0, count = 0;
        for (const FolderEntry& entry : files.entries) {
            // The system's own, of which there are a hundred, begin with an underscore.
            if (!entry.name.ends_with(".plist") || entry.name.starts_with('_'))
                continue;
            if (++count > kMostAccounts || bytes > kMostBytes) {
                m_refused.push_back({std::string(kAccounts), "there are more accounts than any Mac "
                                                             "has, and not all were read"});
                return;
            }
            const auto url = FileURL::fileURLWithPath(joinedPath(kAccounts, entry.name));
            auto content = m_disk.readSmallFile(url, kLongestAccount);
            const std::size_t length = content ? content->size() : 0;
            const auto account = content ? readAccount(std::move(content).value())
                                         : Result<Account>(content.error());
            bytes += length;
            if (!account)
                m_refused.push_back({url.relativePath(), account.error().message});
            else if (account->isPersons())
                addHome(*account);
        }
    }

    void addHome(const Account& account)
    {
        const std::string& home = account.home;
        if (!home.starts_with('/') || home.find('\0') != home.npos ||
            !m_disk.exists(FileURL::fileURLWithPath(home + "/")))
            return;
        const std::string place = m_disk.placeBehindLinks(FileURL::fileURLWithPath(home));
        if (place.empty() || place == "/" || place == "/private/var/empty")
            return;
        const std::string user = userAt(place);
        if (add(user) && user != account.name)
            m_accounts.push_back({account.name, user});
    }

    FileSystem& m_disk;
    std::vector<std::string> m_users;
    std::vector<Named> m_accounts; ///< whose home has another name
    std::vector<Refusal> m_refused;
    std::set<FileIdentity> m_folders;
};

} // namespace

Homes settledHomes(FileSystem& disk, const UserChoice& whose)
{
    UserList all(disk);
    all.gather();
    Homes homes;
    if (whose.isEveryone()) {
        homes.users = std::move(all.users());
        homes.refused = std::move(all.refused());
        if (homes.users.empty() && homes.refused.empty())
            homes.missing.emplace_back("/Users");
        return homes;
    }
    std::set<FileIdentity> asked;
    for (const std::string& name : whose.users()) {
        std::string user = name;
        const auto home = FileURL::fileURLWithPath(homePath(user) + "/");
        if (disk.presence(home) == Presence::Absent) {
            if (const auto elsewhere = all.elsewhere(name))
                user = *elsewhere;
            else
                homes.missing.push_back(homePath(name));
        }
        if (std::ranges::find(homes.users, user) == homes.users.end())
            homes.users.push_back(user);
        if (const auto identity = folderAt(disk, homePath(user)))
            asked.insert(*identity);
    }
    std::ranges::sort(homes.users);
    // In another spelling it is still the same home.
    std::ranges::copy_if(all.users(), std::back_inserter(homes.leftOut),
                         [&](const std::string& user) {
                             const auto identity = folderAt(disk, homePath(user));
                             return std::ranges::find(homes.users, user) == homes.users.end() &&
                                    !(identity && asked.contains(*identity));
                         });
    return homes;
}

void Homes::note(ScanCoverage& coverage) const
{
    coverage.homesLeftOut = leftOut;
    coverage.refused.insert(coverage.refused.end(), refused.begin(), refused.end());
    if (missing.empty())
        return;
    coverage.missingHome = missing.front();
    coverage.homes = leftOut;
    for (std::size_t i = 1; i < missing.size(); ++i)
        coverage.refused.push_back({missing[i], "there is no such home"});
}

std::string_view userOf(std::string_view path, const std::vector<std::string>& users)
{
    constexpr std::string_view kUsers = "/Users/";
    if (path.starts_with(kUsers)) {
        const std::string_view name =
            path.substr(kUsers.size(), path.find('/', kUsers.size()) - kUsers.size());
        const auto found = std::ranges::lower_bound(users, name, std::less<>());
        if (found != users.end() && *found == name)
            return *found;
    }
    // Few homes lie elsewhere, and their paths stand together.
    for (auto user = std::ranges::lower_bound(users, std::string_view("/"), std::less<>());
         user != users.end() && user->starts_with('/'); ++user) {
        if (path.starts_with(*user) && (path.size() == user->size() || path[user->size()] == '/'))
            return *user;
    }
    return {};
}

} // namespace pryvane
