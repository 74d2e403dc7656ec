#include "removal/views/Failures.h"

#include "core/Escape.h"
#include "ui/Labels.h"
#include "words/Shown.h"

namespace pryvane {

ui::ReasonsSheet* makeFailuresSheet(QWidget* over, const SpywareList& failed)
{
    std::vector<ui::ReasonsSheet::Row> rows;
    rows.reserve(failed.size());
    for (const auto& record : failed)
        rows.push_back({{},
                        ui::text(forScreen(record->url.relativePath())),
                        ui::shown(forScreen(record->removalFailure))});
    return new ui::ReasonsSheet(over, ui::ReasonsSheet::tr("What could not be removed"),
                                ui::ReasonsSheet::tr("Why it stayed, and what to do"),
                                std::move(rows));
}

} // namespace pryvane
