#include "inventory/views/FactsTableSource.h"

#include "core/Escape.h"
#include "ui/Labels.h"
#include "words/Language.h"
#include "words/Shown.h"

#include <QObject>

#include <algorithm>
#include <array>

namespace pryvane {

namespace {

/// Which cells of a fact the columns show; the first column has the place of the tick box.
constexpr std::array<std::array<int, 5>, 3> kCells = {
    {{0, 1, 2, 5, 6}, {0, 1, 2, 4, 5}, {0, 1, 2, 3, -1}}};

/// Which cells of a fact are words of this program; the others stay as the disk has them.
constexpr std::array<std::string_view, 3> kWords = {"12356", "01245", "0123"};

} // namespace

std::vector<ui::Column> FactsTableSource::columns(FactKind kind)
{
    switch (kind) {
    case FactKind::Permissions:
        return {{.width = 8},
                {.title = QObject::tr("Program"), .width = 150, .stretches = true},
                {.title = QObject::tr("Decision"), .width = 66},
                {.title = QObject::tr("What for"), .width = 110, .stretches = true},
                {.title = QObject::tr("Whose"), .width = 94},
                {.title = QObject::tr("On the disk"), .isBelow = true}};
    case FactKind::StartUp:
        return {{.width = 8},
                {.title = QObject::tr("Name"), .stretches = true},
                {.title = QObject::tr("State"), .width = 60},
                {.title = QObject::tr("When"), .isBelow = true},
                {.title = QObject::tr("Whose"), .width = 94},
                {.title = QObject::tr("On the disk"), .width = 196}};
    case FactKind::RemoteAccess:
        break;
    }
    return {{.width = 8},
            {.title = QObject::tr("What"), .width = 230},
            {.title = QObject::tr("State"), .width = 84},
            {.title = QObject::tr("Detail"), .width = 120, .stretches = true},
            {.title = QObject::tr("Whose"), .width = 94}};
}

QString FactsTableSource::shown(const FactRow& row, std::size_t cell) const
{
    const std::string text = forScreen(row.cells[cell]);
    return kWords[static_cast<std::size_t>(m_kind)].find(static_cast<char>('0' + cell)) ==
                   std::string_view::npos
               ? ui::text(text)
               : ui::shown(text);
}

bool FactsTableSource::hasPrograms(FactKind kind)
{
    return kind != FactKind::RemoteAccess;
}

int FactsTableSource::deniedCount() const
{
    const auto& rows = m_controller.table(m_kind).rows;
    return static_cast<int>(
        std::count_if(rows.begin(), rows.end(), [](const FactRow& each) { return each.isDenied; }));
}

int FactsTableSource::count() const
{
    return static_cast<int>(m_controller.table(m_kind).rows.size());
}

ui::Cell FactsTableSource::cell(int row, int column) const
{
    constexpr std::array<const char*, 3> kIcons = {"application", "launch-folder", "link"};
    if (column < 1 || column > 5)
        return {};
    const auto kind = static_cast<std::size_t>(m_kind);
    const int place = kCells[kind][static_cast<std::size_t>(column) - 1];
    if (place < 0)
        return {};
    const QString text = shown(this->row(row), static_cast<std::size_t>(place));
    // No title stands over the second line, where "not known" alone tells nothing.
    const bool isUntitled = m_kind == FactKind::Permissions && column == 5;
    return {.text = isUntitled ? QObject::tr("On the disk: %1").arg(text) : text,
            .iconName = column == 1 ? QString(QLatin1String(kIcons[kind])) : QString()};
}

QString FactsTableSource::group(int row, int) const
{
    return ui::shown(m_controller.table(m_kind).groups[this->row(row).group].title);
}

bool FactsTableSource::hidden(int row) const
{
    const FactRow& fact = this->row(row);
    return (fact.isDenied && !m_choice.denied) ||
           (m_choice.onlyThere && hasPrograms(m_kind) && fact.whereabouts != Whereabouts::There) ||
           (m_choice.user && fact.user != *m_choice.user);
}

QString FactsTableSource::searchText(int row) const
{
    QString text = ui::text(m_controller.searchTexts(m_kind)[static_cast<std::size_t>(row)]);
    for (std::size_t cell = 0; ui::isTranslated() && cell < this->row(row).cells.size(); ++cell)
        text += shown(this->row(row), cell) + QLatin1Char('\n');
    return text;
}

bool FactsTableSource::faded(int row) const
{
    return this->row(row).whereabouts == Whereabouts::Missing || this->row(row).isDenied;
}

} // namespace pryvane
