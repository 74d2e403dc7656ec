#pragma once

#include "support/TemporaryFolder.h"
#include "volume/VolumeFileSystem.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

namespace pryvane {

/// What a test's name tells of it.
inline void PrintTo(Confinement confinement, std::ostream* out)
{
    *out << (confinement == Confinement::ComponentWalk ? "ComponentWalk" : "BestAvailable");
}

} // namespace pryvane

/// What the tests of the volume share.
namespace pryvane::test {

[[nodiscard]] inline FileURL at(std::string_view path)
{
    return FileURL::fileURLWithPath(path);
}

/// The folder opened as a volume.
[[nodiscard]] inline std::unique_ptr<VolumeFileSystem>
volumeAt(const TemporaryFolder& folder, NameMatching matching,
         Confinement confinement = Confinement::BestAvailable)
{
    return std::move(VolumeFileSystem::open(folder.path(), {matching, confinement}).value());
}

/// Allocated bytes at and below a path of the host, by plain recursion.
[[nodiscard]] std::int64_t naiveSize(const std::filesystem::path& path);

/// Runs `body` in a child process, which may change its root or its user, and returns its answer.
/// A child that dies gives a test failure.
[[nodiscard]] std::string inChild(const std::function<std::string()>& body);

/// The answer of a child that runs as a user without rights. When already without, runs as is.
[[nodiscard]] std::string asNobody(const std::function<std::string()>& body);

} // namespace pryvane::test
