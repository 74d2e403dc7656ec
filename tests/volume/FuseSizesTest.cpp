#include "removal/disk/HostRemoval.h"
#include "support/Volumes.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <linux/fuse.h>
#include <sys/mount.h>
#include <thread>

namespace pryvane {
namespace {

using namespace test;

constexpr std::uint64_t kLengths[] = {0, 1, 512, 513, 3'000'000'000};

/// A file system in user space that says nothing of blocks: "f0", "f1", ... of those lengths, in
/// its root. Ends when it is unmounted.
class BlocklessDisk {
public:
    explicit BlocklessDisk(const std::string& folder)
        : m_folder(folder), m_device(open("/dev/fuse", O_RDWR | O_CLOEXEC))
    {
        const std::string options =
            "fd=" + std::to_string(m_device.get()) + ",rootmode=40000,user_id=0,group_id=0";
        m_mounted = m_device && mount("blockless", folder.c_str(), "fuse", MS_NOSUID | MS_NODEV,
                                      options.c_str()) == 0;
        if (m_mounted)
            m_server = std::thread([this] { serve(); });
    }
    ~BlocklessDisk()
    {
        if (!m_mounted)
            return;
        umount2(m_folder.c_str(), MNT_DETACH);
        m_server.join();
    }
    BlocklessDisk(const BlocklessDisk&) = delete;
    BlocklessDisk& operator=(const BlocklessDisk&) = delete;

    [[nodiscard]] bool isMounted() const { return m_mounted; }

private:
    static fuse_attr attributes(std::uint64_t node)
    {
        fuse_attr facts{};
        facts.ino = node;
        facts.nlink = 1;
        facts.mode = node == FUSE_ROOT_ID ? S_IFDIR | 0755 : S_IFREG | 0644;
        facts.size = node == FUSE_ROOT_ID ? 0 : kLengths[node - 2];
        return facts;
    }

    template <typename Body>
    void answer(std::uint64_t request, const Body& body) const
    {
        answer(request, 0, std::string_view(reinterpret_cast<const char*>(&body), sizeof body));
    }
    void answer(std::uint64_t request, int error, std::string_view body) const
    {
        const fuse_out_header head{static_cast<std::uint32_t>(sizeof head + body.size()), error,
                                   request};
        std::string message(reinterpret_cast<const char*>(&head), sizeof head);
        message += body;
        // A request that was given up meanwhile wants no answer.
        [[maybe_unused]] const auto sent = write(m_device.get(), message.data(), message.size());
    }

    void serve() const
    {
        std::vector<char> buffer(1 << 17);
        while (true) {
            const ssize_t got = read(m_device.get(), buffer.data(), buffer.size());
            if (got < 0 && errno == EINTR)
                continue;
            if (got < static_cast<ssize_t>(sizeof(fuse_in_header)))
                return;
            fuse_in_header head;
            std::memcpy(&head, buffer.data(), sizeof head);
            one(head, buffer.data() + sizeof head);
        }
    }

    void one(const fuse_in_header& head, const char* body) const
    {
        switch (head.opcode) {
        case FUSE_INIT: {
            fuse_init_out out{};
            out.major = FUSE_KERNEL_VERSION;
            out.minor = 31;
            out.max_write = 4096;
            return answer(head.unique, out);
        }
        case FUSE_GETATTR: {
            fuse_attr_out out{};
            out.attr = attributes(head.nodeid);
            return answer(head.unique, out);
        }
        case FUSE_LOOKUP: {
            const std::string_view name(body);
            fuse_entry_out out{};
            if (name.size() != 2 || name[0] != 'f' || name[1] - '0' >= int{std::size(kLengths)})
                return answer(head.unique, -ENOENT, {});
            out.nodeid = static_cast<std::uint64_t>(name[1] - '0') + 2;
            out.attr = attributes(out.nodeid);
            return answer(head.unique, out);
        }
        case FUSE_OPENDIR:
            return answer(head.unique, fuse_open_out{});
        case FUSE_READDIR: {
            fuse_read_in in;
            std::memcpy(&in, body, sizeof in);
            return answer(head.unique, 0, in.offset == 0 ? entries() : std::string());
        }
        case FUSE_STATFS:
            return answer(head.unique, fuse_statfs_out{});
        case FUSE_RELEASEDIR:
            return answer(head.unique, 0, {});
        case FUSE_FORGET:
        case FUSE_BATCH_FORGET:
            return;
        default:
            return answer(head.unique, -ENOSYS, {});
        }
    }

    static std::string entries()
    {
        std::string all;
        for (std::size_t i = 0; i < std::size(kLengths); ++i) {
            fuse_dirent entry{};
            entry.ino = i + 2;
            entry.off = i + 1;
            entry.namelen = 2;
            entry.type = DT_REG;
            all.append(reinterpret_cast<const char*>(&entry), FUSE_NAME_OFFSET);
            all.append("f" + std::to_string(i));
            all.resize((all.size() + 7) / 8 * 8);
        }
        return all;
    }

    std::string m_folder;
    UniqueFd m_device;
    bool m_mounted = false;
    std::thread m_server;
};

TEST(BlocklessFileSystem, IsMeasuredByLength)
{
    TemporaryFolder disk;
    disk.folder("Users/alice");
    const BlocklessDisk mounted(disk.hostPath("Users/alice"));
    if (!mounted.isMounted())
        GTEST_SKIP() << "no file system in user space can be mounted here: " << strerror(errno);
    const auto volume = volumeAt(disk, NameMatching::AsOnMac);
    const std::int64_t expected[] = {0, 512, 512, 1024, 3'000'000'000 / 512 * 512};
    std::int64_t sum = 0;
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        sum += expected[i];
        EXPECT_EQ(volume->allocatedSize(at("/Users/alice/f" + std::to_string(i))), expected[i]);
    }
    EXPECT_EQ(volume->allocatedSize(at("/Users/alice")), sum);
    const UniqueFd home(volume->openFolder(at("/Users/alice")));
    const auto facts = factsOf(home.get(), "f3");
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->bytes, 1024);
}

/// Where blocks are told, a file that has none takes none.
TEST(BlocklessFileSystem, IsNotTakenForAFileOfHoles)
{
    TemporaryFolder disk;
    disk.file("holes", "");
    ASSERT_EQ(truncate(disk.hostPath("holes").c_str(), 1 << 20), 0);
    EXPECT_EQ(volumeAt(disk, NameMatching::Exact)->allocatedSize(at("/holes")), 0);
}

} // namespace
} // namespace pryvane
