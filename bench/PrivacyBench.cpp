// Finds and measures what the privacy tools can clear of alice's, and prints how long the first
// group and all of them took: to be raced by bench/run.
//   privacy_bench VOLUME
#include "privacy/PrivacyScan.h"
#include "volume/VolumeFileSystem.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>

int main(int argc, char** argv)
{
    using namespace pryvane;
    if (argc != 2)
        return EXIT_FAILURE;
    auto volume = VolumeFileSystem::open(argv[1]);
    if (!volume)
        return EXIT_FAILURE;
    VolumeSizeMeter meter(**volume);
    const StopFlag never;
    PrivacyProgress progress;
    const auto start = std::chrono::steady_clock::now();
    const auto passed = [&] {
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
            .count();
    };
    // Of all threads: what other work on the machine does not change.
    const auto worked = [] { return static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC; };
    double first = 0, firstWork = 0;
    std::size_t groups = 0;
    long long bytes = 0;
    scanPrivacy({**volume, meter}, "alice", never, progress, [&](const ToolGroup& group) {
        if (groups++ == 0)
            first = passed(), firstWork = worked();
        for (const ToolItem& item : group.List)
            bytes += item.bytes;
    });
    std::printf("first %.1f ms (processor %.1f ms), all %.1f ms, %zu groups, %lld bytes in %llu "
                "entries\n",
                first, firstWork, passed(), groups, bytes,
                static_cast<unsigned long long>(progress.sizes.entries.load()));
    return EXIT_SUCCESS;
}
