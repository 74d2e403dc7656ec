#include "volume/image/ImageDisk.h"

#include "core/Escape.h"
#include "core/LoadedModule.h"
#include "volume/image/ImageReader.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>

namespace pryvane {

namespace {

using frames::Step;

Error notUnderstood()
{
    return {"its reader says what cannot be understood"};
}

Error about(const std::string& path, const Error& error)
{
    return {"the image \"" + forScreen(path) + "\" cannot be read: " + forScreen(error.message)};
}

/// How long a reader may take, however much it says meanwhile.
class Deadline {
public:
    explicit Deadline(std::chrono::seconds longest)
        : m_end(std::chrono::steady_clock::now() + longest)
    {
    }

    /// The next frame, unless the time is over.
    [[nodiscard]] Result<ImageReader::Frame>
    next(ImageReader& reader, std::chrono::milliseconds patience, const StopFlag& stop) const
    {
        if (std::chrono::steady_clock::now() > m_end)
            return Error{"its reader comes to no end; the image is damaged, or made to do harm"};
        return reader.receive(patience, stop);
    }

private:
    const std::chrono::steady_clock::time_point m_end;
};

/// Asks a new reader for the layout or the names.
Result<ImageReader> asked(const std::string& path, const ImageOptions& options, frames::What what)
{
    // Better said here in words than by a reader that may open nothing else.
    const UniqueFd file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat data {};
    if (!file || fstat(file.get(), &data) != 0)
        return Error{errorText(errno)};
    if (!S_ISREG(data.st_mode) && !S_ISBLK(data.st_mode))
        return Error{"it is neither a file nor a disk; --volume takes folders"};
    std::error_code error;
    const std::string absolute = std::filesystem::absolute(path, error).string();
    auto reader = ImageReader::started(options.program);
    if (!reader)
        return reader;
    frames::Writer request;
    request.number(frames::kVersion);
    request.number(static_cast<std::uint8_t>(what));
    request.number(options.partition);
    request.text(absolute);
    request.text(options.volume);
    request.text(options.password);
    if (const auto sent = reader->send(frames::Kind::Request, request.bytes()); !sent)
        return sent.error();
    return reader;
}

/// Takes in what an image consists of; false for a frame that is about something else.
Result<bool> takeLayout(const ImageReader::Frame& frame, ImageLayout& layout)
{
    constexpr std::size_t kMost = 10'000;
    frames::Reader body(frame.body);
    if (frame.kind == frames::Kind::Partition) {
        ImageLayout::Partition partition;
        partition.number = body.number<std::uint32_t>();
        partition.start = body.number<std::uint64_t>();
        partition.length = body.number<std::uint64_t>();
        partition.description = body.text();
        layout.partitions.push_back(std::move(partition));
    } else if (frame.kind == frames::Kind::Volume) {
        ImageLayout::Volume volume;
        volume.partition = body.number<std::uint32_t>();
        volume.number = body.number<std::uint32_t>();
        volume.role = body.number<std::uint16_t>();
        const auto flags = body.number<std::uint8_t>();
        volume.encrypted = (flags & frames::kEncrypted) != 0;
        volume.caseSensitive = (flags & frames::kCaseSensitive) != 0;
        volume.fileSystem = body.text();
        volume.name = body.text();
        layout.volumes.push_back(std::move(volume));
    } else {
        return false;
    }
    if (!body.ok() || !body.atEnd() || layout.partitions.size() > kMost ||
        layout.volumes.size() > kMost)
        return notUnderstood();
    return true;
}

/// Puts a reader's names into an index.
class Names {
public:
    Names(NameIndex& index, const ImageOptions& options) : m_index(index), m_options(options) {}

    [[nodiscard]] Result<Done> take(std::string_view block)
    {
        frames::Reader body(block);
        if (body.atEnd())
            return notUnderstood();
        while (!body.atEnd()) {
            if (auto taken = takeOne(body); !taken)
                return taken;
        }
        return Done{};
    }

    [[nodiscard]] bool isAtRoot() const { return m_folder == NameIndex::kRoot; }
    [[nodiscard]] std::int64_t skipped() const { return m_skipped; }

private:
    [[nodiscard]] Result<Done> takeOne(frames::Reader& body)
    {
        const auto step = static_cast<Step>(body.number<std::uint8_t>());
        if (step == Step::Leave) {
            if (isAtRoot())
                return notUnderstood();
            m_folder = m_index.parent(m_folder);
            return Done{};
        }
        const std::string_view text = body.text(frames::kLongestName);
        if (!body.ok())
            return notUnderstood();
        if (step == Step::Refused) {
            if (static_cast<std::size_t>(++m_skipped) > m_options.mostEntries)
                return notUnderstood();
            m_index.setRefused(m_folder, text);
            return Done{};
        }
        if (step != Step::Folder && step != Step::File && step != Step::Link && step != Step::Other)
            return notUnderstood();
        if (text.empty() || text == "." || text == ".." || text.find('/') != text.npos ||
            text.find('\0') != text.npos)
            return notUnderstood();
        m_nameBytes += text.size();
        if (m_index.size() >= m_options.mostEntries || m_nameBytes > m_options.mostNameBytes)
            return Error{"it has more names than any disk; the image is damaged, or made to do "
                         "harm"};
        constexpr std::array kKinds = {FileKind::Folder, FileKind::RegularFile,
                                       FileKind::SymbolicLink, FileKind::Other};
        NameIndex::Facts facts;
        facts.kind = kKinds[static_cast<std::size_t>(step) - 1];
        const std::string name(text);
        std::string target;
        if (step != Step::Folder) {
            facts.size = body.number<std::int64_t>();
            facts.modified = body.number<std::int64_t>();
            if (step == Step::Link)
                target = body.text(frames::kLongestName);
        }
        if (!body.ok())
            return notUnderstood();
        if (step != Step::File)
            facts.size = NameIndex::kNotKnown;
        const NameIndex::Node node = m_index.add(m_folder, name, facts);
        if (step == Step::Folder)
            m_folder = node;
        else if (step == Step::Link && !target.empty())
            m_index.setTarget(node, target);
        return Done{};
    }

    NameIndex& m_index;
    const ImageOptions& m_options;
    std::size_t m_nameBytes = 0;
    NameIndex::Node m_folder = NameIndex::kRoot;
    std::int64_t m_skipped = 0;
};

/// A file's content, piece by piece, bounded on this side as well.
Result<std::string> contentOf(ImageReader& reader, const std::string& path, std::size_t limit,
                              const ImageOptions& options)
{
    frames::Writer wanted;
    wanted.number(static_cast<std::uint32_t>(std::min<std::size_t>(limit, 0xffffffff)));
    wanted.text(path);
    if (const auto sent = reader.send(frames::Kind::Content, wanted.bytes()); !sent)
        return sent.error();
    std::string content;
    const Deadline deadline(options.longest);
    for (const StopFlag stop;;) {
        auto frame = deadline.next(reader, options.patience, stop);
        if (!frame)
            return frame.error();
        switch (frame->kind) {
        case frames::Kind::Done:
            return content;
        case frames::Kind::Problem:
            return Error{frame->body};
        case frames::Kind::Bytes:
            content += frame->body;
            if (content.size() > limit || frame->body.empty())
                return notUnderstood();
            break;
        default:
            return notUnderstood();
        }
    }
}

} // namespace

Result<ImageOptions> ImageOptions::withOwnReader()
{
    auto reader = besideProgram("pryvane-image-reader");
    if (!reader)
        return reader.error();
    ImageOptions options;
    options.program = std::move(reader).value();
    return options;
}

std::string imageRoleText(std::uint16_t role)
{
    switch (role) {
    case 0:
        return {};
    case 0x01:
        return "System";
    case 0x02:
        return "User";
    case 0x04:
        return "Recovery";
    case 0x08:
        return "VM";
    case 0x10:
        return "Preboot";
    case 0x20:
        return "Installer";
    case 0x40:
        return "Data";
    case 0xc0:
        return "Update";
    default:
        return "role " + std::to_string(role);
    }
}

Result<ImageLayout> imageLayout(const std::string& path, const ImageOptions& options,
                                const StopFlag& stop)
{
    auto reader = asked(path, options, frames::What::Layout);
    if (!reader)
        return about(path, reader.error());
    ImageLayout layout;
    const Deadline deadline(options.longest);
    for (;;) {
        const auto frame = deadline.next(*reader, options.patience, stop);
        if (!frame)
            return about(path, frame.error());
        if (frame->kind == frames::Kind::Done)
            return layout;
        if (frame->kind == frames::Kind::Problem)
            return about(path, {frame->body});
        const auto taken = takeLayout(*frame, layout);
        if (!taken || !taken.value())
            return about(path, notUnderstood());
    }
}

Result<std::unique_ptr<IndexFileSystem>> openImage(const std::string& path,
                                                   const ImageOptions& options,
                                                   const StopFlag& stop, ImageProgress& progress)
{
    auto started = asked(path, options, frames::What::Names);
    if (!started)
        return about(path, started.error());
    const auto reader = std::make_shared<ImageReader>(std::move(started).value());
    ImageLayout layout;
    const ImageLayout::Volume* chosen = nullptr;
    std::unique_ptr<NameIndex> index;
    std::optional<Names> names;
    bool isConfined = false;
    const Deadline deadline(options.longest);
    for (;;) {
        const auto frame = deadline.next(*reader, options.patience, stop);
        if (!frame)
            return about(path, frame.error());
        if (frame->kind == frames::Kind::Locked)
            progress.isLocked = true;
        if (frame->kind == frames::Kind::Problem || frame->kind == frames::Kind::Locked)
            return about(path, {frame->body});
        if (frame->kind == frames::Kind::Done && names && names->isAtRoot())
            break;
        if (frame->kind == frames::Kind::Entries && names) {
            if (const auto taken = names->take(frame->body); !taken)
                return about(path, taken.error());
            progress.entries = index->size();
        } else if (frame->kind == frames::Kind::Chosen && !names) {
            frames::Reader body(frame->body);
            const auto number = body.number<std::uint32_t>();
            isConfined = body.number<std::uint8_t>() != 0;
            if (!body.ok() || number >= layout.volumes.size())
                return about(path, notUnderstood());
            chosen = &layout.volumes[number];
            const bool exact = options.caseSensitive || chosen->caseSensitive;
            index =
                std::make_unique<NameIndex>(exact ? NameMatching::Exact : NameMatching::AsOnMac);
            names.emplace(*index, options);
        } else {
            const auto taken = takeLayout(*frame, layout);
            if (!taken || !taken.value() || names)
                return about(path, notUnderstood());
        }
    }
    IndexFileSystem::Parts parts;
    parts.choice = std::make_shared<EveryEntry>();
    parts.cover = NameCover::WholeDisk;
    parts.facts.source = "a disk image";
    parts.facts.name = path;
    parts.facts.sha256 = options.sha256;
    parts.facts.format = chosen->fileSystem;
    if (!chosen->name.empty())
        parts.facts.format += " volume " + chosen->name;
    if (chosen->partition != 0)
        parts.facts.format += ", partition " + std::to_string(chosen->partition);
    parts.facts.entries = static_cast<std::int64_t>(index->size()) - 1;
    parts.facts.skipped = names->skipped();
    if (!isConfined)
        parts.facts.remark = "This computer's kernel has no Landlock: it could not keep what reads "
                             "the image from opening other files.";
    const NameIndex* const nodes = index.get();
    ImageOptions limits = options;
    limits.password.clear();
    parts.content = [reader, nodes, limits](NameIndex::Node node, std::size_t limit) {
        return contentOf(*reader, nodes->path(node), limit, limits);
    };
    parts.names = std::move(index);
    return std::make_unique<IndexFileSystem>(std::move(parts));
}

} // namespace pryvane
