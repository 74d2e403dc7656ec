#pragma once

#include "platform/FileSystem.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace pryvane {

/// The links "etc", "tmp" and "var", which lead from a Mac's root into /private. Since macOS 10.15
/// they lie on the system volume while "private" is on the data volume, so that a data volume
/// looked at by itself lacks them. There they are taken as present: what stands behind /tmp for the
/// Mac is in /private/tmp. A small value; unchanging once made.
class ImpliedLinks {
public:
    /// None at all.
    ImpliedLinks() = default;

    /// `kindInRoot` tells the FileKind of a name in the volume's root, links not followed.
    template <typename KindInRoot>
    [[nodiscard]] static ImpliedLinks where(const KindInRoot& kindInRoot)
    {
        ImpliedLinks links;
        if (kindInRoot("private") != FileKind::Folder)
            return links;
        for (std::size_t i = 0; i < kNames.size(); ++i) {
            const FileKind kind = kindInRoot(std::string(kNames[i]));
            if (kind == FileKind::SymbolicLink)
                return {}; // the disk has links of its own
            links.m_implied[i] = kind == FileKind::Missing;
        }
        return links;
    }

    /// Those of the volume whose root is that open folder.
    [[nodiscard]] static ImpliedLinks ofRoot(int rootFd);

    [[nodiscard]] bool any() const { return m_implied != std::array<bool, 3>{}; }

    /// Where the link of exactly that name in the root leads ("private/tmp"), or none.
    [[nodiscard]] std::optional<std::string> targetOf(std::string_view name) const;

    /// The same, whatever the name's letter case and normal form.
    [[nodiscard]] std::optional<std::string> targetOfFolded(std::string_view name) const;

    static constexpr std::array<std::string_view, 3> kNames = {"etc", "tmp", "var"};

private:
    std::array<bool, 3> m_implied{};
};

} // namespace pryvane
