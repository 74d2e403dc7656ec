#pragma once

#include <string>

/// The catalogue for engines that run on Macs already. Each text ends with a newline. The texts of
/// the deep scan are in none of them: they need every path of a disk.
namespace pryvane::cli {

/// One location a line, "*" standing for a user's folder; a slash at the end asks for a folder.
[[nodiscard]] std::string catalogPaths();

/// A query pack for osquery (JSON): a query for each family over the locations.
[[nodiscard]] std::string osqueryPack();

/// A pack of its own with one query: name fragments in the default folders. They are noisy.
[[nodiscard]] std::string osqueryNamesPack();

/// An artifact for Velociraptor (YAML): locations, and name fragments where asked for.
[[nodiscard]] std::string velociraptorArtifact();

} // namespace pryvane::cli
