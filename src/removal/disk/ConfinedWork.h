#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace pryvane {

/// Whether the kernel holds a thread to some folders.
enum class KernelConfinement : std::uint8_t {
    Enforced,
    NotAvailable, ///< this kernel cannot
    Refused,      ///< it could, and does not
};

struct ConfinementState {
    KernelConfinement kind = KernelConfinement::NotAvailable;
    std::string reason; ///< of a refusal, in the system's words
};

/// What this host does; tried out once.
[[nodiscard]] KernelConfinement kernelConfinementOfRemoval();

/// Where it is tried out: on a thread made for it, or, for a program that ends behind it, on the
/// calling one, which gives up for good what a removal does without.
enum class TriedOn : std::uint8_t { OwnThread, CallingThread };

/// The same in words for --version: "confined ... by Landlock, version 4" or why it is not.
[[nodiscard]] std::string_view kernelConfinementText(TriedOn thread = TriedOn::OwnThread);

/// Whether the calling thread is one that runConfined() made and the kernel holds.
[[nodiscard]] bool isThisThreadConfined();

/// Runs the work on a thread of its own and waits for it. Where the kernel can, that thread may
/// only remove, and move folders, and only below the open folders; reading stays free. Otherwise it
/// runs all the same, and what is returned says so. What the work throws is thrown here.
ConfinementState runConfined(std::span<const int> folders, const std::function<void()>& work);

/// Gives up, for the calling thread and for good, every right to change anything that does not lie
/// below the open folders, and to make or write anything there. Where the kernel cannot do that,
/// nothing is given up.
[[nodiscard]] ConfinementState confineThisThread(std::span<const int> folders);

} // namespace pryvane
