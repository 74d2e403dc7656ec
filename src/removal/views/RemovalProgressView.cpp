#include "removal/views/RemovalProgressView.h"

#include "removal/session/RemovalSession.h"
#include "ui/Labels.h"

#include <QHBoxLayout>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>

namespace pryvane {

RemovalProgressView::RemovalProgressView(QWidget* parent)
    : Card(parent), m_count(ui::makeLabel(ui::TextRole::GroupTitle)), m_bar(new QProgressBar),
      m_stop(new QPushButton(tr("Stop")))
{
    m_stop->setObjectName(QStringLiteral("stopRemoval"));
    m_stop->setAccessibleName(tr("Stop the removal"));
    m_bar->setAccessibleName(tr("Removal progress"));
    m_bar->setTextVisible(false);
    m_bar->setFixedHeight(10);
    connect(m_stop, &QPushButton::clicked, this, &RemovalProgressView::stopWanted);
    auto* head = new QHBoxLayout;
    head->addWidget(m_count, 1);
    head->addWidget(m_stop);
    column()->addLayout(head);
    column()->addWidget(m_bar);
}

void RemovalProgressView::show(const RemovalProgress& progress)
{
    const auto number = [](std::size_t value) {
        return QLocale().toString(static_cast<qulonglong>(value));
    };
    m_count->setText(tr("Removing: %1 of %2").arg(number(progress.done), number(progress.total)));
    m_bar->setRange(0, static_cast<int>(progress.total));
    m_bar->setValue(static_cast<int>(progress.done));
}

} // namespace pryvane
