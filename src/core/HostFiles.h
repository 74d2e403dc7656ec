#pragma once

#include <string_view>

/// What each system does in a way of its own with any file; CMake chooses the file that does it.
namespace pryvane {

/// Puts a file, or a folder's entries, on the device itself, as far as the host and its file system
/// can. 0, or -1 with errno set.
[[nodiscard]] int syncToDevice(int fd);

/// The same for a file's content and length, without its times.
[[nodiscard]] int syncContentToDevice(int fd);

/// What an errno means on this host where the C library's words say too little; else empty.
[[nodiscard]] std::string_view hostsOwnErrorText(int error);

} // namespace pryvane
