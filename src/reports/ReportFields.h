#pragma once

#include "core/SharedText.h"
#include "core/Texts.h"
#include "findings/CaseLabels.h"
#include "findings/ScanCoverage.h"
#include "findings/Spyware.h"
#include "findings/Subject.h"
#include "reports/CborReader.h"
#include "reports/CborWriter.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {
class SpywareScanReport;
}

/// The parts that the stored forms of a report have in common. Readers are safe on any bytes, and
/// pass over keys that they do not know.
namespace pryvane::stored {

inline constexpr std::uint64_t kSelfDescribedTag = 55799;
inline constexpr std::uint64_t kCountMask = 0xff; ///< what is stored of the count

namespace key {
inline constexpr std::string_view kSpyWareCount = "spyWareCount", kReportType = "reportType",
                                  kScanDate = "scanDate", kSpyWareList = "spyWareList",
                                  kScanDuration = "scanDuration", kReportId = "reportId",
                                  kIsRed = "isRed", kVolume = "volume", kCoverage = "coverage",
                                  kFindings = "findings", kThreats = "threats",
                                  kSubject = "subject", kVerdict = "verdict",
                                  kVerdictLine = "verdictLine", kSeconds = "seconds",
                                  kSource = "source", kName = "name", kInfections = "infections",
                                  kPath = "path", kLabels = "labels";
} // namespace key

[[nodiscard]] Date readDate(CborReader& in);
void writeNames(CborWriter& out, const std::vector<std::string>& names);
[[nodiscard]] std::vector<std::string> readNames(CborReader& in);
[[nodiscard]] Subject readSubject(CborReader& in);
[[nodiscard]] CaseLabels readLabels(CborReader& in);

void writeCoverage(CborWriter& out, const ScanCoverage& coverage);
[[nodiscard]] ScanCoverage readCoverage(CborReader& in);

void writeRecord(CborWriter& out, const Spyware& record);
/// The stored "isChecked" is not read: whether a record is selected follows the disk.
[[nodiscard]] std::shared_ptr<Spyware> readRecord(CborReader& in, SharedTexts& texts);

/// All that readHeadField() reads, so many keys.
[[nodiscard]] std::size_t headKeys(const SpywareScanReport& report);
void writeHead(CborWriter& out, const SpywareScanReport& report);

/// Reads a field that all stored forms have. False, with nothing read, where the key is none of
/// these.
template <typename Form>
bool readHeadField(CborReader& in, std::string_view key, Form& form)
{
    if (key == key::kSpyWareCount)
        form.spyWareCount = static_cast<std::uint64_t>(in.integer()) & kCountMask;
    else if (key == key::kReportType)
        form.reportType = in.string();
    else if (key == key::kScanDate)
        form.scanDate = readDate(in);
    else if (key == key::kScanDuration)
        form.scanDuration = in.string();
    else if (key == key::kReportId)
        form.reportId = in.string();
    else if (key == key::kIsRed)
        form.isRed = in.boolean();
    else if (key == key::kVolume)
        form.volume = in.string();
    else if (key == key::kSubject)
        form.subject = readSubject(in);
    else if (key == key::kLabels)
        form.labels = readLabels(in);
    else
        return false;
    return true;
}

} // namespace pryvane::stored
