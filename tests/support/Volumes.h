#pragma once

#include "support/TemporaryFolder.h"
#include "volume/VolumeFileSystem.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <vector>

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

/// A number from the environment, for sizes that sanitizers and slow machines want smaller.
[[nodiscard]] int sizeAsked(const char* variable, int otherwise);

/// Lets temporary folders that are made during its life lie in memory, where the host has such a
/// place: there calls take microseconds, so that an attacker meets thousands of them.
class InMemory {
public:
    InMemory();
    ~InMemory();
    InMemory(const InMemory&) = delete;
    InMemory& operator=(const InMemory&) = delete;

private:
    std::optional<std::string> m_before;
};

/// Fills a folder with so many nested entries of all that a disk may hold: files, some of holes or
/// with two names, links to anywhere, pipes, and names of any bytes or such as a scan looks for.
void growTree(const TemporaryFolder& disk, const std::string& folder, std::mt19937& random,
              int entries);

/// Makes an empty file in an open folder.
void makeFile(int folder, const std::string& name);

/// Makes so many entries in an open folder, every fourth a folder, the others files.
void growWide(int folder, const std::string& name, int width);

/// Nests so many folders of that name in an open one, however deep that is, and gives the last.
/// `each` is called with every one of them.
UniqueFd growChain(
    int folder, const std::string& name, int depth,
    const std::function<void(int folder)>& each = [](int) {});

/// The folder itself, opened.
[[nodiscard]] UniqueFd openedFolder(const TemporaryFolder& folder, std::string_view path = {});

/// The names in a folder, sorted.
[[nodiscard]] inline std::vector<std::string> namesOf(const FolderListing& listing)
{
    std::vector<std::string> names;
    for (const FolderEntry& entry : listing.entries)
        names.push_back(entry.name);
    std::ranges::sort(names);
    return names;
}

/// Allocated bytes at and below a path of the host, by plain recursion.
[[nodiscard]] std::int64_t naiveSize(const std::filesystem::path& path);

/// Runs `body` in a child process, which may change its root or its user, and returns its answer.
/// A child that dies gives a test failure.
[[nodiscard]] std::string inChild(const std::function<std::string()>& body);

/// The answer of a child that runs as a user without rights. When already without, runs as is.
[[nodiscard]] std::string asNobody(const std::function<std::string()>& body);

} // namespace pryvane::test
