// What stands in the files of a volume.
#include "core/Result.h"
#include "core/Sha256.h"
#include "volume/VolumeFileSystem.h"

#include <cerrno>
#include <unistd.h>

namespace pryvane {

namespace {

/// Reads an open file piece by piece to its end, or says why not. `told` ends it with an error.
template <typename Told>
Result<Done> readPieces(int fd, const Told& told)
{
    std::vector<char> piece(std::size_t{64} * 1024);
    for (;;) {
        const ssize_t got = read(fd, piece.data(), piece.size());
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return Error{errorText(errno)};
        if (got == 0)
            return Done{};
        if (auto taken = told(std::string_view(piece.data(), static_cast<std::size_t>(got)));
            !taken)
            return taken;
    }
}

} // namespace

Result<std::string> VolumeFileSystem::readSmallFile(const FileURL& url, std::size_t limit)
{
    const auto fd = openRegularFile(url);
    if (!fd)
        return fd.error();
    std::string content;
    // By what was read, since a file may grow meanwhile.
    const auto read = readPieces(fd->get(), [&](std::string_view piece) -> Result<Done> {
        if (piece.size() > limit - content.size())
            return Error{"the file is longer than " + std::to_string(limit) + " bytes"};
        content += piece;
        return Done{};
    });
    return read ? Result<std::string>(std::move(content)) : read.error();
}

Result<std::string> VolumeFileSystem::contentHash(const FileURL& url, const StopFlag& stop)
{
    const auto fd = openRegularFile(url);
    if (!fd)
        return fd.error();
    Sha256 hash;
    const auto read = readPieces(fd->get(), [&](std::string_view piece) -> Result<Done> {
        hash.add(piece);
        return stop.requested() ? Result<Done>(Error{"interrupted"}) : Done{};
    });
    return read ? Result<std::string>(hash.hex()) : read.error();
}

} // namespace pryvane
