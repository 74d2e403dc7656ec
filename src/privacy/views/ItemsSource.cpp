#include "privacy/views/ItemsSource.h"

#include "core/Escape.h"
#include "ui/Labels.h"
#include "words/Shown.h"

#include <QObject>

#include <algorithm>

namespace pryvane {

std::vector<ui::Column> ItemsSource::columns()
{
    return {{.title = QObject::tr("To be cleared"), .width = 40},
            {.title = QObject::tr("Item"), .stretches = true},
            {.title = QObject::tr("Size"), .width = 96, .isNumber = true}};
}

const ToolGroup* ItemsSource::shown() const
{
    const auto& groups = m_controller.availbleApp();
    return m_group && *m_group < groups.size() ? &groups[*m_group] : nullptr;
}

bool ItemsSource::hasHeadings() const
{
    return shown() && std::any_of(shown()->List.begin(), shown()->List.end(),
                                  [](const ToolItem& each) { return each.isHeader; });
}

int ItemsSource::count() const
{
    return shown() ? static_cast<int>(shown()->List.size()) : 0;
}

QString ItemsSource::explanation(int row) const
{
    const ToolItem& about = item(row);
    QStringList words;
    if (const auto meaning = meaningOf(about); !meaning.empty())
        words += ui::shown(std::string(meaning));
    if (about.cost == Cost::Dear)
        words += QObject::tr("Cannot be had back, so it is ticked by itself only.");
    else if (std::ranges::any_of(about.AllList, &ToolLocation::isDear))
        words += QObject::tr("What of it cannot be had back stays when it is ticked with others.");
    if (!about.notSeen.empty())
        words += QObject::tr("Not all of it could be looked at: %1.")
                     .arg(ui::shown(forScreen(about.notSeen)));
    else if (!about.isEnabled && !about.isHeader)
        words += QObject::tr("There is nothing to clear.");
    return words.join(QLatin1Char(' '));
}

ui::Cell ItemsSource::cell(int row, int column) const
{
    const ToolItem& about = item(row);
    if (column == Name)
        return {.text = ui::shown(forScreen(about.NameText)),
                .iconName = about.isExt                ? QStringLiteral("extension")
                            : about.cost == Cost::Dear ? QStringLiteral("attention")
                                                       : QString(),
                .tooltip = explanation(row)};
    if (column == Size)
        return {.text = ui::shown(about.sizeText), .number = about.bytes};
    return {};
}

std::optional<bool> ItemsSource::ticked(int row) const
{
    const bool tickable = item(row).isEnabled && m_controller.canTick();
    return tickable ? std::optional(item(row).isChecked) : std::nullopt;
}

void ItemsSource::tick(const std::vector<int>& rows, bool on)
{
    for (const int row : rows)
        m_controller.setChecked(*m_group, static_cast<std::size_t>(row), on);
}

bool ItemsSource::ticksWithOthers(int row) const
{
    return pryvane::ticksWithOthers(item(row));
}

/// What follows the last browser's extensions is of all browsers.
QString ItemsSource::group(int row, int) const
{
    if (shown()->isFromAdware && !item(row).isExt)
        return QObject::tr("All browsers");
    for (int above = row; above >= 0; --above)
        if (item(above).isHeader)
            return ui::shown(forScreen(item(above).NameText));
    return {};
}

/// A heading is shown as the table's own, where anything follows it.
bool ItemsSource::hidden(int row) const
{
    return item(row).isHeader;
}

QString ItemsSource::searchText(int row) const
{
    return cell(row, Name).text;
}

bool ItemsSource::faded(int row) const
{
    return !item(row).isEnabled;
}

} // namespace pryvane
