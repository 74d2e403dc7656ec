#pragma once

#include "findings/Spyware.h"
#include "signatures/Catalogue.h"

namespace pryvane {

/// Whether the record stands for remote desktop, which is switched off rather than removed.
[[nodiscard]] inline bool isRemoteDesktop(const Spyware& record)
{
    return record.name == catalogue::kRemoteDesktopName;
}

} // namespace pryvane
