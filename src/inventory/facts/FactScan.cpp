#include "inventory/facts/FactScan.h"

#include "findings/Homes.h"
#include "inventory/facts/BackgroundItems.h"
#include "inventory/facts/FactReferences.h"
#include "inventory/facts/LaunchJobs.h"
#include "inventory/facts/Permissions.h"
#include "inventory/facts/SourceFiles.h"
#include "inventory/facts/SystemFiles.h"

#include <algorithm>
#include <set>

namespace pryvane {

namespace {

constexpr std::size_t kMostBytes = std::size_t{128} * 1024 * 1024; ///< of all facts' texts

/// An account of which only the folder that the system keeps for it is known: the name that stands
/// for the "*" of the source's place.
std::string unnamedAccount(std::string_view place, std::string_view path)
{
    const std::size_t name = place.substr(0, place.find('*')).rfind('/') + 1;
    const std::string_view folder = path.substr(name, path.find('/', name) - name);
    return "account not known (" + boundedText(folder) + ")";
}

/// What one run gathers: reads the sources in order, then looks where the programs are.
class Gathering {
public:
    Gathering(FileSystem& disk, const FactHomes& homes, const FactKinds& kinds,
              const StopFlag& stop)
        : m_disk(disk), m_homes(homes), m_kinds(kinds), m_stop(stop), m_files(disk, stop, m_facts)
    {
    }

    [[nodiscard]] Facts take()
    {
        noteHomes();
        for (const FactSource& source : factSources())
            if (isWanted(source) && !m_stop.requested())
                readSource(source);
        ProgramFinder programs(m_disk);
        for (StartUpItem& item : m_facts.startUp)
            m_references.complete(item, programs);
        for (Permission& permission : m_facts.permissions)
            m_references.complete(permission, programs);
        if (m_kinds.remoteAccess)
            addRemoteFacts();
        if (!m_kinds.startUp)
            m_facts.startUp.clear();
        return std::move(m_facts);
    }

private:
    using State = SourceNote::State;
    using Found = SourceFiles::Found;

    /// What hides homes hides what is in them, whatever was asked for.
    void noteHomes()
    {
        const std::pair<bool, FactKind> wanted[] = {{m_kinds.permissions, FactKind::Permissions},
                                                    {m_kinds.startUp, FactKind::StartUp},
                                                    {m_kinds.remoteAccess, FactKind::RemoteAccess}};
        for (const auto& [isWanted, kind] : wanted)
            for (const Refusal& refusal : m_homes.refused)
                if (isWanted)
                    m_facts.sources.push_back({refusal.path, kind, State::NotRead, refusal.reason});
    }

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
        m_files.forEach(source, m_homes.homes, [&](const Found& found) { files.push_back(found); });
        if (source.reader == FactReader::BackgroundItems)
            keepNewest(files);
        for (Found& found : files) {
            if (m_stop.requested())
                return;
            if (source.isOfSomeAccount)
                found.user = unnamedAccount(source.place, found.path);
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
            return addSwitchedJobs(source, found, readDisabledJobs(std::move(bytes)));
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

    void addAccount(const FactSource& source, const Found& found, Result<Account> read)
    {
        if (!read)
            return m_files.note(source, found.path, State::NotUnderstood, read.error().message);
        m_references.addAccount(std::move(read).value());
    }

    void addSwitchedJobs(const FactSource& source, const Found& found,
                         const Result<std::vector<std::pair<std::string, bool>>>& read)
    {
        if (!read) {
            m_references.missSwitchedJobs();
            return m_files.note(source, found.path, State::NotUnderstood, read.error().message);
        }
        m_files.note(source, found.path, State::Read);
        m_references.addSwitchedJobs(found.path, *read);
    }

    void addApplication(const Found& found, const Result<ApplicationNames>& read)
    {
        if (read && !read->identifier.empty())
            m_references.addApplication(found.path, *read);
    }

    void addRemoteFacts()
    {
        for (RemoteFact& fact : m_references.remoteServiceFacts())
            push(m_facts.remoteAccess, std::move(fact));
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
    const FactHomes& m_homes;
    const FactKinds m_kinds;
    const StopFlag& m_stop;
    Facts m_facts;
    SourceFiles m_files;
    FactReferences m_references;
    bool m_hasIdentifiers = false;
    std::size_t m_bytes = 0;
};

} // namespace

FactHomes factHomes(FileSystem& disk, const UserChoice& whose)
{
    constexpr const char* kRoots = "/private/var/root";
    Homes settled = settledHomes(disk, whose);
    FactHomes homes{{}, std::move(settled.refused)};
    for (const std::string& user : settled.users)
        homes.homes.push_back({user, homePath(user)});
    if (whose.isEveryone() && disk.exists(FileURL::fileURLWithPath(kRoots)))
        homes.homes.push_back({"root", kRoots});
    return homes;
}

Facts gatherFacts(FileSystem& disk, const FactHomes& homes, const FactKinds& kinds,
                  const StopFlag& stop)
{
    return Gathering(disk, homes, kinds, stop).take();
}

} // namespace pryvane
