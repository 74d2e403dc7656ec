#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

namespace pryvane {

/// Whether the kernel can hold a thread to some folders.
enum class KernelConfinement : std::uint8_t { Enforced, NotAvailable };

/// What this host offers; asked of the kernel once.
[[nodiscard]] KernelConfinement kernelConfinementOfRemoval();

/// The same in words for --version: "Landlock, version 4" or why there is none.
[[nodiscard]] std::string_view kernelConfinementText();

/// Runs the work on a thread of its own and waits for it. Where the kernel can, that thread may
/// create, write or remove only below the open folders; reading stays free. What the work throws is
/// thrown here.
KernelConfinement runConfined(std::span<const int> writableFolders,
                              const std::function<void()>& work);

} // namespace pryvane
