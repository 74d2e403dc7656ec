#include "inventory/views/FactsPage.h"

#include "core/Escape.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Pages.h"
#include "ui/RowTable.h"
#include "ui/Surfaces.h"
#include "words/Shown.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QMenu>
#include <QVBoxLayout>

#include <algorithm>

namespace pryvane {

FactsPage::FactsPage(const FactsController& controller, FactKind kind, QWidget* parent)
    : QWidget(parent), m_controller(controller), m_kind(kind), m_source(controller, kind),
      m_model(m_source, FactsTableSource::columns(kind)),
      m_table(new ui::RowTable(m_model, ui::shown(words(kind).title))),
      m_empty(new ui::EmptyState(QStringLiteral("info"), {})), m_list(new ui::Pages),
      m_meaningTitle(ui::makeLabel(ui::TextRole::GroupTitle)), m_meaning(ui::makeNote()),
      m_details(ui::makeNote()), m_troubles(ui::makeNote())
{
    m_table->setObjectName(QLatin1String(words(kind).key));
    m_model.setGrouping(FactsTableSource::kByGroup);
    for (QLabel* label : {m_meaning, m_details, m_troubles}) {
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    m_meaningTitle->setObjectName(QStringLiteral("meaningTitle"));
    m_meaning->setObjectName(QStringLiteral("meaning"));
    m_details->setObjectName(QStringLiteral("factDetails"));
    m_troubles->setObjectName(QStringLiteral("unreadSources"));
    m_list->addWidget(m_empty);
    m_list->addWidget(m_table);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(ui::kRelated);
    column->addWidget(m_list, 1);
    column->addSpacing(ui::kRelated); // the last row is often cut
    column->addWidget(m_details);
    column->addWidget(m_meaningTitle);
    column->addWidget(m_meaning);
    column->addWidget(m_troubles);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { showRow(); });
    connect(m_table, &ui::RowTable::menuWanted, this, &FactsPage::showMenu);
    connect(m_table, &ui::RowTable::rowActivated, this, [this](int row) {
        if (!m_source.row(row).path.empty())
            Q_EMIT revealWanted(FileURL::fileURLWithPath(m_source.row(row).path));
    });
    showState();
}

void FactsPage::choose(const FactsTableSource::Choice& choice)
{
    m_source.choose(choice);
    m_model.reset();
    showList();
}

void FactsPage::setFilter(const QString& text)
{
    m_hasFilter = !text.isEmpty();
    m_model.setFilter(text);
    showList();
}

void FactsPage::showState()
{
    if (m_source.count() != m_shown) {
        m_shown = m_source.count();
        m_model.reset();
    }
    constexpr int kMostLines = 2;
    const auto& troubles = m_controller.troubles(m_kind);
    QStringList lines;
    for (const std::string& trouble : troubles)
        if (lines.size() < kMostLines)
            lines.push_back(ui::shown(trouble));
    if (static_cast<int>(troubles.size()) > kMostLines)
        lines.push_back(tr("and %n more places that could not be read", nullptr,
                           static_cast<int>(troubles.size()) - kMostLines));
    m_troubles->setText(lines.join(QLatin1Char('\n')));
    m_troubles->setVisible(!troubles.empty());
    showList();
}

void FactsPage::showList()
{
    m_empty->setSentence(!m_controller.isRead(m_kind)
                             ? m_controller.isGathering()
                                   ? tr("Reading what the disk says…")
                                   : tr("This was not read. “Read again” tries once more.")
                         : m_source.count() > 0 ? tr("Nothing fits what was chosen above.")
                         : !m_controller.troubles(m_kind).empty()
                             ? tr("Nothing could be listed: not all places could "
                                  "be read.")
                             : tr("The places were read, and nothing of this is "
                                  "in them."));
    m_list->setCurrentIndex(m_model.rowCount() > 0 ? 1 : 0);
    showRow();
}

/// The chosen row in full and what its group means; the first group's meaning where none is.
void FactsPage::showRow()
{
    int row = m_source.count() > 0 ? m_model.sourceRow(m_table->currentIndex()) : -1;
    m_details->setText(row >= 0 ? textOf(m_source.row(row)) : QString());
    m_details->setVisible(row >= 0);
    for (int shown = 0; row < 0 && shown < std::min(m_model.rowCount(), 3); ++shown)
        row = m_model.sourceRow(m_model.index(shown, 1));
    m_meaningTitle->setVisible(row >= 0);
    m_meaning->setVisible(row >= 0);
    if (row < 0)
        return;
    const GroupWords& about = m_controller.table(m_kind).groups[m_source.row(row).group];
    m_meaningTitle->setText(tr("What does “%1” mean?").arg(ui::shown(about.title)));
    m_meaning->setText(ui::shown(about.meaning));
}

QString FactsPage::textOf(const FactRow& row) const
{
    const auto& columns = m_controller.table(m_kind).columns;
    QStringList parts;
    for (std::size_t i = 0; i < row.cells.size(); ++i)
        if (!row.cells[i].empty())
            parts.push_back(ui::shown(columns[i]) + QStringLiteral(": ") + m_source.shown(row, i));
    return parts.join(QStringLiteral(" · "));
}

void FactsPage::showMenu(int row, const QPoint& place)
{
    QMenu menu(this);
    const std::string path = m_source.row(row).path;
    if (!path.empty()) {
        menu.addAction(ui::icon(QStringLiteral("reveal")), tr("Reveal in File Viewer"),
                       [this, path] { Q_EMIT revealWanted(FileURL::fileURLWithPath(path)); });
        menu.addAction(ui::icon(QStringLiteral("copy")), tr("Copy Path"),
                       [path] { ui::copyPath(path); });
    }
    menu.addAction(
        ui::icon(QStringLiteral("copy")), tr("Copy All of It"),
        [text = textOf(m_source.row(row))] { QGuiApplication::clipboard()->setText(text); });
    menu.exec(place);
}

} // namespace pryvane
