#pragma once

#include "core/Result.h"
#include "core/SharedText.h"
#include "platform/ReportStore.h"
#include "reports/ReportFacts.h"
#include "reports/SpywareScanReport.h"

#include <memory>
#include <string>
#include <string_view>

namespace pryvane {

/// The stored form of one report, in pieces of about a mebibyte: a self-describing CBOR map with
/// the first findings, then arrays with the others. Keys may be added to it, and to the facts; who
/// does not know them passes them over.
[[nodiscard]] Result<Done> encodeReport(const SpywareScanReport& report, const PieceSink& sink);

/// Puts the pieces of one report together again. Safe on any bytes. The report is not derived yet,
/// and all its records read as unavailable.
class ReportDecoder {
public:
    /// The next piece; false once what came is no report.
    bool add(std::string_view piece);

    /// Whether all of the report has come.
    [[nodiscard]] bool isWhole() const;

    /// The report; none until it is whole.
    [[nodiscard]] std::shared_ptr<SpywareScanReport> report() const;

private:
    std::shared_ptr<SpywareScanReport> m_report;
    std::uint64_t m_findings = 0; ///< it must have in the end
    SharedTexts m_texts;
    bool m_damaged = false;
};

/// What a list shows of the report, as stored beside it.
[[nodiscard]] std::string encodeFacts(const SpywareScanReport& report);
[[nodiscard]] Result<ReportFacts> decodeFacts(std::string_view bytes);

/// The older stored form of a whole report list: one self-describing CBOR value, which carries
/// paths as the raw bytes they are.
[[nodiscard]] std::string encodeReports(const ReportList& reports);

/// The list that encodeReports() stored, or why the bytes are none. Safe on any bytes. Unknown keys
/// are passed over. The reports are not derived yet, and no record has been looked for on a disk:
/// all read as unavailable.
[[nodiscard]] Result<ReportList> decodeReports(std::string_view bytes);

} // namespace pryvane
