#include "removal/views/BrowserPanelSheet.h"

#include "core/Escape.h"
#include "removal/session/FourceQuitBrowserView.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Listen.h"
#include "ui/Style.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <memory>

namespace pryvane {

void BrowserPanelSheet::follow(QWidget* over, FourceQuitBrowserView& panel)
{
    auto shown = std::make_shared<QPointer<BrowserPanelSheet>>();
    ui::listen(panel.changed, over, [over, shown, &panel] {
        if (panel.isPresented() && !*shown) {
            *shown = new BrowserPanelSheet(over, panel);
            (*shown)->present();
        } else if (panel.isPresented()) {
            (*shown)->showBrowsers();
        } else if (*shown) {
            (*shown)->dismiss();
            shown->clear();
        }
    });
}

BrowserPanelSheet::BrowserPanelSheet(QWidget* over, FourceQuitBrowserView& panel)
    : Sheet(over, tr("Quit these browsers first")), m_panel(panel), m_list(new QVBoxLayout),
      m_retry(new QPushButton(tr("Retry")))
{
    setObjectName(QStringLiteral("FourceQuitBrowserView"));
    m_list->setSpacing(ui::kRelated);
    body()->addWidget(ui::makeNote(
        tr("While a browser runs it keeps its files open, and something was found among them. Quit "
           "it, then retry. Nothing is removed until then.")));
    body()->addLayout(m_list);
    auto* close = new QPushButton(tr("Close"));
    close->setObjectName(QStringLiteral("closeWindowButton"));
    m_retry->setObjectName(QStringLiteral("retryButton"));
    ui::makePrimary(*m_retry);
    setDefault(m_retry);
    buttons()->addWidget(m_retry);
    buttons()->addWidget(close);
    connect(m_retry, &QPushButton::clicked, this, [this] { m_panel.retryCleaningAction(); });
    connect(close, &QPushButton::clicked, this, [this] { m_panel.closeWindowAction(); });
    // Esc closes the sheet by itself.
    connect(this, &Sheet::closed, this, [this] {
        if (m_panel.isPresented())
            m_panel.closeWindowAction();
    });
    setWidth(420);
    showBrowsers();
}

void BrowserPanelSheet::present()
{
    Sheet::present(m_retry);
}

void BrowserPanelSheet::showBrowsers()
{
    while (QLayoutItem* old = m_list->takeAt(0)) {
        delete old->widget();
        delete old;
    }
    QStringList names;
    for (const BrowserEntry& entry : m_panel.browserListController()) {
        const QString name = ui::text(forScreen(entry.NameBrowser));
        names += name;
        auto* row = new QWidget;
        auto* line = new QHBoxLayout(row);
        line->setContentsMargins(0, 0, 0, 0);
        line->setSpacing(ui::kRelated);
        auto* picture = new QLabel;
        picture->setPixmap(ui::icon(QStringLiteral("browser-") + name.toLower())
                               .pixmap(QSize(24, 24), devicePixelRatioF()));
        line->addWidget(picture);
        line->addWidget(ui::makeLabel(ui::TextRole::Body, name), 1);
        m_list->addWidget(row);
    }
    setAccessibleDescription(names.join(QStringLiteral(", ")));
}

} // namespace pryvane
