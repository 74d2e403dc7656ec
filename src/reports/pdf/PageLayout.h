#pragma once

#include "reports/pdf/PageOps.h"

#include <vector>

namespace pryvane::pdf {

class TextMeasure;
struct ReportTexts;

/// Places a report on pages: a title block, the facts, a table with one row per finding, a frame
/// and a number on each page. A row too tall for any page goes on over as many as it takes.
[[nodiscard]] std::vector<Page> layOut(const ReportTexts& texts, TextMeasure& measure);

} // namespace pryvane::pdf
