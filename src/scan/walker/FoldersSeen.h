#pragma once

#include "core/ThreadSafety.h"
#include "volume/folders/FolderHandle.h"

#include <array>
#include <cstddef>
#include <unordered_set>

namespace pryvane {

/// The folders that one walk has entered, for a disk that shows one in several places: each is
/// looked at where the walk meets it first. Callable from any thread.
class FoldersSeen {
public:
    /// Whether this is the first time.
    [[nodiscard]] bool isFirst(const FolderId& id)
    {
        Part& part = m_parts[id.inode % m_parts.size()];
        const MutexLock lock(part.mutex);
        return part.ids.insert(id).second;
    }

private:
    struct Hash {
        std::size_t operator()(const FolderId& id) const { return id.inode ^ (id.device << 40); }
    };
    struct Part { // so that threads rarely wait for each other
        Mutex mutex;
        std::unordered_set<FolderId, Hash> ids GUARDED_BY(mutex);
    };
    std::array<Part, 16> m_parts;
};

} // namespace pryvane
