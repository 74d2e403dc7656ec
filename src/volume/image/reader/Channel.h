#pragma once

#include "volume/image/ImageFrames.h"

#include <optional>
#include <string>
#include <string_view>

namespace pryvane {

/// The reader's end of the talk: frames in on standard input, out on standard output. Where the
/// other side is gone, or says what is no frame, the process ends.
class Channel {
public:
    struct Frame {
        frames::Kind kind{};
        std::string body;
    };

    /// The next frame, or none at the end.
    [[nodiscard]] std::optional<Frame> receive();

    void send(frames::Kind kind, std::string_view body);

private:
    /// False at the end.
    [[nodiscard]] bool fill(char* bytes, std::size_t size);
};

} // namespace pryvane
