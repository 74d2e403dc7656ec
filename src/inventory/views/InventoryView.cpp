#include "inventory/views/InventoryView.h"

#include "core/Escape.h"
#include "core/Texts.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Listen.h"
#include "ui/Pages.h"
#include "ui/RowTable.h"
#include "ui/Surfaces.h"
#include "words/Shown.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QObject>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace pryvane {

namespace {

QString iconOf(InventoryKind kind)
{
    switch (kind) {
    case InventoryKind::LaunchAgents:
    case InventoryKind::LaunchDaemons:
        return QStringLiteral("launch-folder");
    case InventoryKind::AllExtensions:
    case InventoryKind::ChromeExtensions:
    case InventoryKind::FirefoxAddOns:
    case InventoryKind::SafariExtensions:
        return QStringLiteral("extension");
    case InventoryKind::ApplicationSupport:
        return QStringLiteral("folder");
    case InventoryKind::Applications:
        return QStringLiteral("application");
    }
    return {};
}

} // namespace

std::vector<ui::Column> InventorySource::columns()
{
    return {{.width = 8},
            {.title = QObject::tr("Name"), .width = 210},
            {.title = QObject::tr("Version, profile"), .width = 116},
            {.title = QObject::tr("Location"), .stretches = true, .isPath = true},
            {.title = QObject::tr("Size"), .width = 80, .isNumber = true}};
}

int InventorySource::count() const
{
    return static_cast<int>(m_controller.entries().size());
}

ui::Cell InventorySource::cell(int row, int column) const
{
    const InventoryEntry& about = entry(row);
    switch (column) {
    case Name:
        return {.text = ui::text(forScreen(about.name)), .iconName = iconOf(about.kind)};
    case Detail:
        return {.text = ui::shown(forScreen(about.detail))};
    case Location:
        return {.text = ui::text(forScreen(about.url.relativePath()))};
    case Size:
        return {.text = about.bytes ? ui::shown(sizeText(*about.bytes)) : QString(),
                .number = about.bytes.value_or(-1)};
    default:
        return {};
    }
}

QString InventorySource::group(int row, int) const
{
    return ui::shown(heading(entry(row).kind));
}

bool InventorySource::hidden(int row) const
{
    return m_kind && entry(row).kind != *m_kind;
}

QString InventorySource::searchText(int row) const
{
    return cell(row, Name).text + QLatin1Char('\n') + cell(row, Location).text;
}

InventoryView::InventoryView(InventoryController& controller, QWidget* parent)
    : QWidget(parent), m_controller(controller), m_source(controller),
      m_model(m_source, InventorySource::columns()),
      m_table(new ui::RowTable(m_model, tr("Inventory"))),
      m_empty(new ui::EmptyState(QStringLiteral("folder"), {})), m_list(new ui::Pages),
      m_summary(ui::makeNote()), m_filter(ui::makeFilterField(tr("Filter by name or location"))),
      m_kinds(new QComboBox), m_bar(new QProgressBar), m_stop(new QPushButton(tr("Stop"))),
      m_gather(new QPushButton(tr("Gather again")))
{
    setObjectName(QStringLiteral("inventoryView"));
    m_table->setObjectName(QStringLiteral("inventory"));
    m_kinds->setObjectName(QStringLiteral("inventoryKinds"));
    m_summary->setObjectName(QStringLiteral("inventorySummary"));
    m_stop->setObjectName(QStringLiteral("stopGathering"));
    m_gather->setObjectName(QStringLiteral("gather"));
    m_kinds->setAccessibleName(tr("List"));
    m_kinds->addItem(tr("All lists"));
    for (const char* heading : kInventoryHeadings)
        m_kinds->addItem(ui::shown(heading));
    m_model.setGrouping(InventorySource::ByKind);
    layOut();
    m_update.setSingleShot(true);
    m_update.setInterval(0);
    connect(&m_update, &QTimer::timeout, this, &InventoryView::showState);
    ui::listen(m_controller.stateChanged, this, [this] {
        if (!m_update.isActive())
            m_update.start();
        if (m_controller.entries().size() < m_shown) // gathered anew
            showState();
    });
    connect(m_kinds, &QComboBox::currentIndexChanged, this, &InventoryView::showKind);
    connect(m_filter, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_model.setFilter(text);
        showList();
    });
    connect(m_stop, &QPushButton::clicked, this, [this] { m_controller.stop(); });
    connect(m_gather, &QPushButton::clicked, this, [this] { m_controller.gather(); });
    connect(m_table, &ui::RowTable::menuWanted, this, &InventoryView::showMenu);
    connect(m_table, &ui::RowTable::rowActivated, this,
            [this](int row) { Q_EMIT revealWanted(m_source.entry(row).url); });
    showState();
}

void InventoryView::layOut()
{
    m_bar->setTextVisible(false);
    m_bar->setFixedHeight(6);
    m_bar->setAccessibleName(tr("Gathering"));
    m_summary->setWordWrap(false);
    auto* tools = new QHBoxLayout;
    tools->setSpacing(ui::kRelated);
    tools->addWidget(m_filter, 1);
    tools->addWidget(m_kinds);
    tools->addWidget(m_stop);
    tools->addWidget(m_gather);
    m_list->addWidget(m_empty);
    m_list->addWidget(m_table);
    auto* card = new ui::Card;
    card->column()->addLayout(tools);
    card->column()->addWidget(m_bar);
    card->column()->addWidget(m_list, 1);
    card->column()->addWidget(m_summary);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(ui::kRelated);
    column->addWidget(ui::makeNote(
        tr("What is installed around the browsers and started with the system. Being listed says "
           "nothing against it: nothing here is judged, and nothing is changed.")));
    column->addWidget(card, 1);
}

void InventoryView::focusFilter()
{
    m_filter->setFocus(Qt::ShortcutFocusReason);
    m_filter->selectAll();
}

void InventoryView::showState()
{
    const bool gathering = m_controller.isGathering();
    m_bar->setVisible(gathering);
    m_bar->setRange(0, static_cast<int>(kInventoryHeadings.size()));
    m_bar->setValue(static_cast<int>(m_controller.gathering()));
    m_stop->setVisible(gathering);
    m_gather->setVisible(!gathering);
    if (m_controller.entries().size() != m_shown) {
        m_shown = m_controller.entries().size();
        m_model.reset();
    }
    const auto number = [](std::size_t count) {
        return QLocale().toString(static_cast<qulonglong>(count));
    };
    m_summary->setText(gathering
                           ? tr("Gathering: %1").arg(ui::shown(heading(m_controller.gathering())))
                       : m_controller.isWhole()
                           ? tr("%1 entries in all").arg(number(m_shown))
                           : tr("%1 entries; not all lists were gathered").arg(number(m_shown)));
    for (std::size_t kind = 0; kind < kInventoryHeadings.size(); ++kind) {
        const auto count = std::count_if(
            m_controller.entries().begin(), m_controller.entries().end(),
            [&](const InventoryEntry& each) { return each.kind == InventoryKind(kind); });
        m_kinds->setItemText(
            static_cast<int>(kind) + 1,
            tr("%1 (%2)").arg(ui::shown(kInventoryHeadings[kind]), number(std::size_t(count))));
    }
    showList();
}

void InventoryView::showKind(int choice)
{
    m_source.setKind(choice > 0 ? std::optional(InventoryKind(choice - 1)) : std::nullopt);
    m_model.setGrouping(choice > 0 ? InventorySource::None : InventorySource::ByKind);
    showList();
}

void InventoryView::showList()
{
    m_empty->setSentence(m_controller.isGathering()    ? tr("Looking for what is installed…")
                         : !m_filter->text().isEmpty() ? tr("Nothing fits the filter.")
                         : m_controller.isWhole()      ? tr("Nothing of this is installed.")
                                                       : tr("Nothing was gathered yet."));
    m_list->setCurrentIndex(m_model.rowCount() > 0 ? 1 : 0);
}

void InventoryView::showMenu(int row, const QPoint& place)
{
    QMenu menu(this);
    menu.addAction(ui::icon(QStringLiteral("reveal")), tr("Reveal in File Viewer"),
                   [this, row] { Q_EMIT revealWanted(m_source.entry(row).url); });
    menu.addAction(ui::icon(QStringLiteral("copy")), tr("Copy Path"),
                   [this, row] { ui::copyPath(m_source.entry(row).url.relativePath()); });
    menu.exec(place);
}

} // namespace pryvane
