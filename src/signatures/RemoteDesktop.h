#pragma once

#include "findings/Spyware.h"
#include "signatures/Catalogue.h"

namespace pryvane {

/// Whether the record stands for remote desktop, which is switched off rather than removed. Known
/// by its kind: any file may be called as the record is.
[[nodiscard]] inline bool isRemoteDesktop(const Spyware& record)
{
    return record.infections == catalogue::kRemoteDesktop;
}

} // namespace pryvane
