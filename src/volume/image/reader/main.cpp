// Reads the names of a disk image for the program that started it. Whatever the image holds can do
// no more than end this process: it confines itself before it looks at the first byte.

#include "volume/image/Segments.h"
#include "volume/image/reader/Channel.h"
#include "volume/image/reader/Confinement.h"
#include "volume/image/reader/ImageVolumes.h"
#include "volume/image/reader/NameStream.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <sys/prctl.h>
#include <unistd.h>
#include <vector>

namespace pryvane {

namespace {

struct Request {
    frames::What what{};
    std::uint32_t partition = 0; ///< 0: any
    std::string path;
    std::string volume; ///< name or number; empty: any
    std::string password;
};

std::optional<Request> received(Channel& channel)
{
    const auto frame = channel.receive();
    if (!frame || frame->kind != frames::Kind::Request)
        return std::nullopt;
    frames::Reader body(frame->body);
    Request request;
    if (body.number<std::uint32_t>() != frames::kVersion)
        return std::nullopt;
    request.what = static_cast<frames::What>(body.number<std::uint8_t>());
    request.partition = body.number<std::uint32_t>();
    request.path = body.text();
    request.volume = body.text();
    request.password = body.text();
    return body.ok() ? std::optional(request) : std::nullopt;
}

void tellLayout(const ImageVolumes& image, Channel& channel)
{
    frames::Writer body;
    for (const ImagePartition& partition : image.partitions()) {
        body.clear();
        body.number(partition.number);
        body.number(partition.start);
        body.number(partition.length);
        body.text(partition.description);
        channel.send(frames::Kind::Partition, body.bytes());
    }
    for (const ImageVolume& volume : image.volumes()) {
        body.clear();
        body.number(volume.partition);
        body.number(volume.number);
        body.number(volume.role);
        body.number(static_cast<std::uint8_t>((volume.encrypted ? frames::kEncrypted : 0) |
                                              (volume.caseSensitive ? frames::kCaseSensitive : 0)));
        body.text(volume.fileSystem);
        body.text(volume.name);
        channel.send(frames::Kind::Volume, body.bytes());
    }
}

bool isAskedFor(const ImageVolume& volume, const Request& request)
{
    if (request.partition != 0 && volume.partition != request.partition)
        return false;
    return request.volume.empty() || volume.name == request.volume ||
           std::to_string(volume.number) == request.volume;
}

#ifdef PRYVANE_TSK_DECRYPTS
constexpr bool kDecrypts = true;
#else
constexpr bool kDecrypts = false;
#endif

std::string lockedText(const Request& request)
{
    if (!kDecrypts)
        return "its volume is encrypted, and this computer's libtsk was built without decryption; "
               "mount it with \"fsapfsmount -p PASSWORD\" and look at the folder";
    return request.password.empty()
               ? "its volume is encrypted; give its password with --password-file"
               : "its volume is encrypted, and the password given does not open it";
}

/// The volume with the users' data, else the one that looks most like a Mac's, among those that
/// are asked for; none with the reason sent.
std::optional<std::size_t> choose(ImageVolumes& image, const Request& request, Channel& channel)
{
    constexpr std::uint16_t kDataRole = 0x40;
    std::optional<std::size_t> chosen;
    int best = -1;
    bool isLocked = false;
    for (std::size_t i = 0; i < image.volumes().size(); ++i) {
        const ImageVolume& volume = image.volumes()[i];
        if (!isAskedFor(volume, request))
            continue;
        std::string problem;
        const OpenVolume open = image.openVolume(volume, request.password, problem);
        const int likeness = open ? NameStream::likeness(*open) : -1;
        // What was not decrypted may open all the same, and holds nothing that makes sense.
        if (likeness <= 0 && volume.encrypted) {
            isLocked = isLocked || request.volume.empty() || volume.role == kDataRole;
            if (volume.role == kDataRole) {
                chosen.reset();
                break;
            }
            continue;
        }
        const int score = likeness + (open && volume.role == kDataRole ? 100 : 0);
        if (open && score > best) {
            best = score;
            chosen = i;
        }
    }
    if (chosen && (best > 0 || !isLocked))
        return chosen;
    std::string problem = "no volume on it is one of a Mac (APFS or HFS+)";
    if (isLocked)
        problem = lockedText(request);
    else if (!image.volumes().empty())
        problem = "no volume on it is the one asked for, or it cannot be opened; pryvane-cli "
                  "listing --list shows them";
    channel.send(isLocked && kDecrypts ? frames::Kind::Locked : frames::Kind::Problem, problem);
    return std::nullopt;
}

/// Answers with the content of a file, or with why it cannot be had.
void sendContent(TSK_FS_INFO& volume, std::string_view body, Channel& channel)
{
    frames::Reader asked(body);
    const std::size_t limit = asked.number<std::uint32_t>();
    const std::string path(asked.text());
    TSK_FS_FILE* const file =
        asked.ok() ? tsk_fs_file_open(&volume, nullptr, path.c_str()) : nullptr;
    if (file == nullptr || file->meta == nullptr || file->meta->type != TSK_FS_META_TYPE_REG) {
        tsk_error_reset();
        tsk_fs_file_close(file);
        channel.send(frames::Kind::Problem, "it cannot be read on this disk");
        return;
    }
    const auto size = static_cast<std::uint64_t>(std::max<TSK_OFF_T>(file->meta->size, 0));
    std::string piece;
    std::uint64_t at = 0;
    while (size <= limit && at < size) {
        piece.resize(
            static_cast<std::size_t>(std::min<std::uint64_t>(size - at, std::size_t{256} * 1024)));
        const ssize_t got = tsk_fs_file_read(file, static_cast<TSK_OFF_T>(at), piece.data(),
                                             piece.size(), TSK_FS_FILE_READ_FLAG_NONE);
        if (got <= 0)
            break;
        piece.resize(static_cast<std::size_t>(got));
        channel.send(frames::Kind::Bytes, piece);
        at += static_cast<std::uint64_t>(got);
    }
    tsk_error_reset();
    tsk_fs_file_close(file);
    if (at == size)
        channel.send(frames::Kind::Done, {});
    else
        channel.send(frames::Kind::Problem,
                     size > limit ? "the file is too long" : "it cannot be read on this disk");
}

int serve(Channel& channel)
{
    const auto request = received(channel);
    if (!request)
        return EXIT_FAILURE;
    const auto fail = [&](const std::string& problem) {
        channel.send(frames::Kind::Problem, problem);
        return EXIT_FAILURE;
    };
    const std::vector<std::string> files = imageSegments(request->path);
    const Confinement confinement = confineTo(files);
    if (!confinement.refused.empty())
        return fail("the kernel does not confine its reader: " + confinement.refused);
    ImageVolumes image;
    if (const std::string problem = image.open(request->path); !problem.empty())
        return fail(problem);
    // One of many files may be closed and opened again.
    if (!confineFurther(files.size() > 1 ? Opening::TheSameFiles : Opening::Nothing))
        return fail("the kernel does not confine its reader: the filter of system calls");
    image.look();
    tellLayout(image, channel);
    if (request->what == frames::What::Layout) {
        channel.send(frames::Kind::Done, {});
        return EXIT_SUCCESS;
    }
    const auto chosen = choose(image, *request, channel);
    if (!chosen)
        return EXIT_FAILURE;
    std::string problem;
    const OpenVolume volume =
        image.openVolume(image.volumes()[*chosen], request->password, problem);
    if (!volume)
        return fail(problem);
    frames::Writer which;
    which.number(static_cast<std::uint32_t>(*chosen));
    which.number(static_cast<std::uint8_t>(confinement.toFiles ? 1 : 0));
    channel.send(frames::Kind::Chosen, which.bytes());
    NameStream(*volume, channel).sendAll();
    channel.send(frames::Kind::Done, {});
    while (const auto frame = channel.receive()) {
        if (frame->kind != frames::Kind::Content)
            return EXIT_FAILURE;
        sendContent(*volume, frame->body, channel);
    }
    return EXIT_SUCCESS;
}

pid_t program = 0;

/// The kernel tells of the end of the thread that started this, which may be long before the
/// program's own.
void endWithProgram()
{
    program = getppid();
    struct sigaction action {};
    action.sa_handler = [](int) {
        if (getppid() != program)
            _exit(EXIT_FAILURE);
    };
    action.sa_flags = SA_RESTART;
    sigaction(SIGHUP, &action, nullptr);
    prctl(PR_SET_PDEATHSIG, SIGHUP);
    if (getppid() != program)
        _exit(EXIT_FAILURE);
}

} // namespace

} // namespace pryvane

int main()
{
    pryvane::endWithProgram();
    pryvane::Channel channel;
    try {
        const int code = pryvane::serve(channel);
        _exit(code); // the library's own tidying up reads the image once more
    } catch (const std::exception& error) {
        channel.send(pryvane::frames::Kind::Problem,
                     std::string("reading it was given up: ") + error.what());
    }
    _exit(EXIT_FAILURE);
}
