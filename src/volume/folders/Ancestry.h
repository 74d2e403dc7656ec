#pragma once

#include "volume/folders/FolderHandle.h"

#include <algorithm>
#include <cstdint>
#include <unordered_set>
#include <vector>

namespace pryvane {

/// The folders from the root down to where a walk is, to notice a folder that lies inside itself,
/// as a damaged disk or a mount of a folder below itself may have it.
class Ancestry {
public:
    [[nodiscard]] bool contains(const FolderId& id) const
    {
        const auto nearEnd =
            m_ids.begin() + static_cast<std::ptrdiff_t>(std::min(m_ids.size(), kFewest));
        if (std::find(m_ids.begin(), nearEnd, id) != nearEnd)
            return true;
        return m_deep.contains(key(id)) && std::find(nearEnd, m_ids.end(), id) != m_ids.end();
    }

    void push(const FolderId& id)
    {
        m_ids.push_back(id);
        if (m_ids.size() > kFewest)
            m_deep.insert(key(id));
    }

    void pop()
    {
        if (m_ids.size() > kFewest)
            m_deep.erase(m_deep.find(key(m_ids.back())));
        m_ids.pop_back();
    }

    /// Those of the first `depth` folders.
    [[nodiscard]] Ancestry downTo(std::size_t depth) const
    {
        Ancestry upper;
        for (std::size_t i = 0; i < depth; ++i)
            upper.push(m_ids[i]);
        return upper;
    }

    [[nodiscard]] const FolderId& operator[](std::size_t depth) const { return m_ids[depth]; }
    [[nodiscard]] std::size_t size() const { return m_ids.size(); }

private:
    static constexpr std::size_t kFewest = 64; ///< up to here comparing all is the quickest
    static std::uint64_t key(const FolderId& id) { return id.inode ^ (id.device << 40); }

    std::vector<FolderId> m_ids;
    std::unordered_multiset<std::uint64_t> m_deep; ///< of those beyond kFewest
};

} // namespace pryvane
