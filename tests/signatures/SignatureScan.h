#pragma once

#include "findings/ScanCoverage.h"
#include "platform/FileSystem.h"
#include "signatures/CheckRunner.h"
#include "store/MemoryUserDefaults.h"
#include "support/TemporaryFolder.h"
#include "volume/VolumeFileSystem.h"

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pryvane::test {

inline constexpr std::string_view kUser = "alice";

/// The folder as a volume, its names compared as they are unless told otherwise.
[[nodiscard]] std::unique_ptr<FileSystem> opened(const TemporaryFolder& volume,
                                                 NameMatching matching = NameMatching::Exact);

/// What a check handed over. The location is the absolute form of the path.
struct Finding {
    std::string location;
    std::string family;
    friend auto operator<=>(const Finding&, const Finding&) = default;
};

std::ostream& operator<<(std::ostream& out, const Finding& finding);

/// Keeps every call.
class RecordingSink final : public FindingSink {
public:
    struct Call {
        FileURL url;
        std::string name;
        std::string type;
        std::string risk;
        std::int64_t size = 0;
        bool appended = false; ///< handed over without the result list's tests
    };

    explicit RecordingSink(FileSystem& disk) : m_disk(disk) {}

    void addIfAvail(const FileURL& url, std::string_view name, std::string_view type,
                    std::string_view risk, std::int64_t size) override;
    void append(const FileURL& url, std::string_view name, std::string_view type,
                std::string_view risk, std::int64_t size) override;

    std::vector<Call> calls;

    /// All calls for locations that exist, repetitions dropped, sorted.
    [[nodiscard]] std::vector<Finding> findings() const;
    [[nodiscard]] std::vector<std::string> paths() const;

private:
    FileSystem& m_disk;
};

/// One scan's worth of signatures over a disk, without a session.
struct SignatureScan {
    explicit SignatureScan(FileSystem& disk, std::string_view user = kUser)
        : sink(disk), runner(disk, defaults, {std::string(user)}, sink, coverage)
    {
    }

    /// The whole sequence.
    void run();
    /// A snapshot and one check.
    void run(std::string_view method);

    MemoryUserDefaults defaults;
    ScanCoverage coverage;
    RecordingSink sink;
    CheckRunner runner;
};

} // namespace pryvane::test
