#include "volume/image/reader/NameStream.h"

#include <algorithm>
#include <array>
#include <memory>

namespace pryvane {

namespace {

using frames::Step;

struct CloseFolder {
    void operator()(TSK_FS_DIR* folder) const { tsk_fs_dir_close(folder); }
};
struct CloseFile {
    void operator()(TSK_FS_FILE* file) const { tsk_fs_file_close(file); }
};
using Folder = std::unique_ptr<TSK_FS_DIR, CloseFolder>;
using File = std::unique_ptr<TSK_FS_FILE, CloseFile>;

/// As a Mac shows it: the disk's own slash is a colon.
std::string shownName(const TSK_FS_NAME& name)
{
    std::string shown = name.name != nullptr ? name.name : "";
    std::ranges::replace(shown, '/', ':');
    if (shown.size() > frames::kLongestName)
        shown.resize(frames::kLongestName);
    return shown;
}

/// What the library adds to a root, and what the file system keeps there for itself.
bool isOfTheFileSystem(const TSK_FS_INFO& volume, const TSK_FS_NAME& name, bool inRoot)
{
    if (name.type == TSK_FS_NAME_TYPE_VIRT || name.type == TSK_FS_NAME_TYPE_VIRT_DIR)
        return true;
    return inRoot && TSK_FS_TYPE_ISHFS(volume.ftype) && name.name != nullptr &&
           name.name[0] == '$' && (name.meta_addr < 16 || name.meta_addr > volume.last_inum - 16);
}

Step stepOf(const TSK_FS_FILE& file)
{
    switch (file.name->type) {
    case TSK_FS_NAME_TYPE_DIR:
        return Step::Folder;
    case TSK_FS_NAME_TYPE_REG:
        return Step::File;
    case TSK_FS_NAME_TYPE_LNK:
        return Step::Link;
    case TSK_FS_NAME_TYPE_UNDEF:
        break;
    default:
        return Step::Other;
    }
    if (file.meta == nullptr)
        return Step::Other;
    switch (file.meta->type) {
    case TSK_FS_META_TYPE_DIR:
        return Step::Folder;
    case TSK_FS_META_TYPE_REG:
        return Step::File;
    case TSK_FS_META_TYPE_LNK:
        return Step::Link;
    default:
        return Step::Other;
    }
}

bool isDots(const std::string& name)
{
    return name.empty() || name == "." || name == "..";
}

} // namespace

int NameStream::likeness(TSK_FS_INFO& volume)
{
    constexpr std::array<std::string_view, 5> kFolders = {"Users", "Library", "System",
                                                          "Applications", "private"};
    const Folder root(tsk_fs_dir_open_meta(&volume, volume.root_inum));
    int found = 0;
    const std::size_t size = root ? tsk_fs_dir_getsize(root.get()) : 0;
    for (std::size_t i = 0; i < size; ++i) {
        const TSK_FS_NAME* name = tsk_fs_dir_get_name(root.get(), i);
        if (name != nullptr && name->name != nullptr &&
            std::ranges::find(kFolders, std::string_view(name->name)) != kFolders.end())
            ++found;
    }
    tsk_error_reset();
    return found;
}

void NameStream::sendAll()
{
    std::vector<std::vector<Child>> levels(1);
    m_seen.insert(m_volume.root_inum);
    readFolder(m_volume.root_inum, levels.back());
    // Children are taken from the end, so each level is kept the other way round.
    while (!levels.empty()) {
        if (levels.back().empty()) {
            levels.pop_back();
            if (!levels.empty())
                leave();
            continue;
        }
        const Child next = std::move(levels.back().back());
        levels.back().pop_back();
        m_block.number(static_cast<std::uint8_t>(Step::Folder));
        m_block.text(next.name);
        levels.emplace_back();
        if (!m_seen.insert(next.inode).second)
            refuse("it is another name of a folder that is listed elsewhere");
        else
            readFolder(next.inode, levels.back());
        flush(false);
    }
    flush(true);
}

void NameStream::readFolder(TSK_INUM_T inode, std::vector<Child>& folders)
{
    const Folder folder(tsk_fs_dir_open_meta(&m_volume, inode));
    if (!folder) {
        const char* why = tsk_error_get();
        refuse(why != nullptr ? why : "it cannot be read on this disk");
        tsk_error_reset();
        return;
    }
    const std::size_t size = tsk_fs_dir_getsize(folder.get());
    std::size_t damaged = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const File file(tsk_fs_dir_get(folder.get(), i));
        if (!file || file->name == nullptr) {
            ++damaged;
            continue;
        }
        const TSK_FS_NAME& name = *file->name;
        if ((name.flags & TSK_FS_NAME_FLAG_UNALLOC) != 0 ||
            isOfTheFileSystem(m_volume, name, inode == m_volume.root_inum))
            continue;
        const std::string shown = shownName(name);
        if (!isDots(shown))
            sendEntry(*file, shown, folders);
        flush(false);
    }
    tsk_error_reset();
    if (damaged > 0)
        refuse("not all its entries can be read on this disk");
    std::ranges::reverse(folders);
}

void NameStream::sendEntry(const TSK_FS_FILE& file, const std::string& name,
                           std::vector<Child>& folders)
{
    const Step step = stepOf(file);
    if (step == Step::Folder) {
        folders.push_back({name, file.name->meta_addr});
        return;
    }
    m_block.number(static_cast<std::uint8_t>(step));
    m_block.text(name);
    m_block.number(file.meta != nullptr ? std::int64_t{file.meta->size} : std::int64_t{-1});
    m_block.number(file.meta != nullptr ? std::int64_t{file.meta->mtime} : std::int64_t{-1});
    if (step == Step::Link) {
        const char* target = file.meta != nullptr ? file.meta->link : nullptr;
        m_block.text(
            std::string_view(target != nullptr ? target : "").substr(0, frames::kLongestName));
    }
}

void NameStream::leave()
{
    m_block.number(static_cast<std::uint8_t>(Step::Leave));
}

void NameStream::refuse(std::string_view reason)
{
    m_block.number(static_cast<std::uint8_t>(Step::Refused));
    m_block.text(reason.substr(0, frames::kLongestName));
}

/// A block goes out when it is large enough, or has waited for a second.
void NameStream::flush(bool always)
{
    constexpr std::size_t kEnough = std::size_t{64} * 1024;
    const std::time_t now = std::time(nullptr);
    if (m_block.bytes().empty() || (!always && m_block.bytes().size() < kEnough && now == m_sentAt))
        return;
    m_channel.send(frames::Kind::Entries, m_block.bytes());
    m_block.clear();
    m_sentAt = now;
}

} // namespace pryvane
