#include "support/PlainRemover.h"

#include <sys/stat.h>

namespace pryvane::test {

void PlainRemover::add(const std::filesystem::path& path, RemovalForecast& forecast)
{
    struct stat data {};
    if (lstat(path.c_str(), &data) != 0)
        return;
    ++forecast.entries;
    if (!S_ISDIR(data.st_mode)) {
        forecast.bytes += std::int64_t{data.st_blocks} * 512;
        return;
    }
    for (const auto& entry : std::filesystem::directory_iterator(path))
        add(entry.path(), forecast);
}

} // namespace pryvane::test
