#include "app/views/MainWindow.h"

#include "app/AppDelegate.h"
#include "app/DetailsViewController.h"
#include "app/Navigation.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Navigation.h"
#include "ui/TitleBar.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
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

} // namespace

MainWindow::MainWindow(AppDelegate& delegate, TableViewController& table, QStackedWidget* screens,
                       const VolumeWords& volume)
    : FramedWindow(QStringLiteral("Pryvane"), 0), m_delegate(delegate), m_table(table),
      m_navigation(new ui::Navigation), m_menuButton(new QToolButton), m_menu(new QMenu(this))
{
    setObjectName(QStringLiteral("mainWindowID"));
    setMinimumSize(900, 600);
    startWith({1100, 720});
    makeMenu();
    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(makeSidebar(volume));
    row->addWidget(screens, 1);
    column()->addLayout(row, 1);
    makeShortcuts();
    connect(&m_table, &TableViewController::stateChanged, this, &MainWindow::followSelection);
    followSelection();
}

QWidget* MainWindow::makeSidebar(const VolumeWords& volume)
{
    for (const Row row : {Row::Dashboard, Row::Scan, Row::Tools, Row::Reports})
        m_navigation->addScreen(QLatin1String(kRowIcons[rowIndex(row)]),
                                ui::text(kRowTitles[static_cast<std::size_t>(rowIndex(row))]));
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
    auto* chip = new QPushButton(ui::icon(QStringLiteral("volume")),
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
    m_menuButton->setText(tr("Menu"));
    m_menuButton->setIcon(ui::icon(QStringLiteral("more")));
    m_menuButton->setObjectName(QStringLiteral("menu"));
    m_menuButton->setAccessibleName(tr("Menu"));
    m_menuButton->setToolTip(tr("Menu"));
    m_menuButton->setAutoRaise(true);
    m_menuButton->setMinimumSize(ui::kTarget, ui::kTarget);
    connect(m_menuButton, &QToolButton::clicked, this, [this] {
        m_menu->popup(m_menuButton->mapToGlobal(m_menuButton->rect().bottomLeft()));
    });
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
    QMenu* file = m_menu->addMenu(tr("File"));
    file->addAction(tr("Open Volume…"), this, &MainWindow::openVolumeWanted);
    QAction* print = file->addAction(ui::icon(QStringLiteral("print")), tr("Print…"), &m_delegate,
                                     &AppDelegate::printReport);
    print->setShortcut(QKeySequence::Print);
    print->setEnabled(m_delegate.canPrint());
    file->addSeparator();
    file->addAction(tr("Quit"), QKeySequence::Quit, &m_delegate, &AppDelegate::terminateSelf);
    QMenu* window = m_menu->addMenu(tr("Window"));
    for (const WindowMenuEntry& entry : m_delegate.windowMenu()) {
        if (entry.title.empty()) {
            window->addSeparator();
            continue;
        }
        QAction* action = window->addAction(ui::buttonText(entry.title), &m_delegate,
                                            &AppDelegate::bringAllAppToFront);
        action->setCheckable(entry.checked);
        action->setChecked(entry.checked);
    }
    m_menu->addSeparator();
    m_menu->addAction(ui::icon(QStringLiteral("help")), tr("Pryvane Help"),
                      QKeySequence::HelpContents, &m_delegate, &AppDelegate::getHelp);
}

void MainWindow::makeShortcuts()
{
    const auto on = [this](const QKeySequence& keys, auto&& act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
    };
    for (int row = 0; row < int(kRowTitles.size()); ++row)
        on(QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + row)),
           [this, row] { m_navigation->setCurrentRow(row); });
    on(QKeySequence::Find, [this] { Q_EMIT filterWanted(); });
    on(QKeySequence::Print, [this] {
        if (m_delegate.canPrint())
            m_delegate.printReport();
    });
    on(QKeySequence::HelpContents, [this] { m_delegate.getHelp(); });
    on(QKeySequence::Quit, [this] { m_delegate.terminateSelf(); });
    on(QKeySequence::Open, [this] { Q_EMIT openVolumeWanted(); });
}

void MainWindow::followSelection()
{
    m_navigation->setCurrentRow(rowIndex(m_table.selectedRow()));
    m_navigation->setFocus(Qt::OtherFocusReason); // what had it may be on a screen that has gone
}

} // namespace pryvane
