#include "reports/ReportBundle.h"

#include "core/Escape.h"
#include "core/Files.h"
#include "core/Sha256.h"
#include "reports/JsonLines.h"
#include "reports/ReportExport.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace pryvane {

namespace {

/// The files of one bundle, which go again unless all could be written.
class Bundle {
public:
    explicit Bundle(const std::string& folder) : m_folder(folder) {}
    ~Bundle()
    {
        if (m_done)
            return;
        for (const std::string& name : m_names)
            unlink(path(name).c_str());
        rmdir(m_folder.c_str());
    }
    Bundle(const Bundle&) = delete;
    Bundle& operator=(const Bundle&) = delete;

    void add(const std::string& name, const DocumentWriter& write)
    {
        if (!m_written)
            return;
        m_names.push_back(name);
        m_written = write(path(name));
        if (m_written)
            addSum(name);
    }

    void addText(const std::string& name, const std::function<void(const TextSink&)>& fill)
    {
        add(name, [&](const std::string& path) { return writeWholeFile(path, fill); });
    }

    [[nodiscard]] Result<Done> finish()
    {
        const std::string sums = m_sums;
        addText("SHA256SUMS", [&](const TextSink& sink) { sink(sums); });
        m_done = m_written.ok();
        return m_written;
    }

private:
    [[nodiscard]] std::string path(const std::string& name) const { return m_folder + "/" + name; }

    /// Of what the disk holds now.
    void addSum(const std::string& name)
    {
        Sha256 hash;
        std::array<char, 65536> piece{};
        const UniqueFd fd(open(path(name).c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
        for (ssize_t got = 1; got != 0;) {
            got = fd ? read(fd.get(), piece.data(), piece.size()) : -1;
            if (got < 0 && fd && errno == EINTR)
                continue;
            if (got < 0) {
                m_written =
                    Error{forScreen(path(name)) + " cannot be read back: " + errorText(errno)};
                return;
            }
            hash.add({piece.data(), static_cast<std::size_t>(got)});
        }
        m_sums += hash.hex() + "  " + name + "\n";
    }

    const std::string m_folder;
    std::vector<std::string> m_names;
    std::string m_sums;
    Result<Done> m_written = Done{};
    bool m_done = false;
};

} // namespace

Result<Done> writeReportBundle(const std::string& folder, const SpywareScanReport& report,
                               const ReportAppendix* appendix, const DocumentWriter& writePdf)
{
    if (mkdir(folder.c_str(), S_IRWXU) != 0) {
        if (errno == EEXIST)
            return Error{forScreen(folder) +
                         " is there already, and a bundle is never written over; name another "
                         "folder"};
        return Error{"the folder " + forScreen(folder) + " cannot be made: " + errorText(errno)};
    }
    Bundle bundle(folder);
    bundle.add("report.pdf", writePdf);
    bundle.addText("report.html",
                   [&](const TextSink& sink) { writeAsHtml(report, sink, appendix); });
    bundle.addText("report.json",
                   [&](const TextSink& sink) { writeAsJson(report, sink, appendix); });
    bundle.addText("report.jsonl",
                   [&](const TextSink& sink) { writeReportLines(report, sink, appendix); });
    bundle.addText("findings.csv", [&](const TextSink& sink) { writeAsCsv(report, sink); });
    bundle.addText("timeline.csv", [&](const TextSink& sink) { writeAsTimeline(report, sink); });
    return bundle.finish();
}

} // namespace pryvane
