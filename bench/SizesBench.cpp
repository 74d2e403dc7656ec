// Measures one folder the way the privacy tools do, and prints its bytes: to be raced by bench/run.
#include "volume/VolumeFileSystem.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    using namespace pryvane;
    if (argc < 3)
        return EXIT_FAILURE;
    auto volume = VolumeFileSystem::open(argv[1]);
    if (!volume)
        return EXIT_FAILURE;
    const FileURL folder = FileURL::fileURLWithPath(argv[2]);
    const unsigned threads = argc > 3 ? static_cast<unsigned>(std::atoi(argv[3])) : 0;
    const StopFlag never;
    SizeProgress progress;
    auto meter = threads ? VolumeSizeMeter(**volume, threads) : VolumeSizeMeter(**volume);
    meter.measure({&folder, 1}, never, progress, [&](std::size_t, std::int64_t bytes) {
        std::printf("%lld bytes in %llu entries\n", static_cast<long long>(bytes),
                    static_cast<unsigned long long>(progress.entries.load()));
    });
    return EXIT_SUCCESS;
}
