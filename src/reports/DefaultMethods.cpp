#include "reports/DefaultMethods.h"

#include "core/Escape.h"
#include "platform/Clock.h"
#include "platform/Messages.h"
#include "platform/ReportStore.h"
#include "platform/UserDefaults.h"
#include "reports/RecordAvailability.h"
#include "reports/ReportCodec.h"

#include <algorithm>

namespace pryvane {

namespace {

constexpr std::size_t kReadAhead = 1 << 20; // bytes, where all reports are read
constexpr std::string_view kOlder = preferences::kSaveReport;

NewReport rowFor(const SpywareScanReport& report)
{
    return {report.reportId, encodeFacts(report),
            [&report](const PieceSink& sink) { return encodeReport(report, sink); }};
}

ReportFacts factsOf(const SpywareScanReport& report)
{
    auto facts = decodeFacts(encodeFacts(report));
    return facts ? std::move(facts).value() : ReportFacts();
}

} // namespace

/// Reads pieces one after the other, some ahead, so that many small reports take few looks at the
/// store.
class DefaultMethods::Pieces {
public:
    Pieces(ReportStore& store, std::size_t ahead) : m_store(store), m_ahead(ahead) {}

    /// Null where that piece is not there. Good until the next call.
    Result<const std::string*> at(std::int64_t place, std::int64_t number)
    {
        const auto wanted = [&](const StoredPiece& piece) {
            return piece.place == place && piece.number == number;
        };
        while (m_next < m_read.size() && !wanted(m_read[m_next]))
            ++m_next;
        if (m_next == m_read.size()) {
            auto read = m_store.pieces(place, number, m_ahead);
            if (!read)
                return read.error();
            m_read = std::move(read).value();
            m_next = 0;
        }
        return m_next < m_read.size() && wanted(m_read[m_next]) ? &m_read[m_next].value : nullptr;
    }

private:
    ReportStore& m_store;
    const std::size_t m_ahead;
    std::vector<StoredPiece> m_read;
    std::size_t m_next = 0;
};

DefaultMethods::DefaultMethods(UserDefaults& defaults, FileSystem& disk, Clock& clock, Log& log)
    : m_defaults(defaults), m_reports(defaults.reports()), m_disk(disk), m_clock(clock), m_log(log)
{
}

Result<std::vector<ReportFacts>> DefaultMethods::listReports()
{
    std::vector<ReportFacts> list;
    if (const auto older = olderList()) {
        for (const auto& report : *older)
            list.push_back(factsOf(*report));
        return list;
    }
    const auto rows = m_reports.list();
    if (!rows)
        return rows.error();
    list.reserve(rows->size());
    Pieces pieces(m_reports, kReadAhead);
    for (const StoredReport& row : *rows) {
        auto facts = decodeFacts(row.facts);
        if (facts && !facts->tellsVerdict) { // by an older version
            if (const auto report = read(row, pieces))
                facts = factsOf(**report);
        }
        if (facts)
            list.push_back(std::move(facts).value());
        else
            tellDamage("The stored report " + row.id, facts.error());
    }
    return list;
}

Result<std::shared_ptr<SpywareScanReport>> DefaultMethods::loadReport(std::string_view reportId)
{
    auto found = [&]() -> Result<std::shared_ptr<SpywareScanReport>> {
        if (const auto older = olderList()) {
            for (const auto& report : *older) {
                if (report->reportId == reportId)
                    return report;
            }
        } else {
            const auto rows = m_reports.list();
            if (!rows)
                return rows.error();
            for (const StoredReport& row : *rows) {
                if (row.id != reportId)
                    continue;
                Pieces pieces(m_reports, 0);
                auto report = readNewest(row, pieces);
                if (!report || *report)
                    return report;
                break;
            }
        }
        return Error{"The report " + forScreen(reportId) + " is not stored any more."};
    }();
    if (found) {
        (*found)->derive(m_clock.now());
        followDisk(**found, m_disk);
    }
    return found;
}

Result<Done> DefaultMethods::saveListReport(const ReportList& list, std::string_view /*key*/)
{
    auto ready = takeOver();
    return told(
        ready ? m_reports.replaceAll(list.size(), [&](std::size_t i) { return rowFor(*list[i]); })
              : ready);
}

ReportList DefaultMethods::loadListReportWithKey(std::string_view key)
{
    ReportList list = loadListReportWithoutDisk(key);
    followDisk(list, m_disk);
    return list;
}

ReportList DefaultMethods::loadListReportWithoutDisk(std::string_view /*key*/)
{
    ReportList list;
    if (auto older = olderList()) {
        list = std::move(*older);
    } else {
        const auto rows = m_reports.list();
        if (!rows) {
            m_log.line(rows.error().message);
            return list;
        }
        list.reserve(rows->size());
        Pieces pieces(m_reports, kReadAhead);
        for (std::size_t i = rows->size(); i-- > 0;) { // as they lie in the store
            const StoredReport& row = (*rows)[i];
            auto report = readNewest(row, pieces);
            if (report && *report)
                list.push_back(std::move(report).value());
            else if (!report)
                tellDamage("The stored report " + row.id, report.error());
        }
        std::ranges::reverse(list);
    }
    const Date now = m_clock.now();
    for (const auto& report : list)
        report->derive(now);
    return list;
}

Result<Done>
DefaultMethods::updateReportInDefaults(const std::shared_ptr<SpywareScanReport>& report)
{
    auto ready = takeOver();
    return told(ready ? m_reports.put(rowFor(*report)) : ready);
}

Result<bool> DefaultMethods::deleteReport(std::string_view reportId)
{
    if (const auto ready = takeOver(); !ready)
        return ready.error();
    return m_reports.remove(reportId);
}

std::optional<ReportList> DefaultMethods::olderList()
{
    const auto stored = m_defaults.getBytes(kOlder);
    if (!stored)
        return std::nullopt;
    auto list = decodeReports(stored->data);
    if (list)
        return std::move(list).value();
    tellDamage("The list of reports of an earlier version", list.error());
    return std::nullopt;
}

/// Moves the list of an earlier version into rows, once. The older value goes when the rows have
/// been read back; as long as it is there, it is the list, so a crash in between changes nothing.
Result<Done> DefaultMethods::takeOver()
{
    if (!m_defaults.contains(kOlder))
        return Done{};
    std::optional<Error> failure;
    bool damaged = false;
    const auto fill = [&](const std::optional<Bytes>& stored) -> std::optional<Bytes> {
        const auto list = stored ? decodeReports(stored->data) : ReportList();
        damaged = !list;
        if (damaged)
            tellDamage("The list of reports of an earlier version", list.error());
        Result<Done> done = Done{};
        if (damaged)
            done = m_defaults.setAside(kOlder);
        else if (stored)
            done = m_reports.replaceAll(list->size(),
                                        [&](std::size_t i) { return rowFor(*(*list)[i]); });
        if (!done)
            failure = done.error();
        return std::nullopt;
    };
    const auto finish = [&](const std::optional<Bytes>& stored) -> std::optional<Bytes> {
        const auto list = stored ? decodeReports(stored->data) : ReportList();
        if (!stored || !list)
            return std::nullopt;
        failure = sameInRows(*list);
        if (!failure) {
            if (const auto removed = m_defaults.removeObject(kOlder); !removed)
                failure = removed.error();
        }
        return std::nullopt;
    };
    auto outcome = m_defaults.updateBytes(kOlder, fill);
    if (outcome && !failure && !damaged)
        outcome = m_defaults.updateBytes(kOlder, finish);
    return failure ? Result<Done>(*failure) : outcome;
}

/// Why the rows are not that list.
std::optional<Error> DefaultMethods::sameInRows(const ReportList& list)
{
    const auto rows = m_reports.list();
    if (!rows)
        return rows.error();
    bool same = rows->size() == list.size();
    for (std::size_t i = 0; same && i < list.size(); ++i) {
        const auto report = read((*rows)[i]);
        same = report && encodeReports({*report}) == encodeReports({list[i]}) &&
               (*rows)[i].facts == encodeFacts(*list[i]);
    }
    if (same)
        return std::nullopt;
    return Error{"The reports of an earlier version could not be taken over; they stay as they "
                 "are. Check the disk and try again."};
}

Result<std::shared_ptr<SpywareScanReport>> DefaultMethods::read(const StoredReport& row)
{
    Pieces pieces(m_reports, 0);
    return read(row, pieces);
}

Result<std::shared_ptr<SpywareScanReport>> DefaultMethods::read(const StoredReport& row,
                                                                Pieces& pieces)
{
    ReportDecoder decoder;
    for (std::int64_t number = 0; !decoder.isWhole(); ++number) {
        const auto piece = pieces.at(row.place, number);
        if (!piece)
            return piece.error();
        if (!*piece || !decoder.add(**piece))
            return Error{"The report " + forScreen(row.id) + " is damaged: its piece " +
                         std::to_string(number + 1) +
                         (*piece ? " is none of a report." : " is missing.")};
    }
    return decoder.report();
}

/// The report of a row that another program may replace or take out while it is read; none once it
/// is gone.
Result<std::shared_ptr<SpywareScanReport>> DefaultMethods::readNewest(StoredReport row,
                                                                      Pieces& pieces)
{
    constexpr int kTries = 100;
    for (int tries = 1;; ++tries) {
        auto report = read(row, pieces);
        if (report)
            return report;
        const auto rows = m_reports.list();
        if (!rows)
            return rows.error();
        const auto same = std::ranges::find(*rows, row.id, &StoredReport::id);
        if (same == rows->end())
            return std::shared_ptr<SpywareScanReport>();
        if (tries == kTries ||
            std::ranges::find(*rows, row.place, &StoredReport::place) != rows->end())
            return report;
        row = *same;
    }
}

Result<Done> DefaultMethods::told(Result<Done> outcome)
{
    if (!outcome)
        m_log.line("The reports were not saved. " + outcome.error().message);
    return outcome;
}

void DefaultMethods::tellDamage(std::string_view what, const Error& error)
{
    if (m_toldDamage.emplace(what).second)
        m_log.line(forScreen(what) + " cannot be read and is left out (" + error.message +
                   "); it stays stored.");
}

} // namespace pryvane
