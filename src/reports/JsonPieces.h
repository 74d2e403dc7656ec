#pragma once

#include "findings/ScanCoverage.h"
#include "findings/Spyware.h"
#include "findings/Subject.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

/// What several JSON forms have in common. Texts are escaped; null stands for what is not known.
namespace pryvane {

using Json = nlohmann::ordered_json;

[[nodiscard]] Json textOrNull(std::string_view bytes);
[[nodiscard]] Json dateOrNull(DiskMoment date); ///< ISO 8601 in UTC
[[nodiscard]] Json namesJson(const std::vector<std::string>& names);

/// Adds "path", as text, and "url", the same with its exact bytes.
void addLocation(Json& object, const FileURL& url);

/// Adds "kind", "birth", "modified", "changed" and "sha256": what was there when it was found.
void addFileFacts(Json& object, const Spyware& record);

[[nodiscard]] Json subjectJson(const Subject& subject, const std::string& volume,
                               const std::string& sha256);
[[nodiscard]] Json coverageJson(const ScanCoverage& coverage);

} // namespace pryvane
