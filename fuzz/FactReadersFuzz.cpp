// Files around what starts and who may come in, from disks that anybody may have written: no bytes
// may crash their readers, follow a circle, or make more of themselves than is promised. Every
// reader gets the same bytes, as a keyed archive may lie where a job should.

#include "formats/Account.h"
#include "inventory/facts/BackgroundItems.h"
#include "inventory/facts/Bookmarks.h"
#include "inventory/facts/LaunchJobs.h"
#include "inventory/facts/SystemFiles.h"
#include "inventory/facts/Whereabouts.h"

#include <cstdlib>

namespace {

using namespace pryvane;

constexpr std::size_t kMostText = kLongestFactText + 3;

void require(bool condition)
{
    if (!condition)
        std::abort();
}

void look(const StartUpItem& item)
{
    require(item.label.size() <= kMostText && item.developer.size() <= kMostText);
    require(item.arguments.size() <= kMostFactParts + 1 && item.when.size() <= kMostFactParts + 1);
    for (const std::string& argument : item.arguments)
        require(argument.size() <= kMostText);
    static_cast<void>(placeOf(item.programText));
    require(applicationOf(item.programText).size() <= item.programText.size());
}

void look(const RemoteFact& fact)
{
    require(!fact.what.empty());
}

template <typename Entry>
void look(const Result<ReadFacts<Entry>>& read)
{
    if (!read) {
        require(!read.error().message.empty());
        return;
    }
    require(read->entries.size() <= kMostFactsOfASource);
    for (const Entry& entry : read->entries)
        look(entry);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    look(readBackgroundItems(bytes));
    if (const auto job = readLaunchJob(bytes))
        look(*job);
    static_cast<void>(readDisabledJobs(bytes));
    look(readLoginItems(bytes));
    look(readLoginHooks(bytes));
    look(readEventRules(bytes));
    look(readSystemExtensions(bytes));
    look(readCrontab(bytes, Crontab::OfUser));
    look(readCrontab(bytes, Crontab::OfSystem));
    look(readAuthorisedKeys(bytes));
    look(readHosts(bytes));
    look(readNetworkSettings(bytes));
    look(readRemoteManagement(bytes));
    static_cast<void>(readAccount(bytes));
    static_cast<void>(readApplicationNames(bytes));
    require(pathOfBookmark(bytes).size() <= kMostText);
    static_cast<void>(pathOfAlias(bytes));
    return 0;
}
