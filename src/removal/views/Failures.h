#pragma once

#include "findings/Spyware.h"
#include "ui/Sheet.h"

namespace pryvane {

/// A sheet of what could not be removed, each with the reason and what to do about it.
[[nodiscard]] ui::ReasonsSheet* makeFailuresSheet(QWidget* over, const SpywareList& failed);

} // namespace pryvane
