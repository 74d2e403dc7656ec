#pragma once

#include "core/Texts.h"
#include "findings/CaseLabels.h"
#include "findings/Subject.h"
#include "findings/Verdict.h"

#include <cstdint>
#include <string>
#include <vector>

namespace pryvane {

/// What a list shows of a stored report, without its findings.
struct ReportFacts {
    std::string reportId;
    std::string reportType;
    std::string scanDuration;
    std::string volume; ///< identity of the volume that was scanned
    Subject subject;    ///< whose disk that is
    CaseLabels labels;  ///< what was said of it
    Verdict verdict = Verdict::Incomplete;
    std::string verdictLine;
    bool tellsVerdict = false; ///< false in the facts of older reports, as they are stored
    Date scanDate{};
    double seconds = 0; ///< how long the scan took; 0 in older reports
    bool isRed = false;
    std::uint64_t spyWareCount = 0;   ///< its low 8 bits
    std::uint64_t findings = 0;       ///< all of them
    std::vector<std::string> threats; ///< their names, each once

    [[nodiscard]] bool hasThreats() const { return findings != 0 || spyWareCount != 0; }
};

} // namespace pryvane
