#pragma once

#include "inventory/facts/Facts.h"

#include <nlohmann/json.hpp>

namespace pryvane {

/// The facts of one kind as a list of objects. Texts are escaped; moments are ISO 8601 in UTC.
[[nodiscard]] nlohmann::ordered_json factsJson(const Facts& facts, FactKind kind);

/// How reading each source went: path, kind, state and, where it was not read whole, the reason.
[[nodiscard]] nlohmann::ordered_json sourcesJson(const Facts& facts);

} // namespace pryvane
