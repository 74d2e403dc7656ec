#include "reports/SpywareScanReport.h"

#include <array>
#include <random>
#include <sys/random.h>
#include <unistd.h>

namespace pryvane {

namespace {

/// A fresh random UUID (version 4).
std::string uniqueText()
{
    std::array<unsigned char, 16> random{};
    if (getentropy(random.data(), random.size()) != 0) {
        std::random_device device;
        for (auto& byte : random)
            byte = static_cast<unsigned char>(device());
    }
    random[6] = static_cast<unsigned char>((random[6] & 0x0f) | 0x40);
    random[8] = static_cast<unsigned char>((random[8] & 0x3f) | 0x80);

    std::string text;
    for (std::size_t i = 0; i < random.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            text += '-';
        text += "0123456789ABCDEF"[random[i] >> 4];
        text += "0123456789ABCDEF"[random[i] & 0xf];
    }
    return text;
}

} // namespace

std::shared_ptr<SpywareScanReport>
SpywareScanReport::ScanReportWithSpywareList(std::shared_ptr<SpywareList> list, Date date,
                                             std::string_view durations,
                                             std::string_view reportType, Date now)
{
    auto report = std::make_shared<SpywareScanReport>();
    report->spyWareCount = list->size();
    report->isRed = !list->empty();
    report->spyWareList = std::move(list);
    report->reportType = reportType;
    report->scanDate = date;
    report->scanDuration = durations;
    report->reportId = uniqueText();
    report->derive(now);
    return report;
}

SpywareScanReport SpywareScanReport::independentCopy() const
{
    SpywareScanReport copy = *this;
    copy.spyWareList = std::make_shared<SpywareList>();
    for (const auto& record : *spyWareList)
        copy.spyWareList->push_back(std::make_shared<Spyware>(*record));
    return copy;
}

std::string SpywareScanReport::countText() const
{
    const std::string count = std::to_string(spyWareCount);
    return spyWareCount == spyWareList->size()
               ? count
               : count + " (" + std::to_string(spyWareList->size()) + " listed)";
}

void SpywareScanReport::derive(Date now)
{
    reportDateDisplay = relativeDateStringForDate(scanDate, now);
    redGreen = isRed ? kReportRed : kReportGreen;
    openTrash = hasThreats() ? "btn_open.tiff" : "btn_trash.tiff";
}

} // namespace pryvane
