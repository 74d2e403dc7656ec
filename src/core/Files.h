#pragma once

#include "core/Result.h"

#include <functional>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace pryvane {

/// Owns one file descriptor and closes it at its end.
class UniqueFd {
public:
    UniqueFd() = default;
    explicit UniqueFd(int fd) : m_fd(fd) {}
    UniqueFd(UniqueFd&& other) noexcept : m_fd(other.release()) {}
    UniqueFd& operator=(UniqueFd&& other) noexcept
    {
        reset(other.release());
        return *this;
    }
    ~UniqueFd() { reset(); }

    [[nodiscard]] int get() const { return m_fd; }
    [[nodiscard]] int release() { return std::exchange(m_fd, -1); }
    explicit operator bool() const { return m_fd >= 0; }

    void reset(int fd = -1)
    {
        if (m_fd >= 0)
            close(m_fd);
        m_fd = fd;
    }

private:
    int m_fd = -1;
};

/// Writes a file that only its owner may read, so that `path` holds either what it held before or
/// all of `bytes`, also after a power cut. Refuses to replace anything but a regular file.
[[nodiscard]] Result<Done> writeWholeFile(const std::string& path, std::string_view bytes);

/// Takes a text, bit by bit.
using TextSink = std::function<void(std::string_view bytes)>;

/// The same of what `fill` hands over, which need not be in memory whole.
[[nodiscard]] Result<Done> writeWholeFile(const std::string& path,
                                          const std::function<void(const TextSink&)>& fill);

} // namespace pryvane
