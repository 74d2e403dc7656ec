// index_bench IMAGE-READER IMAGE: what the index of an image's names takes on the heap, in bytes an
// entry above the names themselves.

#include "volume/image/ImageDisk.h"

#include <cstdio>
#include <malloc.h>

int main(int argc, char** argv)
{
    using namespace pryvane;
    if (argc != 3)
        return 2;
    ImageOptions options;
    options.program = argv[1];
    ImageProgress progress;
    const auto before = mallinfo2();
    const auto disk = openImage(argv[2], options, StopFlag(), progress);
    const auto after = mallinfo2();
    if (!disk) {
        std::fprintf(stderr, "%s\n", disk.error().message.c_str());
        return 2;
    }
    const NameIndex& index = (*disk)->index();
    std::size_t names = 0;
    for (std::size_t node = 0; node < index.size(); ++node)
        names += index.name(static_cast<NameIndex::Node>(node)).size();
    const auto held =
        static_cast<double>(after.uordblks + after.hblkhd - before.uordblks - before.hblkhd);
    std::printf("%zu %.2f\n", index.size(),
                (held - static_cast<double>(names)) / static_cast<double>(index.size()));
    return 0;
}
