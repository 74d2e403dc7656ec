#pragma once

#include "findings/Subject.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pryvane {

/// What a person calls a disk and whose work a scan of it is. Raw bytes, as they were typed; empty
/// where nothing was said.
struct CaseLabels {
    std::string label;    ///< of the disk
    std::string caseName; ///< what it belongs to
    std::string examiner; ///< who looks at it

    friend bool operator==(const CaseLabels&, const CaseLabels&) = default;
};

/// Those that there are, each behind its name: "Label", "Case", "Examiner".
[[nodiscard]] inline std::vector<std::pair<std::string_view, std::string_view>>
labelLines(const CaseLabels& labels)
{
    std::vector<std::pair<std::string_view, std::string_view>> lines;
    if (!labels.label.empty())
        lines.emplace_back("Label", labels.label);
    if (!labels.caseName.empty())
        lines.emplace_back("Case", labels.caseName);
    if (!labels.examiner.empty())
        lines.emplace_back("Examiner", labels.examiner);
    return lines;
}

/// What lists call the disk, raw bytes: its label where it has one, and whose it is.
[[nodiscard]] inline std::string diskName(const Subject& subject, const CaseLabels& labels)
{
    if (labels.label.empty())
        return macName(subject);
    return labels.label + (subject.isKnown() ? " (" + macName(subject) + ")" : "");
}

} // namespace pryvane
