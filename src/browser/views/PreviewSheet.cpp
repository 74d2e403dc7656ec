#include "browser/views/PreviewSheet.h"

#include "browser/views/PagesView.h"
#include "ui/Labels.h"
#include "ui/Spinner.h"
#include "ui/Style.h"
#include "words/Shown.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace pryvane {

PreviewSheet::PreviewSheet(QWidget* over)
    : Sheet(over, tr("Print this report")), m_pages(new PagesView), m_stack(new QStackedWidget),
      m_failure(ui::makeLabel(ui::TextRole::Body)), m_page(ui::makeNote()),
      m_print(new QPushButton(tr("Print…"))), m_close(new QPushButton(tr("Close")))
{
    setObjectName(QStringLiteral("previewSheet"));
    m_pages->setObjectName(QStringLiteral("pages"));
    m_print->setObjectName(QStringLiteral("printPages"));
    m_close->setObjectName(QStringLiteral("closePreview"));
    ui::makePrimary(*m_print);
    setDefault(m_print);
    m_print->setEnabled(false);
    m_failure->setObjectName(QStringLiteral("previewFailure"));
    m_failure->setWordWrap(true);
    m_failure->setAlignment(Qt::AlignCenter);
    m_failure->setTextInteractionFlags(Qt::TextSelectableByMouse);
    for (QWidget* page : {ui::makeBusyPage(tr("Preparing the pages…")),
                          static_cast<QWidget*>(m_pages), static_cast<QWidget*>(m_failure)})
        m_stack->addWidget(page);
    body()->addWidget(m_stack, 1);
    buttons()->addWidget(m_print);
    buttons()->addWidget(m_close);
    buttons()->addWidget(m_page);
    setWidth(820);
    connect(m_print, &QPushButton::clicked, this, &PreviewSheet::printWanted);
    connect(m_close, &QPushButton::clicked, this, &Sheet::dismiss);
    connect(m_pages, &PagesView::currentPageChanged, this, [this] {
        m_page->setText(tr("Page %1 of %2").arg(m_pages->currentPage()).arg(m_pages->count()));
    });
}

void PreviewSheet::present()
{
    Sheet::present(m_close);
}

void PreviewSheet::showDocument(const Result<std::string>& pdf)
{
    if (!pdf)
        return fail(pdf.error().message);
    auto pages = openDocument(*pdf);
    if (!pages)
        return fail(pages.error().message);
    m_stack->setCurrentWidget(m_pages);
    m_pages->setPages(std::move(pages).value());
    m_print->setEnabled(true);
    m_pages->setFocus(Qt::OtherFocusReason);
}

void PreviewSheet::fail(const std::string& reason)
{
    m_failure->setText(tr("The pages cannot be shown: %1").arg(ui::shown(reason)));
    m_stack->setCurrentWidget(m_failure);
}

} // namespace pryvane
