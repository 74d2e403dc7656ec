#include "support/Volumes.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pryvane::test {

std::int64_t naiveSize(const std::filesystem::path& path)
{
    struct stat data {};
    if (lstat(path.c_str(), &data) != 0)
        return 0;
    if (!S_ISDIR(data.st_mode))
        return std::int64_t{data.st_blocks} * 512;
    std::int64_t sum = 0;
    for (const auto& entry : std::filesystem::directory_iterator(path))
        sum += naiveSize(entry.path());
    return sum;
}

std::string inChild(const std::function<std::string()>& body)
{
    int ends[2];
    if (pipe(ends) != 0)
        std::abort();
    const pid_t child = fork();
    if (child == 0) {
        const std::string answer = body();
        for (std::size_t done = 0; done < answer.size();) {
            const ssize_t written = write(ends[1], answer.data() + done, answer.size() - done);
            if (written <= 0)
                _exit(1);
            done += static_cast<std::size_t>(written);
        }
        _exit(0);
    }
    close(ends[1]);
    std::string answer;
    char part[4096];
    for (ssize_t got = 0; (got = read(ends[0], part, sizeof part)) > 0;)
        answer.append(part, static_cast<std::size_t>(got));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "child's status " << status;
    return answer;
}

std::string asNobody(const std::function<std::string()>& body)
{
    return inChild([&body] {
        constexpr unsigned kNobody = 65534;
        if (runningAsRoot() &&
            (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0))
            return std::string("could not become nobody");
        return body();
    });
}

} // namespace pryvane::test
