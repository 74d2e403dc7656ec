#pragma once

#include <cstddef>
#include <optional>

namespace pryvane {

/// Turns the answer of a Mac's getattrlistbulk(), asked for returned attributes, error, name and
/// kind, into what FolderBatch keeps: a FileKind and a NUL-terminated name for each entry, one
/// behind the other from the buffer's beginning. `entries` is how many the kernel says there are.
/// Returns how many bytes are filled; none where the answer is not what the kernel documents, of
/// which nothing is believed then. An entry of which the kernel could tell no kind is Unknown.
[[nodiscard]] std::optional<std::size_t> entriesOfBulk(char* buffer, std::size_t size, int entries);

} // namespace pryvane
