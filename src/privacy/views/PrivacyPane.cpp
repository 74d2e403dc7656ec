#include "privacy/views/PrivacyPane.h"

#include "core/Escape.h"
#include "core/Texts.h"
#include "privacy/views/CleaningPreviewSheet.h"
#include "privacy/views/ClearedSheet.h"
#include "privacy/views/GroupList.h"
#include "privacy/views/ToolsStatus.h"
#include "ui/Labels.h"
#include "ui/Listen.h"
#include "ui/Pages.h"
#include "ui/RowTable.h"
#include "ui/Sheet.h"
#include "ui/Style.h"
#include "ui/Surfaces.h"
#include "words/Shown.h"

#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QPushButton>
#include <QVBoxLayout>

namespace pryvane {

namespace {

using State = ToolsViewController::State;

constexpr int kExplanationLines = 2;

} // namespace

PrivacyPane::PrivacyPane(ToolsViewController& controller, QWidget* parent)
    : QWidget(parent), m_controller(controller), m_source(controller),
      m_model(m_source, ItemsSource::columns()), m_status(new ToolsStatus(controller)),
      m_groups(new GroupList(controller)), m_items(new ui::RowTable(m_model, tr("Items"))),
      m_lists(new ui::Pages), m_groupName(ui::makeLabel(ui::TextRole::GroupTitle)),
      m_explanation(ui::makeNote()), m_total(ui::makeLabel(ui::TextRole::Body)),
      m_preview(new QPushButton(tr("Preview…"))), m_clear(new QPushButton(tr("Clear…")))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(ui::kGroups);
    column->addWidget(m_status);
    m_lists->addWidget(makeLists());
    m_lists->addWidget(new ui::EmptyState(
        QStringLiteral("tools"), tr("Browser data, caches, logs and the Trash are listed here with "
                                    "the space they take, once they are measured.")));
    column->addWidget(m_lists, 1);
    column->addWidget(makeFooter());

    m_update.setSingleShot(true);
    m_update.setInterval(0);
    connect(&m_update, &QTimer::timeout, this, &PrivacyPane::showState);
    ui::listen(m_controller.stateChanged, this, [this] {
        if (!m_update.isActive())
            m_update.start();
        // A catalogue that is built anew has fewer rows than are shown.
        if (m_controller.availbleApp().empty() && m_shownItems > 0)
            showItems();
    });
    connect(m_groups, &GroupList::chosenChanged, this, &PrivacyPane::showItems);
    connect(m_status, &ToolsStatus::clearedWanted, this, &PrivacyPane::showCleared);
    connect(m_status, &ToolsStatus::leftOversWanted, this, &PrivacyPane::showLeftOvers);
    showState();
}

QWidget* PrivacyPane::makeLists()
{
    auto* groups = new ui::Card;
    groups->column()->setContentsMargins(4, 4, 4, 4);
    groups->column()->addWidget(m_groups);
    auto* lists = new QWidget;
    auto* row = new QHBoxLayout(lists);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(ui::kGroups);
    row->addWidget(groups, 2);
    row->addWidget(makeItems(), 3);
    return lists;
}

QWidget* PrivacyPane::makeItems()
{
    m_items->setObjectName(QStringLiteral("items"));
    m_items->setMouseTracking(true);
    connect(m_items, &QAbstractItemView::entered, this,
            [this](const QModelIndex& index) { explain(m_model.sourceRow(index)); });
    connect(m_items->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& index) { explain(m_model.sourceRow(index)); });
    m_explanation->setObjectName(QStringLiteral("explanation"));
    m_explanation->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_explanation->setMinimumHeight(m_explanation->fontMetrics().lineSpacing() * kExplanationLines);
    auto* items = new ui::Card;
    items->column()->addWidget(m_groupName);
    items->column()->addWidget(m_items, 1);
    items->column()->addWidget(m_explanation);
    return items;
}

QWidget* PrivacyPane::makeFooter()
{
    m_total->setObjectName(QStringLiteral("total"));
    m_preview->setObjectName(QStringLiteral("previewSelected"));
    m_clear->setObjectName(QStringLiteral("cleanAndReloadData"));
    m_preview->setAccessibleDescription(tr("Lists each location that would go"));
    m_clear->setAccessibleDescription(tr("Asks once more before anything goes"));
    ui::makePrimary(*m_clear);
    connect(m_preview, &QPushButton::clicked, this, [this] { openPreview(true); });
    connect(m_clear, &QPushButton::clicked, this, [this] { openPreview(false); });
    auto* footer = new QWidget;
    auto* row = new QHBoxLayout(footer);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(ui::kRelated);
    row->addWidget(m_total, 1);
    row->addWidget(m_preview);
    row->addWidget(m_clear);
    return footer;
}

void PrivacyPane::showState()
{
    m_status->showState();
    m_groups->refresh(); // tells chosenChanged
    m_lists->setCurrentIndex(m_controller.availbleApp().empty() ? 1 : 0);
    const std::int64_t bytes = selectedBytes(m_controller.availbleApp());
    const bool ready = m_controller.state() == State::Idle && bytes > 0;
    m_total->setText(bytes > 0 ? tr("%1 ticked").arg(ui::shown(sizeText(bytes)))
                               : tr("Nothing is ticked"));
    m_preview->setEnabled(ready);
    m_clear->setEnabled(ready);
}

void PrivacyPane::showItems()
{
    const auto group = m_groups->chosen();
    m_source.setGroup(group);
    if (group == m_shownGroup && m_source.count() == m_shownItems)
        return m_model.refresh();
    m_shownGroup = group;
    m_shownItems = m_source.count();
    m_model.setGrouping(m_source.hasHeadings() ? ItemsSource::ByHeading : ItemsSource::None);
    m_groupName->setText(group ? ui::shown(forScreen(shownName(m_controller.availbleApp()[*group])))
                               : QString());
    m_explanation->setText(group ? tr("Point at an item to see what it holds.") : QString());
}

void PrivacyPane::explain(int row)
{
    if (row >= 0 && row < m_source.count())
        m_explanation->setText(m_source.explanation(row));
}

void PrivacyPane::openPreview(bool listed)
{
    m_controller.previewSelected();
    if (m_controller.state() != State::Looking)
        return;
    using Listing = CleaningPreviewSheet::Listing;
    (new CleaningPreviewSheet(this, m_controller, listed ? Listing::Open : Listing::OnRequest))
        ->present();
}

void PrivacyPane::showCleared()
{
    (new ClearedSheet(this, m_controller.outcome().items))->present();
}

void PrivacyPane::showLeftOvers()
{
    std::vector<ui::ReasonsSheet::Row> rows;
    for (const LeftOver& left : m_controller.outcome().stayed)
        rows.push_back({ui::shown(forScreen(left.item)),
                        ui::text(forScreen(left.url.relativePath())),
                        ui::shown(forScreen(left.reason))});
    (new ui::ReasonsSheet(this, tr("What stayed"), tr("Why it stayed, and what to do"),
                          std::move(rows)))
        ->present();
}

} // namespace pryvane
