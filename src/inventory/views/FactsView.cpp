#include "inventory/views/FactsView.h"

#include "core/Escape.h"
#include "ui/Labels.h"
#include "ui/Listen.h"
#include "ui/Pages.h"
#include "ui/RowTable.h"
#include "ui/Surfaces.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStandardPaths>
#include <QVBoxLayout>

namespace pryvane {

namespace {

constexpr std::array kKinds = {FactKind::Permissions, FactKind::StartUp, FactKind::RemoteAccess};

} // namespace

FactsView::FactsView(FactsController& controller, QWidget* parent)
    : QWidget(parent), m_controller(controller), m_pages(new ui::Pages),
      m_filter(ui::makeFilterField(tr("Filter by any word"))), m_whose(new QComboBox),
      m_onlyThere(new QCheckBox(tr("Only what is still there"))), m_denied(new QCheckBox),
      m_again(new QPushButton(tr("Read again"))), m_export(new QPushButton(tr("Export…"))),
      m_said(ui::makeNote())
{
    setObjectName(QStringLiteral("factsView"));
    for (const FactKind kind : kKinds) {
        auto* page = new FactsPage(controller, kind);
        m_lists[static_cast<std::size_t>(kind)] = page;
        m_pages->addWidget(page);
        connect(page, &FactsPage::revealWanted, this, &FactsView::revealWanted);
    }
    auto* card = new ui::Card;
    card->column()->addWidget(makeTools());
    card->column()->addWidget(m_pages, 1);
    card->column()->addWidget(m_said);
    m_said->hide();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(ui::kRelated);
    column->addWidget(makeTabs());
    column->addWidget(card, 1);
    m_update.setSingleShot(true);
    m_update.setInterval(0);
    connect(&m_update, &QTimer::timeout, this, &FactsView::showState);
    ui::listen(m_controller.stateChanged, this, [this] {
        showUsers();
        for (FactsPage* page : m_lists)
            page->showState(); // at once: rows may be gone
        m_update.start();
    });
    showState();
}

QWidget* FactsView::makeTabs()
{
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    auto* choice = new QButtonGroup(this);
    for (const FactKind kind : kKinds) {
        auto* button = new QPushButton(kind == FactKind::Permissions ? tr("Permissions")
                                       : kind == FactKind::StartUp   ? tr("Start-up")
                                                                     : tr("Remote access"));
        button->setObjectName(QStringLiteral("tab-") + QLatin1String(words(kind).option));
        button->setCheckable(true);
        button->setChecked(kind == FactKind::Permissions);
        choice->addButton(button, static_cast<int>(kind));
        row->addWidget(button);
    }
    row->addStretch();
    connect(choice, &QButtonGroup::idToggled, this, [this](int kind, bool on) {
        if (on) {
            m_pages->setCurrentIndex(kind);
            showState();
        }
    });
    return bar;
}

QWidget* FactsView::makeTools()
{
    m_filter->setObjectName(QStringLiteral("factsFilter"));
    m_whose->setObjectName(QStringLiteral("factsWhose"));
    m_whose->setAccessibleName(tr("Whose"));
    m_onlyThere->setObjectName(QStringLiteral("factsOnlyThere"));
    m_denied->setObjectName(QStringLiteral("factsDenied"));
    m_again->setObjectName(QStringLiteral("factsAgain"));
    m_export->setObjectName(QStringLiteral("factsExport"));
    m_whose->addItem(tr("Everyone"));
    m_whose->addItem(tr("The whole Mac"), QString());
    auto* bar = new QWidget;
    auto* column = new QVBoxLayout(bar);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(ui::kRelated);
    auto* first = new QHBoxLayout;
    first->setSpacing(ui::kRelated);
    first->addWidget(m_filter, 1);
    first->addWidget(m_whose);
    first->addWidget(m_again);
    first->addWidget(m_export);
    auto* second = new QHBoxLayout;
    second->setSpacing(ui::kGroups);
    second->addWidget(m_onlyThere);
    second->addWidget(m_denied);
    second->addStretch();
    column->addLayout(first);
    column->addLayout(second);
    connect(m_filter, &QLineEdit::textChanged, this, [this](const QString& text) {
        for (FactsPage* page : m_lists)
            page->setFilter(text);
    });
    connect(m_whose, &QComboBox::currentIndexChanged, this, &FactsView::choose);
    connect(m_onlyThere, &QCheckBox::toggled, this, &FactsView::choose);
    connect(m_denied, &QCheckBox::toggled, this, &FactsView::choose);
    connect(m_again, &QPushButton::clicked, this, [this] { m_controller.gather(); });
    connect(m_export, &QPushButton::clicked, this, &FactsView::exportList);
    return bar;
}

void FactsView::focusFilter()
{
    m_filter->setFocus(Qt::ShortcutFocusReason);
    m_filter->selectAll();
}

void FactsView::showState()
{
    const auto kind = static_cast<FactKind>(m_pages->currentIndex());
    m_onlyThere->setVisible(FactsTableSource::hasPrograms(kind));
    const int denied = m_lists[static_cast<std::size_t>(kind)]->deniedCount();
    m_denied->setVisible(denied > 0);
    m_denied->setText(tr("Show what was denied (%1)").arg(denied));
    m_again->setEnabled(!m_controller.isGathering());
    m_export->setEnabled(m_controller.isRead(kind));
}

/// The accounts that are named, behind the two lines that are always there.
void FactsView::showUsers()
{
    constexpr int kAlways = 2;
    if (m_whose->count() == kAlways + static_cast<int>(m_controller.users().size()))
        return;
    const QVariant chosen = m_whose->currentData();
    const QSignalBlocker quiet(m_whose);
    while (m_whose->count() > kAlways)
        m_whose->removeItem(kAlways);
    for (const std::string& user : m_controller.users())
        m_whose->addItem(ui::text(forScreen(user)), QByteArray::fromStdString(user));
    m_whose->setCurrentIndex(std::max(0, m_whose->findData(chosen)));
}

void FactsView::choose()
{
    FactsTableSource::Choice choice{m_onlyThere->isChecked(), m_denied->isChecked(), {}};
    if (m_whose->currentIndex() > 0)
        choice.user = m_whose->currentData().toByteArray().toStdString();
    for (FactsPage* page : m_lists)
        page->choose(choice);
}

void FactsView::exportList()
{
    const auto kind = static_cast<FactKind>(m_pages->currentIndex());
    QFileDialog dialog(window(), tr("Export this list"),
                       QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    const QStringList filters = {tr("Text (*.txt)"), tr("JSON (*.json)"), tr("CSV (*.csv)")};
    dialog.setNameFilters(filters);
    const QString name = QLatin1String(words(kind).option);
    dialog.selectFile(name + QStringLiteral(".txt"));
    dialog.setDefaultSuffix(QStringLiteral("txt"));
    // Who chooses another form means the file's name, too.
    connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        const QString suffix = filter.section(QLatin1String("*."), 1).chopped(1);
        dialog.setDefaultSuffix(suffix);
        dialog.selectFile(name + QLatin1Char('.') + suffix);
    });
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const QString file = dialog.selectedFiles().constFirst();
    const FactsFormat format = file.endsWith(QLatin1String(".json"))  ? FactsFormat::Json
                               : file.endsWith(QLatin1String(".csv")) ? FactsFormat::Csv
                                                                      : FactsFormat::Text;
    const std::string path = QFile::encodeName(file).toStdString();
    m_controller.exportTo(path, kind, format, [self = QPointer(this), path](const auto& written) {
        if (!self)
            return;
        self->m_said->setText(
            ui::text(written ? "The list was exported to " + forScreen(path) + "."
                             : "The list was not exported: " + forScreen(written.error().message)));
        self->m_said->show();
    });
}

} // namespace pryvane
