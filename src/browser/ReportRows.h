#pragma once

#include "reports/ReportFacts.h"
#include "reports/SpywareScanReport.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

enum class ReportFilter : std::uint8_t { All, Found, Clean };

/// What a row of the report list shows; texts are escaped for display.
struct ReportRow {
    std::string when; ///< relative to now
    std::string date; ///< the same as date and time
    std::string kind;
    std::string mac; ///< whose disk and which user's
    bool hasThreats = false;
    std::string duration;
    Rgba redGreen;
    std::string openTrash; ///< name of the action icon
};

/// What is stored of each report beside its findings, with what a search looks through, one text a
/// report. Made on any thread.
struct SearchableReports {
    explicit SearchableReports(std::vector<ReportFacts> list = {});

    std::vector<ReportFacts> reports; ///< newest first
    std::vector<std::string> texts;   ///< letter case folded
};

/// The stored reports, and which of them are shown. Texts are made for the rows that are looked at
/// only, so that ten thousand reports cost no more than a screenful. Main thread only.
class ReportRows {
public:
    /// `now` is what relative dates are relative to. Returns the list before.
    SearchableReports setReports(SearchableReports reports, Date now);
    void remove(std::string_view reportId);
    void setNow(Date now) { m_now = now; }

    void setFilter(ReportFilter filter);
    [[nodiscard]] ReportFilter filter() const { return m_filter; }

    /// Shows only reports that have all these words in their kind, date or threat names; letter
    /// case does not matter.
    void setSearch(std::string_view words);

    [[nodiscard]] const std::vector<ReportFacts>& reports() const { return m_list.reports; }
    [[nodiscard]] std::size_t size() const { return m_shown.size(); }
    [[nodiscard]] const ReportFacts& report(std::size_t row) const
    {
        return m_list.reports[m_shown[row]];
    }
    /// The row of the newest report that is older and of the same disk, of the same users where
    /// there is one; none where the disk cannot be told from others.
    [[nodiscard]] std::optional<std::size_t> previousOf(std::size_t row) const;

    /// Where the row's report stands in reports().
    [[nodiscard]] std::size_t listIndex(std::size_t row) const { return m_shown[row]; }

    [[nodiscard]] ReportRow row(std::size_t row) const;

private:
    void choose();
    [[nodiscard]] bool isFound(std::size_t index) const;

    SearchableReports m_list;
    Date m_now{};
    ReportFilter m_filter = ReportFilter::All;
    std::vector<std::string> m_words; ///< folded
    std::vector<std::size_t> m_shown;
};

} // namespace pryvane
