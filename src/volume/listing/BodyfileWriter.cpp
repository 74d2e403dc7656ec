#include "volume/listing/BodyfileWriter.h"

#include "core/Files.h"
#include "volume/folders/Ancestry.h"
#include "volume/folders/FolderHandle.h"
#include "volume/listing/ListingFormat.h"

#include <climits>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <ostream>
#include <sys/stat.h>
#include <unistd.h>

namespace pryvane {

namespace {

constexpr std::string_view kDeleted = " (deleted)";

/// What the name says it is, then what the file itself is.
const char* modeOf(FileKind kind)
{
    switch (kind) {
    case FileKind::Folder:
        return "d/drwxr-xr-x";
    case FileKind::RegularFile:
        return "r/rrw-r--r--";
    case FileKind::SymbolicLink:
        return "l/lrwxr-xr-x";
    case FileKind::Other:
        return "p/prw-r--r--";
    default:
        return "-/-";
    }
}

/// A line ends at a break, a name that ends as deleted ones do reads as one, and a link's name ends
/// at the first arrow.
bool canBeWritten(std::string_view path, FileKind kind, const std::string* target)
{
    const bool isLink = kind == FileKind::SymbolicLink;
    return path.find('\n') == path.npos && !path.ends_with(kDeleted) &&
           !path.ends_with(" (deleted-realloc)") && !(isLink && path.find(" -> ") != path.npos) &&
           (target == nullptr || target->find('\n') == std::string::npos);
}

std::string_view folderOf(std::string_view path)
{
    const std::string_view folder = path.substr(0, path.rfind('/'));
    return folder.empty() ? "/" : folder;
}

} // namespace

bool BodyfileWriter::line(std::string_view path, const Line& facts)
{
    if (!canBeWritten(path, facts.kind, facts.target)) {
        ++m_leftOut;
        return false;
    }
    m_out << "0|" << path;
    if (facts.target)
        m_out << " -> " << *facts.target;
    if (facts.isDeleted)
        m_out << kDeleted;
    m_out << "|0|" << modeOf(facts.kind) << "|0|0|" << std::max<std::int64_t>(facts.size, 0)
          << "|0|" << std::max<std::int64_t>(facts.modified, 0) << "|0|0\n";
    ++m_entries;
    return true;
}

/// The folder, or the nearest above it that can be named.
void BodyfileWriter::markPartial(std::string_view folder)
{
    while (folder.find('\n') != folder.npos)
        folder = folderOf(folder);
    m_out << kPartialMark << folder << "\n";
}

void BodyfileWriter::write(const NameIndex& names, const StopFlag& stop)
{
    const auto entered = [&](NameIndex::Node folder, std::string_view path) {
        if (names.refused(folder) != nullptr) {
            ++m_unread;
            markPartial(path);
        }
    };
    static_cast<void>(line("/", {.kind = FileKind::Folder}));
    entered(NameIndex::kRoot, "/");
    std::string path;
    NameIndex::Node folder = NameIndex::kRoot;
    NameIndex::Node node = NameIndex::kNone;
    while (!stop.requested() && m_out) {
        node = names.nextIn(folder, node);
        if (node == NameIndex::kNone) {
            if (folder == NameIndex::kRoot)
                return;
            path.resize(path.size() - names.name(folder).size() - 1);
            node = folder;
            folder = names.parent(folder);
            continue;
        }
        path.append("/").append(names.name(node));
        const NameIndex::Facts facts = names.facts(node);
        if (!line(path,
                  {facts.kind, facts.size, facts.modified, facts.isDeleted, names.target(node)}))
            markPartial(folderOf(path));
        if (facts.kind == FileKind::Folder) {
            entered(node, path);
            folder = node;
            node = NameIndex::kNone;
        } else {
            path.resize(path.size() - names.name(node).size() - 1);
        }
    }
}

/// One walk through mounted folders: depth first, with an own stack, holding few folders open.
class BodyfileWriter::FolderWalk {
public:
    FolderWalk(BodyfileWriter& writer, const StopFlag& stop) : m_writer(writer), m_stop(stop) {}

    void from(FolderHandle root)
    {
        m_device = root.id().device;
        static_cast<void>(m_writer.line("/", {.kind = FileKind::Folder}));
        enter(std::move(root), {});
        while (!m_levels.empty() && !m_stop.requested() && m_writer.m_out) {
            Level& level = m_levels.back();
            if (level.subfolders.empty()) {
                leave();
                continue;
            }
            const std::string name = std::move(level.subfolders.back());
            level.subfolders.pop_back();
            enter(level.folder.openChild(name.c_str()), name);
        }
    }

private:
    struct Level {
        FolderHandle folder; ///< closed while far below it, and opened again on the way back
        std::vector<std::string> subfolders; ///< still to be visited, the last first
        std::size_t pathLength = 0;
        bool isWhole = true;
    };
    static constexpr std::size_t kMostHandles = 64;

    void enter(FolderHandle folder, const std::string& name)
    {
        const std::size_t above = m_path.size();
        if (!name.empty())
            m_path.append("/").append(name);
        const FolderId id = folder ? folder.id() : FolderId();
        if (id == FolderId() || id.device != m_device || m_ancestry.contains(id)) {
            partial();
            m_path.resize(above);
            return;
        }
        m_ancestry.push(id);
        m_levels.push_back({std::move(folder), {}, m_path.size(), true});
        read(m_levels.back());
        if (m_levels.size() > kMostHandles)
            m_levels[m_levels.size() - kMostHandles].folder.close();
    }

    void partial()
    {
        ++m_writer.m_unread;
        m_writer.markPartial(m_path.empty() ? "/" : std::string_view(m_path));
    }

    void read(Level& level)
    {
        FolderBatch::Entry entry;
        bool isWhole = true;
        do {
            if (!m_batch.fill(level.folder)) {
                partial();
                break;
            }
            while (m_batch.next(entry))
                isWhole = one(level, entry) && isWhole;
        } while (!m_batch.atEnd() && !m_stop.requested());
        if (!isWhole)
            m_writer.markPartial(m_path.empty() ? "/" : std::string_view(m_path));
    }

    [[nodiscard]] bool one(Level& level, const FolderBatch::Entry& entry)
    {
        struct stat data {};
        const bool known =
            fstatat(level.folder.fd(), entry.name.data(), &data, AT_SYMLINK_NOFOLLOW) == 0;
        Line facts;
        facts.kind = known ? kindOfMode(data.st_mode) : entry.kind;
        facts.size = facts.kind == FileKind::RegularFile ? data.st_size : 0;
        facts.modified = data.st_mtime;
        std::string target;
        if (facts.kind == FileKind::SymbolicLink) {
            target.resize(PATH_MAX);
            const ssize_t length =
                readlinkat(level.folder.fd(), entry.name.data(), target.data(), target.size());
            target.resize(static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
            facts.target = target.empty() ? nullptr : &target;
        }
        if (facts.kind == FileKind::Folder)
            level.subfolders.emplace_back(entry.name);
        const std::size_t length = m_path.size();
        m_path.append("/").append(entry.name);
        const bool wrote = m_writer.line(m_path, facts);
        m_path.resize(length);
        return wrote;
    }

    /// Goes up one level. A parent whose handle was closed is opened again through "..", unless
    /// the folder was moved meanwhile: what is left up to the next open one is told as not read.
    void leave()
    {
        const FolderHandle child = std::move(m_levels.back().folder);
        drop();
        if (m_levels.empty() || m_levels.back().folder)
            return;
        m_levels.back().folder = child.openParent(m_ancestry[m_levels.size() - 1]);
        while (!m_levels.back().folder) {
            partial();
            drop();
        }
    }

    void drop()
    {
        m_ancestry.pop();
        m_levels.pop_back();
        m_path.resize(m_levels.empty() ? 0 : m_levels.back().pathLength);
    }

    BodyfileWriter& m_writer;
    const StopFlag& m_stop;
    FolderBatch m_batch;
    Ancestry m_ancestry;
    std::vector<Level> m_levels;
    std::string m_path; ///< of the current folder; empty: the root
    std::uint64_t m_device = 0;
};

Result<Done> BodyfileWriter::write(const std::string& folder, const StopFlag& stop)
{
    // The folder itself may be named through a link.
    FolderHandle root(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
    if (!root)
        return Error{errorText(errno)};
    FolderWalk(*this, stop).from(std::move(root));
    return Done{};
}

} // namespace pryvane
