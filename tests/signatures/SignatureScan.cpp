#include "SignatureScan.h"

#include "signatures/Catalogue.h"

#include <ostream>

namespace pryvane::test {

std::unique_ptr<FileSystem> opened(const TemporaryFolder& volume, NameMatching matching)
{
    auto disk = VolumeFileSystem::open(volume.path(), {.nameMatching = matching});
    return std::move(disk).value();
}

std::ostream& operator<<(std::ostream& out, const Finding& finding)
{
    return out << finding.location << " (" << finding.family << ")";
}

void RecordingSink::addIfAvail(const FileURL& url, std::string_view name, std::string_view type,
                               std::string_view risk, std::int64_t size)
{
    calls.push_back({url, std::string(name), std::string(type), std::string(risk), size});
}

void RecordingSink::append(const FileURL& url, std::string_view name, std::string_view type,
                           std::string_view risk, std::int64_t size)
{
    calls.push_back({url, std::string(name), std::string(type), std::string(risk), size, true});
}

std::vector<Finding> RecordingSink::findings() const
{
    std::set<Finding> found;
    for (const Call& call : calls) {
        if (call.appended || m_disk.exists(call.url))
            found.insert({call.url.absolutePath(), call.type});
    }
    return {found.begin(), found.end()};
}

std::vector<std::string> RecordingSink::paths() const
{
    std::vector<std::string> paths;
    for (const Call& call : calls)
        paths.push_back(call.url.relativePath());
    return paths;
}

namespace {
bool goOn(std::string_view, std::chrono::milliseconds)
{
    return true;
}
} // namespace

void SignatureScan::run()
{
    runner.prepareForScan();
    for (const SequenceRow& row : catalogue::sequence())
        for (const std::string_view method : row.methods)
            runner.run(method, goOn);
}

void SignatureScan::run(std::string_view method)
{
    runner.prepareForScan();
    runner.run(method, goOn);
}

} // namespace pryvane::test
