#include "core/Files.h"

#include "core/Escape.h"
#include "core/HostFiles.h"
#include "core/Result.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace pryvane {

namespace {

Error failure(const std::string& path, std::string_view what, int error)
{
    return Error{forScreen(path) + ": " + std::string(what) + ": " + errorText(error) +
                 (error == ENOSPC || error == EDQUOT ? "; free some space and try again" : "")};
}

/// A new file beside the final one, removed at the end unless it took the final one's place.
class FileBeside {
public:
    explicit FileBeside(const std::string& path)
        : m_name(path + ".XXXXXX"), m_fd(mkostemp(m_name.data(), O_CLOEXEC)),
          m_error(m_fd >= 0 ? 0 : errno)
    {
    }
    ~FileBeside()
    {
        if (m_fd >= 0)
            close(m_fd);
        if (m_made)
            unlink(m_name.c_str());
    }
    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;

    /// Why there is no file, or what kept it from being written; 0 where all is well.
    [[nodiscard]] int error() const { return m_error; }

    void add(std::string_view bytes)
    {
        m_waiting += bytes;
        if (m_waiting.size() >= kWrittenAtOnce)
            flush();
    }

    /// 0, or the errno that kept the bytes from being safe on the disk.
    [[nodiscard]] int finish()
    {
        flush();
        if (m_error == 0 && syncToDevice(m_fd) != 0)
            m_error = errno;
        if (close(std::exchange(m_fd, -1)) != 0 && m_error == 0)
            m_error = errno;
        return m_error;
    }

    [[nodiscard]] int takePlaceOf(const std::string& path)
    {
        if (rename(m_name.c_str(), path.c_str()) != 0)
            return errno;
        m_made = false;
        return 0;
    }

private:
    static constexpr std::size_t kWrittenAtOnce = 1 << 16;

    void flush()
    {
        std::string_view bytes = m_waiting;
        while (m_error == 0 && !bytes.empty()) {
            const ssize_t written = write(m_fd, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR)
                continue;
            if (written <= 0)
                m_error = written < 0 ? errno : ENOSPC;
            else
                bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        m_waiting.clear();
    }

    std::string m_name;
    int m_fd;
    int m_error;
    bool m_made = m_fd >= 0;
    std::string m_waiting;
};

/// The name in its folder is only safe once the folder is. Some file systems cannot sync a folder;
/// the document itself is safe by then.
void syncFolderOf(const std::string& path)
{
    const auto slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    const int fd = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return;
    static_cast<void>(syncToDevice(fd));
    close(fd);
}

} // namespace

Result<Done> writeWholeFile(const std::string& path, std::string_view bytes)
{
    return writeWholeFile(path, [&](const TextSink& sink) { sink(bytes); });
}

Result<Done> writeWholeFile(const std::string& path,
                            const std::function<void(const TextSink&)>& fill)
{
    struct stat there {};
    if (lstat(path.c_str(), &there) == 0 && !S_ISREG(there.st_mode))
        return Error{forScreen(path) +
                     ": there is something else than a file by this name; move it "
                     "away or choose another name"};
    FileBeside file(path);
    if (file.error() != 0)
        return failure(path, "no file can be made in its folder", file.error());
    fill([&](std::string_view bytes) { file.add(bytes); });
    if (const int error = file.finish(); error != 0)
        return failure(path, "cannot be written", error);
    if (const int error = file.takePlaceOf(path); error != 0)
        return failure(path, "cannot be replaced", error);
    syncFolderOf(path);
    return Done{};
}

} // namespace pryvane
