#include "findings/views/FindingsPane.h"

#include "core/Escape.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Pages.h"
#include "ui/RowTable.h"
#include "ui/Sheet.h"
#include "ui/Style.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace pryvane {

using ui::TextRole;

RemoteDesktopCell::RemoteDesktopCell(bool canIgnore, QWidget* parent)
    : QWidget(parent), m_name(ui::makeLabel(ui::TextRole::GroupTitle)), m_sentence(ui::makeNote()),
      m_location(new ui::ElidedLabel), m_instructions(new QPushButton(tr("How to switch it off"))),
      m_ignore(new QCheckBox(tr("Ignore from now on")))
{
    setObjectName(QStringLiteral("ARDCell"));
    auto* picture = new QLabel;
    picture->setPixmap(ui::icon(QStringLiteral("attention"), ui::Meaning::Attention)
                           .pixmap(QSize(20, 20), devicePixelRatioF()));
    ui::setTextRole(*m_location, TextRole::Path);
    m_instructions->setObjectName(QStringLiteral("removeARD"));
    m_instructions->setToolTip(tr("Opens Apple's article in the web browser"));
    m_ignore->setObjectName(QStringLiteral("ignoreARD"));
    m_ignore->setVisible(canIgnore);
    connect(m_instructions, &QPushButton::clicked, this, &RemoteDesktopCell::removeARD);
    connect(m_ignore, &QCheckBox::toggled, this, &RemoteDesktopCell::ignoreARD);

    m_sentence->setWordWrap(true);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(ui::kRelated);
    grid->setVerticalSpacing(0);
    grid->addWidget(picture, 0, 0);
    grid->addWidget(m_name, 0, 1);
    grid->addWidget(m_ignore, 0, 3);
    grid->addWidget(m_instructions, 0, 4);
    grid->addWidget(m_location, 1, 1, 1, 4); // whole, whatever the width
    grid->addWidget(m_sentence, 2, 1, 1, 4);
    grid->setColumnStretch(2, 1);
}

void RemoteDesktopCell::tell(const QString& location, bool ignored)
{
    const bool found = !location.isEmpty();
    m_name->setText(found ? tr("Apple Remote Desktop is set up")
                          : tr("Apple Remote Desktop is ignored"));
    m_sentence->setText(found
                            ? tr("Somebody may see and control this Mac from afar. It is switched "
                                 "off in the Mac's settings.")
                            : tr("Scans do not look for it. Untick the box, and the next one "
                                 "does."));
    m_location->setText(location);
    m_location->setVisible(found);
    m_instructions->setVisible(found);
    const QSignalBlocker quiet(m_ignore);
    m_ignore->setChecked(ignored);
}

FindingsPane::FindingsPane(std::string user,
                           std::function<std::string(std::string_view)> foldedName,
                           FindingsSource::Ticked ticked, FindingsSource::Of of, QWidget* parent)
    : Card(parent), m_source(std::move(user), std::move(foldedName), std::move(ticked), of),
      m_model(m_source, FindingsSource::columns(of)),
      m_table(new ui::RowTable(m_model, tr("Findings"))),
      m_empty(new ui::EmptyState(QStringLiteral("scan"), {})), m_list(new ui::Pages),
      m_remoteDesktop(new RemoteDesktopCell(of == FindingsSource::Of::Scan))
{
    m_table->setObjectName(QStringLiteral("findings"));
    m_list->addWidget(m_empty);
    m_list->addWidget(m_table);
    column()->setContentsMargins(ui::kGroups, ui::kRelated, ui::kGroups, 4);
    column()->setSpacing(4); // the rows get the height
    column()->addWidget(makeToolbar());
    column()->addWidget(m_remoteDesktop);
    column()->addWidget(m_list, 1);
    m_remoteDesktop->hide();
    connect(m_remoteDesktop, &RemoteDesktopCell::removeARD, this,
            &FindingsPane::remoteDesktopHelpWanted);
    connect(m_remoteDesktop, &RemoteDesktopCell::ignoreARD, this,
            &FindingsPane::ignoreRemoteDesktopWanted);
    connect(m_table, &ui::RowTable::rowActivated, this, &FindingsPane::explainRow);
    connect(m_table, &ui::RowTable::menuWanted, this, &FindingsPane::showMenu);
    connect(&m_model, &QAbstractItemModel::dataChanged, this, &FindingsPane::showSelection);
    connect(&m_model, &QAbstractItemModel::modelReset, this, &FindingsPane::showSelection);
    connect(&m_model, &QAbstractItemModel::rowsInserted, this, &FindingsPane::showSelection);
    showSelection();
}

QWidget* FindingsPane::makeToolbar()
{
    m_selectAll = new QCheckBox(tr("Select all"));
    m_selectAll->setObjectName(QStringLiteral("selectAll"));
    connect(m_selectAll, &QCheckBox::stateChanged, this, [this] {
        m_model.tickAll(m_model.allTicked() != Qt::Checked);
        showSelection();
    });
    m_filter = ui::makeFilterField(tr("Filter by threat or location"));
    connect(m_filter, &QLineEdit::textChanged, &m_model, &ui::RowModel::setFilter);
    m_grouping = new QComboBox;
    m_grouping->setAccessibleName(tr("Group by"));
    m_grouping->addItems({tr("No groups"), tr("Group by threat"), tr("Group by folder")});
    connect(m_grouping, &QComboBox::currentIndexChanged, &m_model, &ui::RowModel::setGrouping);
    m_selected = ui::makeNote();
    m_selected->setWordWrap(false);

    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(ui::kRelated);
    row->addWidget(m_selectAll);
    row->addWidget(m_filter, 1);
    row->addWidget(m_grouping);
    row->addSpacing(ui::kRelated);
    row->addWidget(m_selected);
    return bar;
}

void FindingsPane::showRecords(const std::shared_ptr<const SpywareList>& records)
{
    if (m_source.records() != records) {
        m_source.setRecords(records);
        m_model.reset();
    } else {
        m_table->takeAppended();
    }
    const auto remoteDesktop = m_source.remoteDesktopRow();
    const Spyware* found = remoteDesktop ? &m_source.record(*remoteDesktop) : nullptr;
    // A scan has just found it; of a report it is told while it is there.
    if (found && !m_source.isOfScan() && !found->isAvail())
        found = nullptr;
    m_remoteDesktop->tell(found ? ui::text(forScreen(found->url.relativePath())) : QString(),
                          m_remoteDesktopIgnored);
    m_remoteDesktop->setVisible(found || m_remoteDesktopIgnored);
}

void FindingsPane::setSelectable(bool selectable)
{
    m_source.setSelectable(selectable);
}

void FindingsPane::refresh()
{
    m_model.refresh();
    showSelection();
}

void FindingsPane::setEmptyText(const QString& sentence)
{
    m_empty->setSentence(sentence);
}

void FindingsPane::focusFilter()
{
    m_filter->setFocus(Qt::ShortcutFocusReason);
    m_filter->selectAll();
}

void FindingsPane::focusList()
{
    if (!isVisible() || ui::Sheet::isOver(window()) || m_filter->hasFocus())
        return;
    if (!m_table->currentIndex().isValid() && m_model.rowCount() > 0)
        m_table->setCurrentIndex(m_model.index(0, FindingsSource::Name));
    m_table->setFocus(Qt::OtherFocusReason);
}

void FindingsPane::showSelection()
{
    const int count = m_source.selectableCount();
    const bool filtered = !m_filter->text().isEmpty();
    if (filtered && m_model.rowCount() == 0)
        m_empty->setSentence(tr("Nothing fits the filter."));
    m_list->setCurrentIndex(m_model.rowCount() > 0 ? 1 : 0);
    m_selectAll->setEnabled(count > 0);
    m_filter->setEnabled(m_source.count() > 0);
    m_grouping->setEnabled(m_source.count() > 0);
    m_selectAll->setTristate(m_model.allTicked() == Qt::PartiallyChecked);
    ui::showTicked(*m_selectAll, count > 0 ? m_model.allTicked() : Qt::Unchecked);
    m_selected->setText(count == 0 ? QString()
                                   : tr("%1 of %2 selected")
                                         .arg(QLocale().toString(m_model.tickedCount()),
                                              QLocale().toString(count)));
}

void FindingsPane::showMenu(int row, const QPoint& place)
{
    QMenu menu(this);
    menu.addAction(ui::icon(QStringLiteral("help")), tr("Why was this found?"),
                   [this, row] { explainRow(row); });
    menu.addAction(ui::icon(QStringLiteral("reveal")), tr("Reveal in File Viewer"),
                   [this, row] { Q_EMIT revealWanted(m_source.record(row).url); });
    menu.addAction(ui::icon(QStringLiteral("copy")), tr("Copy Path"),
                   [this, row] { ui::copyPath(m_source.record(row).url.relativePath()); });
    menu.exec(place);
}

void FindingsPane::explainRow(int row)
{
    const Spyware& found = m_source.record(row);
    auto* sheet = new ui::Sheet(this, tr("Why was this found?"));
    auto* location = ui::makeLabel(TextRole::Path, ui::text(forScreen(found.url.relativePath())));
    location->setWordWrap(true);
    location->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* reasons = ui::makeLabel(TextRole::Body, m_source.whyFound(row));
    reasons->setWordWrap(true);
    reasons->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* close = new QPushButton(tr("Close"));
    connect(close, &QPushButton::clicked, sheet, &ui::Sheet::dismiss);
    sheet->body()->addWidget(location);
    sheet->body()->addWidget(reasons);
    sheet->body()->addWidget(ui::makeNote(
        tr("Pryvane looks at names only. What it says here rests on where the item lies and what "
           "it is called, not on what is inside.")));
    sheet->buttons()->addWidget(close);
    sheet->present(close);
}

} // namespace pryvane
