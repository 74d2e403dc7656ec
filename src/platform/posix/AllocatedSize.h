#pragma once

#include "platform/posix/UniqueFd.h"

#include <cstdint>

namespace pryvane {

/// The allocated bytes of everything below an open folder (opened for reading): 512-byte blocks ×
/// 512 of all entries that are not folders, once per name, links not followed. What cannot be read
/// counts 0. Needs a bounded number of descriptors, however deep the folders are nested.
[[nodiscard]] std::int64_t allocatedSizeBelow(UniqueFd folder);

} // namespace pryvane
