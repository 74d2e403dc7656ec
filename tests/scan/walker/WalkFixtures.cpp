#include "scan/walker/WalkFixtures.h"

#include "signatures/Catalogue.h"

#include <algorithm>
#include <stdexcept>

namespace pryvane::test {

void RecordingWalk::match(std::string_view path, std::string_view name, const SeenEntry& seen)
{
    if (seen.sighting.inode == 0 || seen.sighting.kind != FileKind::RegularFile)
        throw std::logic_error("a match was not seen");
    if (!path.ends_with("/" + std::string(name)))
        throw std::logic_error("the name is not the path's last");
    note("match " + std::string(path));
}

void RecordingWalk::note(std::string event)
{
    events.push_back(std::move(event));
    if (onEvent)
        onEvent();
}

std::vector<std::string> RecordingWalk::only(std::string_view beginning) const
{
    std::vector<std::string> chosen;
    std::ranges::copy_if(events, std::back_inserter(chosen),
                         [&](const std::string& event) { return event.starts_with(beginning); });
    return chosen;
}

Walk::Walk(const WalkRoot& root, unsigned threads)
{
    FileCount(state, counting, {threads}).countNodes(root);
    outcome = scanDirectory(state, listedAutomaton(), scanning, {threads}).scan(root);
}

std::vector<std::string> Walk::only(std::string_view beginning) const
{
    std::vector<std::string> told = counting.only(beginning);
    std::ranges::copy(scanning.only(beginning), std::back_inserter(told));
    return told;
}

const std::vector<std::string>& listedTexts()
{
    static const std::vector<std::string> texts = catalogue::fullSyatemScanPath("alice");
    return texts;
}

const PatternAutomaton& listedAutomaton()
{
    static const PatternAutomaton automaton(listedTexts(), PatternAutomaton::Letters::Exact);
    return automaton;
}

namespace {

struct Listed {
    std::string name;
    bool isFolder;
};

std::vector<Listed> listed(const std::string& hostFolder)
{
    std::vector<Listed> entries;
    for (const auto& entry : std::filesystem::directory_iterator(hostFolder)) {
        const std::string name = entry.path().filename();
        const bool isFolder = !entry.is_symlink() && entry.is_directory();
        if (isFolder || (entry.symlink_status().type() == std::filesystem::file_type::regular &&
                         name[0] != '.'))
            entries.push_back({name, isFolder});
    }
    return entries;
}

void count(const std::string& host, Expected& expected)
{
    for (const Listed& entry : listed(host)) {
        if (entry.isFolder)
            count(host + "/" + entry.name, expected);
        ++expected.totalCount;
    }
}

void walkOne(Expected& expected)
{
    ++expected.walked;
    const std::int64_t step = std::max<std::int64_t>(expected.totalCount / 100, 1);
    if (++expected.totalScanCount > step) {
        expected.progress.push_back("progress " + std::to_string(expected.totalScanCount / step));
        expected.totalScanCount = 0;
    }
}

void scan(const std::string& host, const std::string& path, Expected& expected)
{
    const std::vector<Listed> entries = listed(host);
    if (entries.empty())
        walkOne(expected);
    for (const Listed& entry : entries) {
        const std::string below = path + entry.name;
        walkOne(expected);
        if (entry.isFolder)
            scan(host + "/" + entry.name, below + "/", expected);
        else if (std::ranges::any_of(listedTexts(), [&](const std::string& text) {
                     return below.find(text) != std::string::npos;
                 }))
            expected.matches.push_back("match " + below);
    }
}

} // namespace

Expected expectedWalk(const std::string& hostFolder, const std::string& path)
{
    Expected expected;
    count(hostFolder, expected);
    scan(hostFolder, path, expected);
    return expected;
}

} // namespace pryvane::test
