#include "volume/VolumeIdentity.h"

#include <cstdio>

namespace pryvane {

namespace {

std::string hex(std::uint64_t number)
{
    char text[17];
    const int length =
        std::snprintf(text, sizeof text, "%llx", static_cast<unsigned long long>(number));
    return {text, static_cast<std::size_t>(length)};
}

/// Empty where nothing tells.
std::string volumeText(const FolderMarks& marks)
{
    if (!marks.volume)
        return marks.fileSystemLasts && marks.fileSystem != 0 ? hex(marks.fileSystem)
                                                              : std::string();
    std::string text;
    for (const std::uint8_t byte : *marks.volume) {
        char digits[3];
        static_cast<void>(std::snprintf(digits, sizeof digits, "%02x", byte));
        text += digits;
    }
    return text;
}

} // namespace

FolderIdentity identityOf(const FolderMarks& marks)
{
    const std::string volume = volumeText(marks);
    const BirthTime made = marks.made.value_or(BirthTime());
    return {(volume.empty() ? "0" : volume) + "-" + hex(marks.inode) + "-" +
                hex(static_cast<std::uint64_t>(made.seconds)) + "." +
                hex(static_cast<std::uint64_t>(made.nanoseconds)),
            !volume.empty() && marks.made.has_value()};
}

std::optional<FolderIdentity> folderIdentity(int folder)
{
    const auto marks = folderMarks(folder);
    return marks ? std::optional(identityOf(*marks)) : std::nullopt;
}

} // namespace pryvane
