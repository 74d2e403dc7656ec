// Files around what starts and who may come in, from disks that anybody may have written: no bytes
// may crash their readers, follow a circle, or make more of themselves than is promised. Every
// reader gets the same bytes, as a keyed archive may lie where a job should; PRYVANE_FUZZ_READER
// names the one that alone is to get them.

#include "formats/Account.h"
#include "inventory/facts/BackgroundItems.h"
#include "inventory/facts/Bookmarks.h"
#include "inventory/facts/LaunchJobs.h"
#include "inventory/facts/SystemFiles.h"
#include "inventory/facts/Whereabouts.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

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

struct Reader {
    std::string_view name;
    void (*read)(const std::string& bytes);
};

constexpr Reader kReaders[] = {
    {"background-items", [](const std::string& bytes) { look(readBackgroundItems(bytes)); }},
    {"launch-job",
     [](const std::string& bytes) {
         if (const auto job = readLaunchJob(bytes))
             look(*job);
     }},
    {"disabled-jobs", [](const std::string& bytes) { static_cast<void>(readDisabledJobs(bytes)); }},
    {"login-items", [](const std::string& bytes) { look(readLoginItems(bytes)); }},
    {"login-hooks", [](const std::string& bytes) { look(readLoginHooks(bytes)); }},
    {"event-rules", [](const std::string& bytes) { look(readEventRules(bytes)); }},
    {"system-extensions", [](const std::string& bytes) { look(readSystemExtensions(bytes)); }},
    {"crontab-of-user",
     [](const std::string& bytes) { look(readCrontab(bytes, Crontab::OfUser)); }},
    {"crontab-of-system",
     [](const std::string& bytes) { look(readCrontab(bytes, Crontab::OfSystem)); }},
    {"authorised-keys", [](const std::string& bytes) { look(readAuthorisedKeys(bytes)); }},
    {"hosts", [](const std::string& bytes) { look(readHosts(bytes)); }},
    {"network-settings", [](const std::string& bytes) { look(readNetworkSettings(bytes)); }},
    {"remote-management", [](const std::string& bytes) { look(readRemoteManagement(bytes)); }},
    {"account", [](const std::string& bytes) { static_cast<void>(readAccount(bytes)); }},
    {"application-names",
     [](const std::string& bytes) { static_cast<void>(readApplicationNames(bytes)); }},
    {"bookmark",
     [](const std::string& bytes) { require(pathOfBookmark(bytes).size() <= kMostText); }},
    {"alias", [](const std::string& bytes) { static_cast<void>(pathOfAlias(bytes)); }},
};

std::string_view readerAsked()
{
    const char* name = std::getenv("PRYVANE_FUZZ_READER");
    if (name == nullptr)
        return {};
    for (const Reader& reader : kReaders) {
        if (reader.name == name)
            return reader.name;
    }
    std::fprintf(stderr, "no reader is called \"%s\"; there are:\n", name);
    for (const Reader& reader : kReaders)
        std::fprintf(stderr, "%s\n", reader.name.data());
    std::exit(1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::string_view asked = readerAsked();
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    for (const Reader& reader : kReaders) {
        if (asked.empty() || asked == reader.name)
            reader.read(bytes);
    }
    return 0;
}
