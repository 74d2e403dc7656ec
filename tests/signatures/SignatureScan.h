#pragma once

#include "findings/ScanCoverage.h"
#include "platform/FileSystem.h"
#include "signatures/Catalogue.h"
#include "signatures/CheckRunner.h"
#include "store/MemoryUserDefaults.h"
#include "support/Volumes.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane::test {

inline constexpr std::string_view kUser = "alice";

/// What a check handed over: the absolute form of the path, and the family.
using Finding = std::pair<std::string, std::string>;

/// Keeps every call.
class RecordingSink final : public FindingSink {
public:
    struct Call {
        FileURL url;
        std::string family;
        std::int64_t size = 0;
        bool appended = false; ///< handed over without the result list's tests
    };

    explicit RecordingSink(FileSystem& disk) : m_disk(disk) {}

    void addIfAvail(const FileURL& url, std::string_view, std::string_view type, std::string_view,
                    std::int64_t size) override
    {
        calls.push_back({url, std::string(type), size});
    }
    void append(const FileURL& url, std::string_view, std::string_view type, std::string_view,
                std::int64_t size) override
    {
        calls.push_back({url, std::string(type), size, true});
    }

    /// All calls for locations that exist.
    [[nodiscard]] std::set<Finding> findings() const
    {
        std::set<Finding> found;
        for (const Call& call : calls) {
            if (call.appended || m_disk.exists(call.url))
                found.insert({call.url.absolutePath(), call.family});
        }
        return found;
    }
    [[nodiscard]] std::vector<std::string> paths() const
    {
        std::vector<std::string> paths;
        for (const Call& call : calls)
            paths.push_back(call.url.relativePath());
        return paths;
    }

    std::vector<Call> calls;

private:
    FileSystem& m_disk;
};

/// One scan's worth of signatures over a disk, without a session.
struct SignatureScan {
    explicit SignatureScan(FileSystem& disk)
        : sink(disk), runner(disk, defaults, {std::string(kUser)}, sink, coverage)
    {
    }

    /// A snapshot, and that check or the whole sequence.
    void run(std::string_view only = {})
    {
        runner.prepareForScan();
        for (const SequenceRow& row : catalogue::sequence()) {
            for (const std::string_view method : row.methods) {
                if (only.empty() || method == only)
                    runner.run(method, [](auto, auto) { return true; });
            }
        }
    }

    MemoryUserDefaults defaults;
    ScanCoverage coverage;
    RecordingSink sink;
    CheckRunner runner;
};

} // namespace pryvane::test
