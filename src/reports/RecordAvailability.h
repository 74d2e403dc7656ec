#pragma once

#include "reports/SpywareScanReport.h"

namespace pryvane {

class FileSystem;

/// Makes the records of all reports follow the disk as it is now. Each distinct path is tested
/// once; the records of another volume than `disk` are unavailable.
void followDisk(const ReportList& reports, FileSystem& disk);

} // namespace pryvane
