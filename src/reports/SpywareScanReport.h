#pragma once

#include "core/Texts.h"
#include "findings/CaseLabels.h"
#include "findings/Spyware.h"
#include "findings/Subject.h"
#include "findings/Verdict.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace pryvane {

/// Red, green, blue, alpha, each from 0 to 1.
struct Rgba {
    double red = 0, green = 0, blue = 0, alpha = 1;
    friend bool operator==(const Rgba&, const Rgba&) = default;
};

inline constexpr Rgba kReportRed{0.7098039215686275, 0.1843137254901961, 0.20784313725490197, 1.0};
inline constexpr Rgba kReportGreen{0.2901960784313726, 0.7529411764705882, 0.33725490196078434,
                                   1.0};

/// What stands in place of a scan's duration when it was stopped.
inline constexpr std::string_view kStopped = "Stopped";

/// One finished scan. Main thread only; a report shares its threat list with whoever made it.
class SpywareScanReport {
public:
    /// A new report with an identity of its own, holding the very list that is passed in. `now`
    /// decides the relative date text.
    [[nodiscard]] static std::shared_ptr<SpywareScanReport>
    ScanReportWithSpywareList(std::shared_ptr<SpywareList> list, Date date,
                              std::string_view durations, std::string_view reportType, Date now);

    /// The report as it is now with records of its own, for another thread.
    [[nodiscard]] SpywareScanReport independentCopy() const;

    /// Whether it lists threats; the stored count alone cannot tell.
    [[nodiscard]] bool hasThreats() const { return spyWareCount != 0 || !spyWareList->empty(); }

    /// How many it lists: "11", or "44 (300 listed)" where the stored count is another.
    [[nodiscard]] std::string countText() const;

    /// Sets what follows from the other fields: reportDateDisplay, redGreen and openTrash.
    void derive(Date now);

    bool isRed = false; ///< whether the report was made with at least one threat
    std::string reportType;
    Date scanDate{};
    std::string reportDateDisplay;
    std::shared_ptr<SpywareList> spyWareList = std::make_shared<SpywareList>();
    std::uint64_t spyWareCount = 0; ///< at creation; the store keeps its low 8 bits only
    std::string scanDuration;
    std::string reportId;
    Rgba redGreen = kReportGreen;
    std::string openTrash; ///< name of the row's action icon

    std::string volume;    ///< identity of the volume that was scanned, as FileSystem gives it
    Subject subject;       ///< whose disk that is
    CaseLabels labels;     ///< what the person who had it made said of it
    ScanCoverage coverage; ///< what the scan looked at

    /// What the scan came to. redGreen and isRed say no more than whether anything was found.
    [[nodiscard]] Verdict verdict() const { return verdictOf(spyWareList->size(), coverage); }
    [[nodiscard]] std::string verdictLine() const
    {
        return pryvane::verdictLine(spyWareList->size(), coverage, subject);
    }
};

using ReportList = std::vector<std::shared_ptr<SpywareScanReport>>;

} // namespace pryvane
