#include "inventory/facts/FactReferences.h"

#include "inventory/facts/BackgroundItems.h"
#include "inventory/facts/Sources.h"

namespace pryvane {

std::string_view lastName(std::string_view path)
{
    return path.substr(path.rfind('/') + 1);
}

void FactReferences::addApplication(const std::string& path, const ApplicationNames& names)
{
    const std::string_view bundle = applicationOf(path);
    std::string name = names.name;
    if (name.empty())
        name = lastName(bundle.substr(0, bundle.size() - std::string_view(".app").size()));
    m_applications.try_emplace(names.identifier, Application{std::string(bundle), std::move(name)});
}

void FactReferences::addSwitchedJobs(const std::string& path,
                                     const std::vector<std::pair<std::string, bool>>& jobs)
{
    constexpr std::string_view kBefore = "disabled.";
    constexpr std::string_view kAfter = ".plist";
    SwitchedJobs switched;
    switched.source = path;
    const std::string_view name = lastName(path);
    if (name.starts_with(kBefore) && name.size() > kBefore.size() + kAfter.size())
        switched.number = name.substr(kBefore.size(), name.size() - kBefore.size() - kAfter.size());
    for (const auto& [label, off] : jobs)
        switched.disabled.insert_or_assign(label, off);
    m_switched.push_back(std::move(switched));
}

std::string FactReferences::userOfNumber(const std::string& number) const
{
    for (const Account& account : m_accounts)
        if (account.uid && std::to_string(*account.uid) == number)
            return account.name;
    return "account " + number;
}

std::string FactReferences::userOfIdentifier(const std::string& identifier) const
{
    if (identifier == kSystemItems)
        return {};
    for (const Account& account : m_accounts)
        if (!identifier.empty() && account.generatedUid == identifier)
            return account.name;
    return identifier;
}

/// The lists of switched jobs have the last word over what a job says of itself.
void FactReferences::applySwitches(StartUpItem& item) const
{
    if (item.kind != StartUpKind::LaunchAgent && item.kind != StartUpKind::LaunchDaemon)
        return;
    for (const SwitchedJobs& switched : m_switched) {
        const auto found = switched.disabled.find(item.label);
        if (found == switched.disabled.end())
            continue;
        const std::string user =
            switched.number.empty() ? std::string() : userOfNumber(switched.number);
        if (user == item.origin.user)
            item.state = found->second ? OnOff::Off : OnOff::On;
        else if (item.origin.user.empty() && item.kind == StartUpKind::LaunchAgent)
            item.when.push_back((found->second ? "switched off for " : "switched on for ") + user);
    }
    if (item.state == OnOff::NotKnown && !m_missesSwitchedJobs)
        item.state = OnOff::On; // nothing switches it off
}

void FactReferences::complete(StartUpItem& item, ProgramFinder& programs) const
{
    if (item.kind == StartUpKind::BackgroundItem)
        item.origin.user = userOfIdentifier(item.origin.user);
    applySwitches(item);
    std::string path = item.programText;
    if (!path.empty() && !path.starts_with('/') && item.application.starts_with('/'))
        path = item.application + "/" + path;
    item.program = programs.find(path);
    if (item.application.empty() && item.kind != StartUpKind::ShellFile)
        item.application = applicationOf(path);
}

void FactReferences::complete(Permission& permission, ProgramFinder& programs) const
{
    if (permission.clientIsPath) {
        permission.program = programs.find(permission.client);
        const std::string_view application = applicationOf(permission.client);
        permission.name = lastName(application.empty() ? permission.client : application);
        return;
    }
    const auto known = m_applications.find(permission.client);
    if (known == m_applications.end())
        return;
    permission.name = known->second.name;
    permission.program = programs.find(known->second.bundle);
}

std::vector<RemoteFact> FactReferences::remoteServiceFacts() const
{
    std::vector<RemoteFact> facts;
    for (const RemoteService& service : remoteServices()) {
        RemoteFact fact;
        fact.what = service.what;
        fact.state = OnOff::NotKnown;
        fact.detail = "the disk does not say";
        for (const SwitchedJobs& switched : m_switched) {
            const auto found = switched.disabled.find(service.label);
            if (!switched.number.empty() || found == switched.disabled.end())
                continue;
            fact.origin.source = switched.source;
            fact.state = found->second ? OnOff::Off : OnOff::On;
            fact.detail.clear();
        }
        facts.push_back(std::move(fact));
    }
    return facts;
}

} // namespace pryvane
