#include "app/views/MainWindow.h"

#include "app/AppDelegate.h"
#include "app/DetailsViewController.h"
#include "app/Navigation.h"
#include "app/views/Looks.h"
#include "app/views/MenuBar.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/MenuButton.h"
#include "ui/Navigation.h"
#include "ui/Sheet.h"
#include "ui/TitleBar.h"
#include "words/Shown.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QToolButton>
#include <QVBoxLayout>

namespace pryvane {

namespace {

constexpr int kSidebarWidth = 208;
constexpr const char* kRowIcons[] = {"dashboard", "scan", "tools", "reports"};

/// The column at the left, in its own shade.
class Sidebar final : public QWidget {
public:
    Sidebar() { setAutoFillBackground(true); }

protected:
    void changeEvent(QEvent* event) override
    {
        QWidget::changeEvent(event);
        if (event->type() == QEvent::ApplicationPaletteChange)
            tint();
    }
    void showEvent(QShowEvent*) override { tint(); }

private:
    void tint()
    {
        QPalette own = palette();
        if (own.color(QPalette::Window) == ui::sidebar(own))
            return;
        own.setColor(QPalette::Window, ui::sidebar(own));
        setPalette(own);
    }
};

/// The disk and its user, a line each, beside their icon: Qt's own button puts two lines and an
/// icon into the wrong places where the window is laid out from the right.
class VolumeChip final : public QPushButton {
public:
    using QPushButton::QPushButton;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QStyleOptionButton button;
        initStyleOption(&button);
        button.text.clear();
        button.icon = {};
        QStylePainter painter(this);
        painter.drawControl(QStyle::CE_PushButton, button);
        const QRect inside = rect().adjusted(12, 0, -12, 0);
        const QRect picture = QStyle::alignedRect(
            layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter, iconSize(), inside);
        icon().paint(&painter, picture);
        const QRect words = QStyle::visualRect(
            layoutDirection(), inside, inside.adjusted(iconSize().width() + ui::kRelated, 0, 0, 0));
        painter.setPen(button.palette.color(QPalette::ButtonText));
        painter.drawText(words, Qt::AlignVCenter | Qt::AlignLeading,
                         text().replace(QStringLiteral("&&"), QStringLiteral("&")));
    }
};

} // namespace

MainWindow::~MainWindow() = default;

MainWindow::MainWindow(AppDelegate& delegate, TableViewController& table, QStackedWidget* screens,
                       const VolumeWords& volume, Looks& looks, Menus menus)
    : FramedWindow(QStringLiteral("Pryvane"), 0), m_delegate(delegate), m_table(table),
      m_looks(looks), m_screens(screens), m_navigation(new ui::Navigation)
{
    setObjectName(QStringLiteral("mainWindowID"));
    setMinimumSize(900, 600);
    startWith({1100, 720});
    if (menus == Menus::Button)
        makeMenu();
    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(makeSidebar(volume));
    row->addWidget(screens, 1);
    column()->addLayout(row, 1);
    menus == Menus::Bar ? makeMenuBar() : makeShortcuts();
    connect(&m_table, &TableViewController::stateChanged, this, &MainWindow::followSelection);
    followSelection();
}

QWidget* MainWindow::makeSidebar(const VolumeWords& volume)
{
    for (const Row row : {Row::Dashboard, Row::Scan, Row::Tools, Row::Reports})
        m_navigation->addScreen(QLatin1String(kRowIcons[rowIndex(row)]),
                                ui::shown(kRowTitles[static_cast<std::size_t>(rowIndex(row))]));
    m_navigation->setObjectName(QStringLiteral("navigation"));
    connect(m_navigation, &QListWidget::currentRowChanged, &m_table,
            &TableViewController::selectRow);

    const int width = std::max(kSidebarWidth, fontMetrics().averageCharWidth() * 26);
    // The icon, the gaps and the button's own edges take the rest.
    const auto fitting = [&](const QString& text) {
        return fontMetrics()
            .elidedText(text, Qt::ElideMiddle, width - 72)
            .replace(QLatin1Char('&'), QStringLiteral("&&"));
    };
    auto* chip = new VolumeChip(ui::icon(QStringLiteral("volume")),
                                fitting(volume.volume) + QLatin1Char('\n') + fitting(volume.user));
    chip->setObjectName(QStringLiteral("openVolume"));
    chip->setIconSize(QSize(20, 20));
    chip->setAccessibleName(tr("Looking at %1, %2").arg(volume.volume, volume.whose));
    chip->setAccessibleDescription(tr("Choose another volume or user"));
    chip->setToolTip(QStringLiteral("<qt>") + volume.folder.toHtmlEscaped() +
                     QStringLiteral("</qt>"));
    connect(chip, &QPushButton::clicked, this, &MainWindow::openVolumeWanted);

    auto* sidebar = new Sidebar;
    sidebar->setFixedWidth(width);
    auto* column = new QVBoxLayout(sidebar);
    column->setContentsMargins(0, 0, 0, ui::kRelated);
    column->addWidget(m_navigation, 1);
    auto* foot = new QHBoxLayout;
    foot->setContentsMargins(ui::kRelated, 0, ui::kRelated, 0);
    foot->addWidget(chip);
    column->addLayout(foot);
    return sidebar;
}

void MainWindow::makeMenu()
{
    m_menuButton = new QToolButton;
    m_menu = new QMenu;
    ui::giveMenu(*m_menuButton, m_menu);
    m_menuButton->setText(tr("Menu"));
    m_menuButton->setIcon(ui::icon(QStringLiteral("more")));
    m_menuButton->setObjectName(QStringLiteral("menu"));
    m_menuButton->setAccessibleName(tr("Menu"));
    m_menuButton->setToolTip(tr("Menu"));
    m_menuButton->setAutoRaise(true);
    m_menuButton->setMinimumSize(ui::kTarget, ui::kTarget);
    connect(m_menu, &QMenu::aboutToShow, this, &MainWindow::showMenu);
    if (titleBar()) {
        titleBar()->layout()->addWidget(m_menuButton);
    } else {
        auto* bar = new QHBoxLayout;
        bar->addStretch();
        bar->addWidget(m_menuButton);
        column()->addLayout(bar);
    }
}

/// Made anew each time it opens, since other parts decide what the Window menu holds.
void MainWindow::showMenu()
{
    m_menu->clear();
    fillFileMenu(*m_menu->addMenu(tr("File")), menuActions());
    fillWindowMenu(*m_menu->addMenu(tr("Window")), menuActions());
    fillAppearanceMenu(*m_menu->addMenu(tr("Appearance")), menuActions());
    m_menu->addSeparator();
    addHelp(*m_menu, menuActions());
}

/// What changes the screen waits while a sheet lies over it: a Mac's menu bar stays in reach.
MenuActions MainWindow::menuActions()
{
    const auto unlessAsked = [this](auto&& act) {
        return [this, act] {
            if (!ui::Sheet::isOver(this))
                act();
        };
    };
    return {.openVolume = unlessAsked([this] { Q_EMIT openVolumeWanted(); }),
            .print = unlessAsked([this] {
                if (m_delegate.canPrint())
                    m_delegate.printReport();
            }),
            .quit = [this] { m_delegate.terminateSelf(); },
            .help = [this] { m_delegate.getHelp(); },
            .findInList = unlessAsked([this] { Q_EMIT filterWanted(); }),
            .perform = [this](WindowCommand command) { m_delegate.perform(command); },
            .showScreen =
                [this](int row) {
                    if (!ui::Sheet::isOver(this))
                        m_navigation->setCurrentRow(row);
                },
            .canPrint = [this] { return m_delegate.canPrint(); },
            .windows = [this] { return m_delegate.windowMenu(); },
            .setAppearance = [this](ui::AppearanceSetting to) { m_looks.set(to); },
            .appearance = [this] { return m_looks.setting(); }};
}

void MainWindow::makeMenuBar()
{
    m_menuBar = std::make_unique<MenuBar>(menuActions()); // of the program: no window's child
    connect(&m_delegate, &AppDelegate::stateChanged, m_menuBar.get(), &MenuBar::refresh);
}

void MainWindow::makeShortcuts()
{
    const MenuActions does = menuActions();
    const auto on = [this](const QKeySequence& keys, auto&& act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
    };
    for (int row = 0; row < int(kRowTitles.size()); ++row)
        on(QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + row)),
           [does, row] { does.showScreen(row); });
    on(QKeySequence::Find, does.findInList);
    on(QKeySequence::Print, does.print);
    on(QKeySequence::HelpContents, does.help);
    on(QKeySequence::Quit, does.quit);
    on(QKeySequence::Open, does.openVolume);
}

/// What has the keyboard may be on a screen that goes; what lies over the screens keeps it.
void MainWindow::followSelection()
{
    m_navigation->setCurrentRow(rowIndex(m_table.selectedRow()));
    const QWidget* const has = focusWidget();
    if (!ui::Sheet::isOver(this) && (!has || m_screens->isAncestorOf(has)))
        m_navigation->setFocus(Qt::OtherFocusReason);
}

} // namespace pryvane
