#include "volume/image/ImageHash.h"

#include "core/Escape.h"
#include "core/Files.h"
#include "core/Sha256.h"
#include "volume/image/Segments.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <vector>

namespace pryvane {

Result<std::string> imageHash(const std::string& path, const StopFlag& stop,
                              std::atomic<std::uint64_t>& bytesRead)
{
    constexpr std::size_t kPiece = std::size_t{1} << 20;
    std::vector<char> piece(kPiece);
    Sha256 hash;
    for (const std::string& file : imageSegments(path)) {
        const UniqueFd fd(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
        for (ssize_t got = 1; got != 0;) {
            if (stop.requested())
                return Error{"interrupted"};
            got = fd ? read(fd.get(), piece.data(), piece.size()) : -1;
            if (got < 0 && fd && errno == EINTR)
                continue;
            if (got < 0)
                return Error{"the image \"" + forScreen(file) +
                             "\" cannot be read: " + errorText(errno)};
            hash.add({piece.data(), static_cast<std::size_t>(got)});
            bytesRead += static_cast<std::uint64_t>(got);
        }
    }
    return hash.hex();
}

} // namespace pryvane
