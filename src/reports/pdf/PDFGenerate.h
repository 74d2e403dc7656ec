#pragma once

#include "core/Result.h"
#include "reports/ReportAppendix.h"
#include "reports/SpywareScanReport.h"

#include <string>

namespace pryvane {

class FileSystem;
class MachineInfo;

/// What stands on the page besides the report itself.
struct PDFFacts {
    std::string applicationName = "Pryvane"; ///< CFBundleName
    std::string shortVersion;                ///< CFBundleShortVersionString
    std::string buildVersion;                ///< CFBundleVersion
    std::string cachesFolder; ///< host path, raw bytes; "Report.PDF" is written there
};

/// Writes a report as a PDF document: a pure layout first, then a painter. Needs no display. Two
/// documents may be written at the same time, each by its own PDFGenerate. Programs that link this
/// are passed to the build's pryvane_uses_modules(), so that they find the painter.
class PDFGenerate {
public:
    /// `disk` is the volume whose present state decides between "Quarantined" and "Not
    /// Quarantined". Of a report of another volume, and of locations that it cannot search, it says
    /// "Not Checked".
    PDFGenerate(PDFFacts facts, FileSystem& disk, MachineInfo& machine);

    /// Writes "Report.PDF" into the caches folder, which is made where it is missing, and returns
    /// its host path. An older one is replaced only once the new one is whole.
    [[nodiscard]] Result<std::string> createPDFFileFor(const SpywareScanReport& report);

    /// The same to a file of the caller's choice, with the appendix behind it where there is one.
    [[nodiscard]] Result<Done> createPDF(const SpywareScanReport& report, const std::string& path,
                                         const ReportAppendix* appendix = nullptr);

    /// The host path of "Report.PDF", whether it is there or not.
    [[nodiscard]] std::string reportFile() const;

    /// The folder in which "Report.PDF" is written, as a host path.
    [[nodiscard]] const std::string& applicationCacheDirectory() const;

private:
    PDFFacts m_facts;
    FileSystem& m_disk;
    MachineInfo& m_machine;
};

} // namespace pryvane
