#pragma once

#include "platform/FileSystem.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace pryvane {

/// Which entries of a source are kept by name; of the others only their number and size is. What it
/// knows of a folder is carried along in a value, so that a folder costs one question. Immutable;
/// callable from any thread.
class EntryChoice {
public:
    struct Folder {
        std::uint32_t places = 0;
        std::uint16_t texts = 0;
        std::array<std::uint8_t, 2> homes{};
        bool matched = false;
    };

    virtual ~EntryChoice() = default;

    [[nodiscard]] virtual Folder root() const = 0;
    [[nodiscard]] virtual Folder below(const Folder& folder, std::string_view name) const = 0;

    /// Whether the entry is one that questions may be asked about: what is not kept there is known
    /// to be absent, as far as the source tells.
    [[nodiscard]] virtual bool isPlace(const Folder& folder, std::string_view name) const = 0;

    /// Whether the entry is kept, as a place or for its path.
    [[nodiscard]] virtual bool isKept(const Folder& folder, std::string_view name,
                                      FileKind kind) const = 0;
};

/// Keeps everything.
class EveryEntry final : public EntryChoice {
public:
    [[nodiscard]] Folder root() const override { return {}; }
    [[nodiscard]] Folder below(const Folder&, std::string_view) const override { return {}; }
    [[nodiscard]] bool isPlace(const Folder&, std::string_view) const override { return true; }
    [[nodiscard]] bool isKept(const Folder&, std::string_view, FileKind) const override
    {
        return true;
    }
};

} // namespace pryvane
