#include "reports/pdf/PDFGenerate.h"

#include "core/Files.h"
#include "core/LoadedModule.h"
#include "reports/pdf/PageOps.h"
#include "reports/pdf/PdfPainter.h"
#include "reports/pdf/ReportTexts.h"

#include <filesystem>
#include <sys/stat.h>
#include <utility>

namespace pryvane {

PDFGenerate::PDFGenerate(PDFFacts facts, FileSystem& disk, MachineInfo& machine)
    : m_facts(std::move(facts)), m_disk(disk), m_machine(machine)
{
}

Result<std::string> PDFGenerate::createPDFFileFor(const SpywareScanReport& report)
{
    // A fresh account has no such folder yet; that it cannot be made shows when the file is.
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(m_facts.cachesFolder).parent_path(),
                                        ignored);
    static_cast<void>(mkdir(m_facts.cachesFolder.c_str(), S_IRWXU));
    std::string path = reportFile();
    if (auto written = createPDF(report, path); !written)
        return written.error();
    return path;
}

Result<Done> PDFGenerate::createPDF(const SpywareScanReport& report, const std::string& path,
                                    const ReportAppendix* appendix)
{
    const auto module = loadedModule<pdf::PainterModule>();
    if (!module)
        return module.error();
    const auto painter = (*module)->makePainter();
    if (!painter)
        return painter.error();
    auto texts = pdf::reportTexts(report, m_facts, m_disk, m_machine);
    texts.appendix = appendix;
    const auto document = (*painter)->paint(pdf::layOut(texts, **painter), {});
    if (!document)
        return document.error();
    return writeWholeFile(path, *document);
}

std::string PDFGenerate::reportFile() const
{
    return std::filesystem::path(m_facts.cachesFolder) / "Report.PDF";
}

const std::string& PDFGenerate::applicationCacheDirectory() const
{
    return m_facts.cachesFolder;
}

} // namespace pryvane
