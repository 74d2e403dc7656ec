#pragma once

#include "formats/Account.h"
#include "inventory/facts/Facts.h"
#include "inventory/facts/SystemFiles.h"
#include "inventory/facts/Whereabouts.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace pryvane {

/// What some files say that facts of other files only refer to: which application bears an
/// identifier, which account a number, and which jobs are switched off or on.
class FactReferences {
public:
    /// `path` is the property list inside the application.
    void addApplication(const std::string& path, const ApplicationNames& names);
    void addAccount(Account account) { m_accounts.push_back(std::move(account)); }
    /// `path` is the list; its name may bear an account's number.
    void addSwitchedJobs(const std::string& path,
                         const std::vector<std::pair<std::string, bool>>& jobs);
    /// A list of switched jobs could not be read: what it would have said is not known.
    void missSwitchedJobs() { m_missesSwitchedJobs = true; }

    /// Fills in what else is known of a fact, and looks whether its program is on the disk.
    void complete(StartUpItem& item, ProgramFinder& programs) const;
    void complete(Permission& permission, ProgramFinder& programs) const;

    /// Whether the system's services that let somebody in are switched on.
    [[nodiscard]] std::vector<RemoteFact> remoteServiceFacts() const;

private:
    struct SwitchedJobs {
        std::string source;
        std::string number; ///< of the account; empty: the whole Mac
        std::map<std::string, bool, std::less<>> disabled;
    };
    struct Application {
        std::string bundle;
        std::string name;
    };

    [[nodiscard]] std::string userOfNumber(const std::string& number) const;
    [[nodiscard]] std::string userOfIdentifier(const std::string& identifier) const;
    void applySwitches(StartUpItem& item) const;

    std::map<std::string, Application, std::less<>> m_applications; ///< by identifier
    std::vector<Account> m_accounts;
    std::vector<SwitchedJobs> m_switched;
    bool m_missesSwitchedJobs = false;
};

/// The last part of a path.
[[nodiscard]] std::string_view lastName(std::string_view path);

} // namespace pryvane
