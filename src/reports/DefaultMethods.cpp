#include "reports/DefaultMethods.h"

#include "core/Escape.h"
#include "platform/Clock.h"
#include "platform/Log.h"
#include "platform/UserDefaults.h"
#include "reports/RecordAvailability.h"
#include "reports/ReportCodec.h"

#include <algorithm>

namespace pryvane {

namespace {

auto firstOfIdentity(ReportList& list, std::string_view reportId)
{
    return std::find_if(list.begin(), list.end(),
                        [&](const auto& report) { return report->reportId == reportId; });
}

} // namespace

DefaultMethods::DefaultMethods(UserDefaults& defaults, FileSystem& disk, Clock& clock, Log& log)
    : m_defaults(defaults), m_disk(disk), m_clock(clock), m_log(log)
{
}

Result<Done> DefaultMethods::saveListReport(const ReportList& list, std::string_view key)
{
    return edit(key, [&](ReportList& stored) {
        stored = list;
        return true;
    });
}

ReportList DefaultMethods::loadListReportWithKey(std::string_view key)
{
    ReportList list = loadListReportWithoutDisk(key);
    followDisk(list, m_disk);
    return list;
}

ReportList DefaultMethods::loadListReportWithoutDisk(std::string_view key)
{
    const auto stored = m_defaults.getBytes(key);
    if (!stored)
        return {};
    auto list = decodeReports(stored->data);
    if (!list) {
        tellDamage(key, list.error());
        return {};
    }
    const Date now = m_clock.now();
    for (const auto& report : *list)
        report->derive(now);
    return std::move(list).value();
}

Result<ReportList>
DefaultMethods::updateReportInDefaults(const std::shared_ptr<SpywareScanReport>& report)
{
    ReportList list;
    const auto stored = edit(preferences::kSaveReport, [&](ReportList& current) {
        if (const auto same = firstOfIdentity(current, report->reportId); same != current.end())
            current.erase(same);
        current.insert(current.begin(), report);
        list = current;
        return true;
    });
    if (!stored)
        return stored.error();

    // The given report stays as its owner has it; the others are fresh from the store.
    const ReportList others(list.begin() + 1, list.end());
    const Date now = m_clock.now();
    for (const auto& other : others)
        other->derive(now);
    followDisk(others, m_disk);
    return list;
}

Result<bool> DefaultMethods::deleteReport(std::string_view reportId)
{
    bool found = false;
    const auto stored = edit(preferences::kSaveReport, [&](ReportList& list) {
        const auto report = firstOfIdentity(list, reportId);
        found = report != list.end();
        if (found)
            list.erase(report);
        return found;
    });
    if (!stored)
        return stored.error();
    return found;
}

Result<Done> DefaultMethods::edit(std::string_view key, const Edit& edit)
{
    std::optional<Error> failure;
    const auto change = [&](const std::optional<Bytes>& stored) -> std::optional<Bytes> {
        Result<ReportList> list = stored ? decodeReports(stored->data) : ReportList();
        const bool damaged = !list.ok();
        if (damaged) {
            tellDamage(key, list.error());
            list = ReportList();
        }
        if (!edit(*list))
            return std::nullopt;
        if (damaged) {
            if (const auto aside = m_defaults.setAside(key); !aside) {
                failure = aside.error();
                return std::nullopt;
            }
        }
        return Bytes{encodeReports(*list)};
    };
    const auto stored = m_defaults.updateBytes(key, change);
    if (!failure && !stored)
        failure = stored.error();
    if (!failure)
        return Done{};
    m_log.line("The reports were not saved. " + failure->message);
    return *failure;
}

void DefaultMethods::tellDamage(std::string_view key, const Error& error)
{
    if (m_toldDamage.emplace(key).second)
        m_log.line("The stored reports under " + forScreen(key) + " are damaged (" + error.message +
                   "); the list starts afresh, and the next save keeps a copy of them.");
}

} // namespace pryvane
