#include "inventory/facts/FactScan.h"

#include "formats/Account.h"
#include "inventory/facts/BackgroundItems.h"
#include "inventory/facts/LaunchJobs.h"
#include "inventory/facts/Permissions.h"
#include "inventory/facts/SourceFiles.h"
#include "inventory/facts/SystemFiles.h"
#include "inventory/facts/Whereabouts.h"

#include <algorithm>
#include <set>

namespace pryvane {

namespace {

constexpr std::size_t kMostBytes = std::size_t{128} * 1024 * 1024; ///< of all facts' texts

[[nodiscard]] std::string_view lastName(std::string_view path)
{
    return path.substr(path.rfind('/') + 1);
}

/// What one run gathers: reads the sources in order, then looks where the programs are.
class Gathering {
public:
    Gathering(FileSystem& disk, const std::vector<FactHome>& homes, const FactKinds& kinds,
              const StopFlag& stop)
        : m_disk(disk), m_homes(homes), m_kinds(kinds), m_stop(stop), m_files(disk, stop, m_facts),
          m_programs(disk)
    {
    }

    [[nodiscard]] Facts take()
    {
        for (const FactSource& source : factSources())
            if (isWanted(source) && !m_stop.requested())
                readSource(source);
        finishStartUp();
        finishPermissions();
        if (m_kinds.remoteAccess)
            addRemoteFacts();
        if (!m_kinds.startUp)
            m_facts.startUp.clear();
        return std::move(m_facts);
    }

private:
    using State = SourceNote::State;
    using Found = SourceFiles::Found;

    struct Switched {
        std::string source;
        std::string number; ///< of the account; empty: the whole Mac
        std::map<std::string, bool, std::less<>> disabled;
    };

    [[nodiscard]] bool isWanted(const FactSource& source) const
    {
        switch (source.kind) {
        case FactKind::Permissions:
            return m_kinds.permissions;
        case FactKind::StartUp:
            return m_kinds.startUp || m_kinds.remoteAccess; // tools for remote access start too
        case FactKind::RemoteAccess:
            return m_kinds.remoteAccess;
        }
        return false;
    }

    void readSource(const FactSource& source)
    {
        if (source.reader == FactReader::ApplicationNames && !m_hasIdentifiers)
            return;
        std::vector<Found> files;
        m_files.forEach(source, m_homes, [&](const Found& found) { files.push_back(found); });
        if (source.reader == FactReader::BackgroundItems)
            keepNewest(files);
        for (const Found& found : files) {
            if (m_stop.requested())
                return;
            if (source.reader == FactReader::Names || source.reader == FactReader::Switch)
                addName(source, found);
            else if (auto bytes = m_files.read(source, found.path))
                readFile(source, found, std::move(*bytes));
        }
    }

    /// Of "BackgroundItems-v8.btm" and "BackgroundItems-v13.btm" the system goes by the second.
    static void keepNewest(std::vector<Found>& files)
    {
        const auto version = [](const Found& found) {
            constexpr std::string_view kMark = "BackgroundItems-v";
            std::string_view name = lastName(found.path);
            unsigned long number = 0;
            if (name.starts_with(kMark))
                for (const char c : name.substr(kMark.size(), 9)) {
                    if (c < '0' || c > '9')
                        break;
                    number = number * 10 + static_cast<unsigned long>(c - '0');
                }
            return number;
        };
        unsigned long newest = 0;
        for (const Found& found : files)
            newest = std::max(newest, version(found));
        std::erase_if(files, [&](const Found& found) { return version(found) != newest; });
    }

    void readFile(const FactSource& source, const Found& found, std::string bytes)
    {
        switch (source.reader) {
        case FactReader::PermissionDatabase:
            noteJournals(source, found);
            return add(source, found, readPermissions(std::move(bytes)), m_facts.permissions);
        case FactReader::ApplicationNames:
            return addApplication(found, readApplicationNames(std::move(bytes)));
        case FactReader::Accounts:
            return addAccount(source, found, readAccount(std::move(bytes)));
        case FactReader::LaunchJob:
            return addJob(source, found, readLaunchJob(std::move(bytes)));
        case FactReader::DisabledJobs:
            return addSwitched(source, found, readDisabledJobs(std::move(bytes)));
        case FactReader::BackgroundItems:
            return add(source, found, readBackgroundItems(std::move(bytes)), m_facts.startUp);
        case FactReader::LoginItems:
            return add(source, found, readLoginItems(std::move(bytes)), m_facts.startUp);
        case FactReader::LoginHooks:
            return add(source, found, readLoginHooks(std::move(bytes)), m_facts.startUp);
        case FactReader::EventRules:
            return add(source, found, readEventRules(std::move(bytes)), m_facts.startUp);
        case FactReader::SystemExtensions:
            return add(source, found, readSystemExtensions(std::move(bytes)), m_facts.startUp);
        case FactReader::UserCrontab:
            return addCrontab(source, found, bytes);
        case FactReader::SystemCrontab:
            return add(source, found, readCrontab(bytes, Crontab::OfSystem), m_facts.startUp);
        case FactReader::AuthorisedKeys:
            return add(source, found, readAuthorisedKeys(bytes), m_facts.remoteAccess);
        case FactReader::Hosts:
            return add(source, found, readHosts(bytes), m_facts.remoteAccess);
        case FactReader::NetworkSettings:
            return add(source, found, readNetworkSettings(std::move(bytes)), m_facts.remoteAccess);
        case FactReader::RemoteManagement:
            return add(source, found, readRemoteManagement(std::move(bytes)), m_facts.remoteAccess);
        case FactReader::Names:
        case FactReader::Switch:
            return;
        }
    }

    /// Pages that wait beside a database are not read; nobody is told that all was.
    void noteJournals(const FactSource& source, const Found& found)
    {
        for (const char* suffix : {"-wal", "-journal"}) {
            const FileURL beside = FileURL::fileURLWithPath(found.path + suffix);
            if (m_disk.kind(beside) == FileKind::RegularFile && m_disk.allocatedSize(beside) > 0)
                m_files.note(source, found.path + suffix, State::NotRead,
                             "what was last written to the database and waits here is not read");
        }
    }

    template <typename Entry>
    void add(const FactSource& source, const Found& found, Result<ReadFacts<Entry>> read,
             std::vector<Entry>& list)
    {
        if (!read)
            return m_files.note(source, found.path, State::NotUnderstood, read.error().message);
        m_files.note(source, found.path, read->problem.empty() ? State::Read : State::Partly,
                     read->problem);
        for (Entry& entry : read->entries) {
            entry.origin.source = found.path;
            if (entry.origin.user.empty())
                entry.origin.user = found.user;
            push(list, std::move(entry));
        }
    }

    template <typename Entry>
    void push(std::vector<Entry>& list, Entry entry)
    {
        m_bytes += textBytes(entry);
        if (list.size() >= kMostFacts || m_bytes > kMostBytes) {
            m_facts.whole = false;
            return;
        }
        if constexpr (std::is_same_v<Entry, Permission>)
            m_hasIdentifiers = m_hasIdentifiers || !entry.clientIsPath;
        list.push_back(std::move(entry));
    }

    void addName(const FactSource& source, const Found& found)
    {
        const bool isSwitch = source.reader == FactReader::Switch;
        if (source.kind == FactKind::RemoteAccess) {
            RemoteFact fact;
            fact.origin = {found.path, found.user};
            fact.kind = source.remote;
            fact.what = source.what;
            if (isSwitch)
                fact.state = OnOff::On;
            fact.detail = isSwitch ? std::string() : boundedText(lastName(found.path));
            return push(m_facts.remoteAccess, std::move(fact));
        }
        StartUpItem item;
        item.origin = {found.path, found.user};
        item.kind = source.item;
        item.label = boundedText(lastName(found.path));
        item.programText = boundedText(found.path);
        item.application = applicationIn(source, found);
        push(m_facts.startUp, std::move(item));
    }

    [[nodiscard]] static std::string applicationIn(const FactSource& source, const Found& found)
    {
        const bool isInside =
            std::string_view(source.place).find(".app/") != std::string_view::npos;
        return isInside ? boundedText(applicationOf(found.path)) : std::string();
    }

    void addJob(const FactSource& source, const Found& found, Result<StartUpItem> read)
    {
        if (!read)
            return m_files.note(source, found.path, State::NotUnderstood, read.error().message);
        m_files.note(source, found.path, State::Read);
        StartUpItem& item = *read;
        item.origin = {found.path, found.user};
        item.kind = source.item;
        item.application = applicationIn(source, found);
        item.hidden = lastName(found.path).starts_with('.');
        push(m_facts.startUp, std::move(item));
    }

    void addCrontab(const FactSource& source, const Found& found, std::string_view text)
    {
        auto read = readCrontab(text, Crontab::OfUser);
        if (read)
            for (StartUpItem& item : read->entries)
                item.runsAs = item.origin.user = boundedText(lastName(found.path));
        add(source, found, std::move(read), m_facts.startUp);
    }

    void addApplication(const Found& found, const Result<ApplicationNames>& read)
    {
        if (!read || read->identifier.empty())
            return;
        const std::string_view bundle = applicationOf(found.path);
        std::string name = read->name;
        if (name.empty())
            name = lastName(bundle.substr(0, bundle.size() - 4));
        m_applications.try_emplace(read->identifier, std::string(bundle), std::move(name));
    }

    void addAccount(const FactSource& source, const Found& found, const Result<Account>& read)
    {
        if (!read)
            return m_files.note(source, found.path, State::NotUnderstood, read.error().message);
        m_accounts.push_back(*read);
    }

    void addSwitched(const FactSource& source, const Found& found,
                     Result<std::vector<std::pair<std::string, bool>>> read)
    {
        if (!read) {
            m_switchedOffUnknown = true;
            return m_files.note(source, found.path, State::NotUnderstood, read.error().message);
        }
        m_files.note(source, found.path, State::Read);
        constexpr std::string_view kBefore = "disabled.";
        constexpr std::string_view kAfter = ".plist";
        Switched switched;
        switched.source = found.path;
        const std::string_view name = lastName(found.path);
        if (name.starts_with(kBefore) && name.size() > kBefore.size() + kAfter.size())
            switched.number =
                name.substr(kBefore.size(), name.size() - kBefore.size() - kAfter.size());
        for (auto& [label, off] : *read)
            switched.disabled.insert_or_assign(std::move(label), off);
        m_switched.push_back(std::move(switched));
    }

    [[nodiscard]] std::string userOfNumber(const std::string& number) const
    {
        for (const Account& account : m_accounts)
            if (account.uid && std::to_string(*account.uid) == number)
                return account.name;
        return "account " + number;
    }

    /// The lists of switched jobs have the last word over what a job says of itself.
    void applySwitches(StartUpItem& item) const
    {
        if (item.kind != StartUpKind::LaunchAgent && item.kind != StartUpKind::LaunchDaemon)
            return;
        for (const Switched& switched : m_switched) {
            const auto found = switched.disabled.find(item.label);
            if (found == switched.disabled.end())
                continue;
            const OnOff state = found->second ? OnOff::Off : OnOff::On;
            const std::string user =
                switched.number.empty() ? std::string() : userOfNumber(switched.number);
            if (user == item.origin.user)
                item.state = state;
            else if (item.origin.user.empty() && item.kind == StartUpKind::LaunchAgent)
                item.when.push_back((found->second ? "switched off for " : "switched on for ") +
                                    user);
        }
        if (item.state == OnOff::NotKnown && !m_switchedOffUnknown)
            item.state = OnOff::On; // nothing switches it off
    }

    void finishStartUp()
    {
        for (StartUpItem& item : m_facts.startUp) {
            if (item.kind == StartUpKind::BackgroundItem)
                item.origin.user = userOfIdentifier(item.origin.user);
            applySwitches(item);
            std::string path = item.programText;
            if (!path.empty() && !path.starts_with('/') && item.application.starts_with('/'))
                path = item.application + "/" + path;
            item.program = m_programs.find(path);
            if (item.application.empty() && item.kind != StartUpKind::ShellFile)
                item.application = applicationOf(path);
        }
    }

    [[nodiscard]] std::string userOfIdentifier(const std::string& identifier) const
    {
        if (identifier == kSystemItems)
            return {};
        for (const Account& account : m_accounts)
            if (!identifier.empty() && account.generatedUid == identifier)
                return account.name;
        return identifier;
    }

    void finishPermissions()
    {
        for (Permission& permission : m_facts.permissions) {
            if (permission.clientIsPath) {
                permission.program = m_programs.find(permission.client);
                const std::string_view application = applicationOf(permission.client);
                permission.name = lastName(application.empty() ? permission.client : application);
                continue;
            }
            const auto known = m_applications.find(permission.client);
            if (known == m_applications.end())
                continue;
            permission.name = known->second.second;
            permission.program = m_programs.find(known->second.first);
        }
    }

    void addRemoteFacts()
    {
        for (const RemoteService& service : remoteServices()) {
            RemoteFact fact;
            fact.what = service.what;
            fact.state = OnOff::NotKnown;
            fact.detail = "the list of switched jobs does not say";
            for (const Switched& switched : m_switched) {
                const auto found = switched.disabled.find(service.label);
                if (!switched.number.empty() || found == switched.disabled.end())
                    continue;
                fact.origin.source = switched.source;
                fact.state = found->second ? OnOff::Off : OnOff::On;
                fact.detail.clear();
            }
            push(m_facts.remoteAccess, std::move(fact));
        }
        std::set<std::pair<std::string, std::string>> told;
        for (const StartUpItem& item : m_facts.startUp) {
            const std::string text = lowerAscii(item.label + "\n" + item.programText);
            for (const RemoteTool& tool : remoteTools()) {
                if (text.find(tool.mark) == std::string::npos ||
                    !told.emplace(tool.name, item.origin.source).second)
                    continue;
                RemoteFact fact;
                fact.origin = item.origin;
                fact.kind = RemoteKind::Tool;
                fact.what = std::string("Starts by itself: ") + tool.name;
                fact.state = item.state;
                fact.detail = item.label;
                push(m_facts.remoteAccess, std::move(fact));
            }
        }
    }

    FileSystem& m_disk;
    const std::vector<FactHome>& m_homes;
    const FactKinds m_kinds;
    const StopFlag& m_stop;
    Facts m_facts;
    SourceFiles m_files;
    ProgramFinder m_programs;
    std::map<std::string, std::pair<std::string, std::string>, std::less<>>
        m_applications; ///< by identifier: bundle, name
    std::vector<Account> m_accounts;
    std::vector<Switched> m_switched;
    bool m_switchedOffUnknown = false;
    bool m_hasIdentifiers = false;
    std::size_t m_bytes = 0;
};

} // namespace

std::vector<FactHome> factHomes(FileSystem& disk)
{
    constexpr const char* kRoots = "/private/var/root";
    std::vector<FactHome> homes;
    std::vector<std::string> names = disk.homes();
    std::sort(names.begin(), names.end());
    for (std::string& name : names) {
        std::string path = "/Users/" + name;
        homes.push_back({std::move(name), std::move(path)});
    }
    if (disk.exists(FileURL::fileURLWithPath(kRoots)))
        homes.push_back({"root", kRoots});
    return homes;
}

Facts gatherFacts(FileSystem& disk, const std::vector<FactHome>& homes, const FactKinds& kinds,
                  const StopFlag& stop)
{
    return Gathering(disk, homes, kinds, stop).take();
}

} // namespace pryvane
