#include "browser/ReportRows.h"

#include "core/Escape.h"

#include <algorithm>
#include <sstream>

namespace pryvane {

namespace {

std::string searchableText(const ReportFacts& report)
{
    std::string text = report.reportType + '\n' + localDateText(report.scanDate) + '\n' +
                       diskName(report.subject, report.labels) + '\n' + userNames(report.subject);
    for (const auto& threat : report.threats)
        text += '\n' + threat;
    return lowerAscii(text);
}

} // namespace

SearchableReports::SearchableReports(std::vector<ReportFacts> list) : reports(std::move(list))
{
    texts.reserve(reports.size());
    for (const auto& report : reports)
        texts.push_back(searchableText(report));
}

SearchableReports ReportRows::setReports(SearchableReports reports, Date now)
{
    std::swap(m_list, reports);
    m_now = now;
    choose();
    return reports;
}

void ReportRows::remove(std::string_view reportId)
{
    std::vector<ReportFacts>& reports = m_list.reports;
    const auto gone = std::find_if(reports.begin(), reports.end(),
                                   [&](const auto& report) { return report.reportId == reportId; });
    if (gone == reports.end())
        return;
    m_list.texts.erase(m_list.texts.begin() + (gone - reports.begin()));
    reports.erase(gone);
    choose();
}

void ReportRows::setFilter(ReportFilter filter)
{
    m_filter = filter;
    choose();
}

void ReportRows::setSearch(std::string_view words)
{
    m_words.clear();
    std::istringstream stream(lowerAscii(words));
    for (std::string word; stream >> word;)
        m_words.push_back(word);
    choose();
}

bool ReportRows::isFound(std::size_t index) const
{
    const std::string& text = m_list.texts[index];
    return std::all_of(m_words.begin(), m_words.end(), [&](const std::string& word) {
        return text.find(word) != std::string::npos;
    });
}

void ReportRows::choose()
{
    m_shown.clear();
    for (std::size_t i = 0; i < m_list.reports.size(); ++i) {
        if (m_filter != ReportFilter::All) {
            const auto wanted = m_filter == ReportFilter::Found ? Verdict::Found : Verdict::Clean;
            if (m_list.reports[i].verdict != wanted)
                continue;
        }
        if (isFound(i))
            m_shown.push_back(i);
    }
}

std::optional<std::size_t> ReportRows::previousOf(std::size_t row) const
{
    const ReportFacts& later = report(row);
    std::optional<std::size_t> found;
    for (std::size_t other = row + 1; other < size(); ++other) {
        const ReportFacts& earlier = report(other);
        if (!isSameVolume(earlier.volume, later.volume))
            continue;
        if (earlier.subject.users == later.subject.users)
            return other;
        found = found.value_or(other);
    }
    return found;
}

ReportRow ReportRows::row(std::size_t row) const
{
    const ReportFacts& shown = report(row);
    return {sinceText(shown.scanDate, m_now),
            localDateText(shown.scanDate),
            forScreen(shown.reportType),
            shown.subject.isKnown() ? forScreen(diskName(shown.subject, shown.labels)) + ", " +
                                          forScreen(userNames(shown.subject))
                                    : kNotKnown,
            shown.hasThreats(),
            forScreen(shown.scanDuration),
            shown.isRed ? kReportRed : kReportGreen,
            shown.hasThreats() ? "btn_open.tiff" : "btn_trash.tiff"};
}

} // namespace pryvane
