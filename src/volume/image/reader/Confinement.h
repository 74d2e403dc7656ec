#pragma once

#include <string>
#include <vector>

namespace pryvane {

/// What the kernel holds this process to.
struct Confinement {
    std::string refused; ///< what it does not do and should; empty: all went well
    /// False where the kernel has no Landlock: any file can be opened for reading until
    /// confineFurther().
    bool toFiles = false;
};

/// From here on this process can read those files, the descriptors it holds and nothing else, has
/// no network, starts no program and takes bounded memory and time.
[[nodiscard]] Confinement confineTo(const std::vector<std::string>& files);

enum class Opening : bool { TheSameFiles, Nothing };

/// To be called when the image is open: takes away what was needed for that. False where the kernel
/// refuses.
[[nodiscard]] bool confineFurther(Opening stillNeeded);

} // namespace pryvane
