#pragma once

#include "core/Files.h"
#include "core/Result.h"
#include "core/StopFlag.h"
#include "volume/image/ImageFrames.h"

#include <chrono>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace pryvane {

/// The process that reads an image's bytes. One thread at a time.
class ImageReader {
public:
    struct Frame {
        frames::Kind kind{};
        std::string body;
    };

    /// Starts `program`, an absolute path.
    [[nodiscard]] static Result<ImageReader> started(const std::string& program);

    ImageReader(ImageReader&& other) noexcept;
    ImageReader& operator=(ImageReader&&) = delete;
    ~ImageReader(); ///< ends the process

    [[nodiscard]] Result<Done> send(frames::Kind kind, std::string_view body);

    /// The next frame. An error where the process ends, says what is no frame, says nothing for so
    /// long, or the stop comes; nothing further can be asked of it then.
    [[nodiscard]] Result<Frame> receive(std::chrono::milliseconds patience, const StopFlag& stop);

private:
    ImageReader(pid_t process, UniqueFd input, UniqueFd output);
    [[nodiscard]] Result<Done> fill(char* bytes, std::size_t size,
                                    std::chrono::milliseconds patience, const StopFlag& stop);
    [[nodiscard]] Error ended();

    pid_t m_process;
    UniqueFd m_input;  ///< what it reads
    UniqueFd m_output; ///< what it says
};

} // namespace pryvane
