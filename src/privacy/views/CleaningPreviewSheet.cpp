#include "privacy/views/CleaningPreviewSheet.h"

#include "core/Escape.h"
#include "core/Texts.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Listen.h"
#include "ui/RowTable.h"
#include "ui/Spinner.h"
#include "ui/Style.h"
#include "ui/Surfaces.h"
#include "words/Shown.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace pryvane {

namespace {

using State = ToolsViewController::State;

constexpr int kTableHeight = 260;

QPushButton* makeButton(const QString& title, const char* name)
{
    auto* button = new QPushButton(title);
    button->setObjectName(QLatin1String(name));
    return button;
}

} // namespace

CleaningPreviewSheet::CleaningPreviewSheet(QWidget* over, ToolsViewController& controller,
                                           Listing listing)
    : Sheet(over, tr("What would be cleared")), m_controller(controller), m_itemSource(controller),
      m_itemModel(m_itemSource, PreviewItems::columns()),
      m_items(new ui::RowTable(m_itemModel, tr("Items that would be cleared"))),
      m_source(controller), m_model(m_source, PreviewSource::columns()),
      m_table(new ui::RowTable(m_model, tr("What would be cleared"))), m_pages(new QStackedWidget),
      m_totals(ui::makeLabel(ui::TextRole::Body)), m_browsers(makeBrowserPanel()),
      m_dear(makeDearPanel()), m_list(makeButton(tr("List each location"), "listLocations")),
      m_cancel(makeButton(tr("Cancel"), "cancelPreview")),
      m_clear(makeButton(tr("Clear for good"), "clearForGood"))
{
    setObjectName(QStringLiteral("previewSheet"));
    m_table->setObjectName(QStringLiteral("preview"));
    m_items->setObjectName(QStringLiteral("previewItems"));
    m_itemModel.setGrouping(PreviewItems::ByCost);
    m_model.setGrouping(PreviewSource::ByItem);
    setDefault(m_cancel);
    ui::makeDestructive(*m_clear);
    layOut();
    setListed(listing == Listing::Open);
    follow();
    showState();
}

/// The panel that asks to close running browsers.
QWidget* CleaningPreviewSheet::makeBrowserPanel()
{
    auto* panel = new ui::Card;
    panel->setObjectName(QStringLiteral("closeBrowsers"));
    panel->column()->setContentsMargins(12, ui::kRelated, 12, ui::kRelated);
    auto* picture = new QLabel;
    picture->setPixmap(ui::icon(QStringLiteral("attention"), ui::Meaning::Attention)
                           .pixmap(QSize(20, 20), devicePixelRatioF()));
    m_browserNames = ui::makeLabel(ui::TextRole::Body);
    m_browserNames->setWordWrap(true);
    m_retry = makeButton(tr("Retry"), "retryButton");
    auto* row = new QHBoxLayout;
    row->setSpacing(ui::kRelated);
    row->addWidget(picture, 0, Qt::AlignTop);
    row->addWidget(m_browserNames, 1);
    row->addWidget(m_retry);
    panel->column()->addLayout(row);
    connect(m_retry, &QPushButton::clicked, this, [this] { m_controller.retryCleaningAction(); });
    return panel;
}

/// Names what cannot be had back, with the way to leave it out.
QWidget* CleaningPreviewSheet::makeDearPanel()
{
    auto* panel = new ui::Card;
    panel->setObjectName(QStringLiteral("dearItems"));
    panel->column()->setContentsMargins(12, ui::kRelated, 12, ui::kRelated);
    auto* picture = new QLabel;
    picture->setPixmap(ui::icon(QStringLiteral("attention"), ui::Meaning::Attention)
                           .pixmap(QSize(20, 20), devicePixelRatioF()));
    m_dearNames = ui::makeLabel(ui::TextRole::Body);
    m_dearNames->setObjectName(QStringLiteral("dearNames"));
    m_dearNames->setWordWrap(true);
    m_leaveOut = makeButton(tr("Leave these out"), "leaveDearOut");
    auto* row = new QHBoxLayout;
    row->setSpacing(ui::kRelated);
    row->addWidget(picture, 0, Qt::AlignTop);
    row->addWidget(m_dearNames, 1);
    row->addWidget(m_leaveOut, 0, Qt::AlignTop);
    panel->column()->addLayout(row);
    connect(m_leaveOut, &QPushButton::clicked, this, [this] { m_controller.leaveDearOut(); });
    return panel;
}

void CleaningPreviewSheet::layOut()
{
    m_pages->addWidget(ui::makeBusyPage(tr("Looking at what would go…")));
    m_pages->addWidget(m_table);
    m_pages->addWidget(m_items);
    m_totals->setWordWrap(true);

    auto* head = new QHBoxLayout;
    head->setSpacing(ui::kRelated);
    head->addWidget(m_totals, 1);
    head->addWidget(m_list);
    body()->addLayout(head);
    body()->addWidget(m_browsers);
    body()->addWidget(m_dear);
    body()->addWidget(m_pages, 1);
    body()->addWidget(ui::makeNote(tr("Nothing goes to the Trash: what is cleared is gone.")));
    buttons()->addWidget(m_cancel);
    buttons()->addWidget(m_clear);
}

void CleaningPreviewSheet::follow()
{
    m_update.setSingleShot(true);
    m_update.setInterval(0);
    connect(&m_update, &QTimer::timeout, this, &CleaningPreviewSheet::showState);
    ui::listen(m_controller.stateChanged, this, [this] {
        if (!m_update.isActive())
            m_update.start();
        // The rows are gone with the state, so nothing may ask for them any more.
        if (m_controller.state() != State::Previewing && m_filled) {
            m_filled = false;
            m_itemSource.follow();
            m_itemModel.reset();
            m_model.reset();
        }
    });
    connect(m_list, &QPushButton::clicked, this, [this] {
        setListed(true);
        showState();
        m_table->setFocus(Qt::OtherFocusReason);
    });
    connect(m_cancel, &QPushButton::clicked, this, &Sheet::dismiss);
    connect(m_clear, &QPushButton::clicked, this, [this] { m_controller.cleanAndReloadData(); });
    connect(this, &Sheet::closed, this, [this] {
        if (m_controller.state() == State::Looking)
            m_controller.stop();
        m_controller.closeWindowAction();
    });
}

void CleaningPreviewSheet::present()
{
    Sheet::present(m_cancel);
}

void CleaningPreviewSheet::setListed(bool listed)
{
    m_list->setVisible(!listed);
    m_pages->setMinimumHeight(kTableHeight);
    setWidth(860);
}

void CleaningPreviewSheet::showState()
{
    const State state = m_controller.state();
    if (state != State::Looking && state != State::Previewing)
        return dismiss();
    const bool ready = state == State::Previewing;
    if (ready && !m_filled) {
        m_filled = true;
        m_itemSource.follow();
        // Headings only where there is something to tell apart.
        m_itemModel.setGrouping(m_itemSource.hasDear() ? PreviewItems::ByCost : PreviewItems::None);
        m_itemModel.reset();
        m_model.reset();
        if (!m_items->currentIndex().isValid())
            m_items->setCurrentIndex(m_itemModel.index(0, 0));
        if (!m_table->currentIndex().isValid())
            m_table->setCurrentIndex(m_model.index(0, 0));
    }
    const bool listed = m_list->isHidden();
    m_pages->setCurrentIndex(!ready ? 0 : listed ? 1 : 2);
    m_list->setEnabled(ready);
    m_itemSource.follow();
    m_itemModel.refresh();
    m_model.refresh();
    showTotals();
    showDear();
}

void CleaningPreviewSheet::showDear()
{
    QStringList names;
    for (const CleaningPreview::Item& item : m_controller.preview().items()) {
        const CleaningRow& row = m_controller.preview().rows[item.first];
        if (row.cost == Cost::Dear && item.ticked)
            names += ui::shown(forScreen(shownName(row.kind, row.group) + ": " + row.item));
    }
    m_dearNames->setText(
        tr("%1 cannot be had back once cleared.").arg(names.join(QStringLiteral(", "))));
    m_dear->setVisible(!names.isEmpty());
}

void CleaningPreviewSheet::showTotals()
{
    const CleaningPreview& preview = m_controller.preview();
    const CleaningPreview::Totals totals = preview.totals();
    const auto going = std::count_if(preview.rows.begin(), preview.rows.end(),
                                     [](const CleaningRow& row) { return row.willGo(); });
    m_totals->setText(
        m_filled ? tr("%1 will go: %2, %3")
                       .arg(ui::shown(countedText(std::size_t(going), "location", "locations")),
                            ui::shown(countedText(totals.entries, "entry", "entries")),
                            ui::shown(sizeText(totals.bytes)))
                 : QString());
    m_clear->setEnabled(m_filled && totals.entries > 0);
    QStringList names;
    for (const std::string& browser : preview.openBrowsers())
        names += ui::text(forScreen(browser));
    m_browserNames->setText(
        tr("Quit %1 first, then retry. A running browser keeps its files open, so they stay.")
            .arg(names.join(QStringLiteral(", "))));
    m_browsers->setVisible(!names.isEmpty());
}

} // namespace pryvane
