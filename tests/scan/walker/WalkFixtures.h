#pragma once

#include "findings/ScanState.h"
#include "scan/walker/DeepWalk.h"
#include "signatures/PatternAutomaton.h"
#include "support/Volumes.h"

#include <fcntl.h>
#include <functional>
#include <string>
#include <vector>

namespace pryvane::test {

/// Keeps what a walk tells, one text an event: "at PATH", "match PATH", "progress N", "counted N",
/// "refused PATH: REASON", "other PATH".
class RecordingWalk final : public WalkObserver {
public:
    explicit RecordingWalk(bool samples = false) : m_samples(samples) {}

    std::vector<std::string> events;
    std::function<void()> onEvent; ///< called behind each

    [[nodiscard]] bool wantsLocations() const override { return m_samples; }
    void counting(std::int64_t count) override { note("counted " + std::to_string(count)); }
    void location(std::string_view path) override { note("at " + std::string(path)); }
    void progress(std::int64_t steps) override { note("progress " + std::to_string(steps)); }
    void match(std::string_view path, std::string_view name, const SeenEntry& seen) override;
    void refused(std::string_view path, std::string_view reason) override
    {
        note("refused " + std::string(path) + ": " + std::string(reason));
    }

    void otherDisk(std::string_view path) override { note("other " + std::string(path)); }

    /// Those that begin with the text.
    [[nodiscard]] std::vector<std::string> only(std::string_view beginning) const;

private:
    void note(std::string event);
    const bool m_samples;
};

/// A root on a folder of the host, closed at its end.
struct OpenRoot {
    OpenRoot(const std::string& hostFolder, std::string path)
        : folder(open(hostFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)), root{
                                                                                    folder.get(),
                                                                                    std::move(path)}
    {
    }
    operator const WalkRoot&() const { return root; }
    UniqueFd folder;
    WalkRoot root;
};

inline constexpr const char* kAlice = "/Users/alice/";

/// Both passes over a folder, by default one of the host that stands for a home.
struct Walk {
    explicit Walk(const WalkRoot& root, unsigned threads = 8);
    explicit Walk(const std::string& hostFolder, unsigned threads = 8,
                  const std::string& path = kAlice)
        : Walk(OpenRoot(hostFolder, path), threads)
    {
    }
    /// What either pass told that begins with the text.
    [[nodiscard]] std::vector<std::string> only(std::string_view beginning) const;

    ScanState state;
    RecordingWalk counting, scanning;
    WalkOutcome outcome;
};

/// The full-system list of alice.
[[nodiscard]] const std::vector<std::string>& listedTexts();
[[nodiscard]] const PatternAutomaton& listedAutomaton();

/// What a walk must tell and count, by the plainest of programs: recursion, whole lists, one
/// substring search after the other.
struct Expected {
    std::vector<std::string> matches, progress; ///< each in order
    std::int64_t totalCount = 0;
    std::int64_t totalScanCount = 0; ///< left at the end
    std::int64_t walked = 0;
};
[[nodiscard]] Expected expectedWalk(const std::string& hostFolder, const std::string& path);

} // namespace pryvane::test
