#include "removal/views/PlanSheet.h"

#include "core/Texts.h"
#include "ui/Labels.h"
#include "ui/Pages.h"
#include "ui/RowTable.h"
#include "ui/Spinner.h"
#include "ui/Style.h"
#include "words/Shown.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace pryvane {

namespace {

constexpr int kTableHeight = 280;

QString totalsText(const RemovalPlan::Totals& totals)
{
    QString text = PlanSheet::tr("%1 selected: %2 entries, %3")
                       .arg(QLocale().toString(static_cast<qulonglong>(totals.rows)),
                            QLocale().toString(static_cast<qulonglong>(totals.entries)) +
                                (totals.countedWhole ? QString() : QStringLiteral("+")),
                            ui::shown(sizeText(totals.bytes)));
    if (totals.hindered > 0)
        text += PlanSheet::tr("; %1 cannot be removed as things are")
                    .arg(QLocale().toString(static_cast<qulonglong>(totals.hindered)));
    return text;
}

} // namespace

PlanSheet::PlanSheet(QWidget* over, PlanSource::Ticked ticked)
    : Sheet(over, tr("What would be removed")), m_source(std::move(ticked)),
      m_model(m_source, PlanSource::columns()),
      m_table(new ui::RowTable(m_model, tr("What would be removed"))), m_pages(new ui::Pages),
      m_grouping(new QComboBox), m_totals(ui::makeLabel(ui::TextRole::Body)),
      m_weak(ui::makeNote()),
      m_safety(
          ui::makeNote(tr("If somebody may be watching this Mac: removing destroys evidence of "
                          "it, and whoever installed it may notice. Keep a record first, and "
                          "think of your safety before you go on."))),
      m_keepRecord(new QPushButton(tr("Keep a Record First…"))),
      m_leaveWeakOut(new QPushButton(tr("Leave these out"))),
      m_cancel(new QPushButton(tr("Cancel"))), m_remove(new QPushButton(tr("Remove for good…")))
{
    setObjectName(QStringLiteral("planSheet"));
    m_table->setObjectName(QStringLiteral("plan"));
    m_leaveWeakOut->setObjectName(QStringLiteral("leaveWeakOut"));
    m_remove->setObjectName(QStringLiteral("removeForGood"));
    m_safety->setObjectName(QStringLiteral("safetyNote"));
    m_keepRecord->setObjectName(QStringLiteral("keepRecord"));
    m_keepRecord->setToolTip(tr("Writes the report as a PDF and as JSON"));
    m_cancel->setObjectName(QStringLiteral("cancelPlan"));
    setDefault(m_cancel);
    ui::makeDestructive(*m_remove);
    m_grouping->setAccessibleName(tr("Group by"));
    m_grouping->addItems({tr("No groups"), tr("Group by rule"), tr("Group by folder")});
    m_grouping->setCurrentIndex(PlanSource::ByRule);
    m_model.setGrouping(PlanSource::ByRule);
    layOut();
    connect(m_grouping, &QComboBox::currentIndexChanged, &m_model, &ui::RowModel::setGrouping);
    connect(&m_model, &QAbstractItemModel::dataChanged, this, &PlanSheet::showTotals);
    connect(m_leaveWeakOut, &QPushButton::clicked, this, &PlanSheet::leaveWeakOut);
    connect(m_keepRecord, &QPushButton::clicked, this, &PlanSheet::recordWanted);
    connect(m_cancel, &QPushButton::clicked, this, &Sheet::dismiss);
    connect(m_remove, &QPushButton::clicked, this, [this] {
        dismiss();
        m_source.handOnTicks();
        Q_EMIT removalWanted();
    });
}

void PlanSheet::layOut()
{
    m_pages->addWidget(ui::makeBusyPage(tr("Looking at what would go…")));
    m_pages->addWidget(m_table);
    m_pages->setMinimumHeight(kTableHeight);

    auto* head = new QHBoxLayout;
    head->setSpacing(ui::kRelated);
    head->addWidget(m_totals, 1);
    head->addWidget(m_grouping);
    auto* weak = new QHBoxLayout;
    weak->setSpacing(ui::kRelated);
    weak->addWidget(m_weak, 1);
    weak->addWidget(m_leaveWeakOut);
    body()->addLayout(head);
    body()->addWidget(m_pages, 1);
    body()->addLayout(weak);
    auto* safety = new QHBoxLayout;
    safety->setSpacing(ui::kRelated);
    safety->addWidget(m_safety, 1);
    safety->addWidget(m_keepRecord);
    body()->addLayout(safety);
    body()->addWidget(ui::makeNote(
        tr("Nothing goes to a trash: what is removed is gone. Links are removed, never what they "
           "lead to.")));
    buttons()->addWidget(m_cancel);
    buttons()->addWidget(m_remove);
    setWidth(880);
    m_remove->setEnabled(false);
    m_leaveWeakOut->hide();
    m_safety->hide();
    m_keepRecord->hide();
}

void PlanSheet::present()
{
    Sheet::present(m_cancel);
}

void PlanSheet::setPlan(const RemovalPlan& plan)
{
    m_source.setPlan(plan);
    m_model.reset();
    m_pages->setCurrentIndex(1);
    m_safety->setVisible(plan.isFirst);
    m_keepRecord->setVisible(plan.isFirst);
    showTotals();
}

void PlanSheet::tellRecord(const QString& words)
{
    m_safety->setText(words);
}

void PlanSheet::leaveWeakOut()
{
    m_source.tick(m_source.weakTicked(), false);
    m_model.refresh();
    m_cancel->setFocus(Qt::OtherFocusReason);
}

void PlanSheet::showTotals()
{
    const RemovalPlan::Totals totals = m_source.totals();
    const auto weak = m_source.weakCount();
    m_totals->setText(totalsText(totals));
    m_remove->setEnabled(totals.rows > totals.hindered);
    m_leaveWeakOut->setVisible(!m_source.weakTicked().empty());
    m_weak->setText(weak == 0 ? QString()
                    : weak == 1
                        ? tr("1 of these rests on a part of a name alone. It may well be something "
                             "harmless, so it is not ticked: look at it first.")
                        : tr("%1 of these rest on a part of a name alone. They may well be "
                             "something harmless, so they are not ticked: look at them first.")
                              .arg(QLocale().toString(static_cast<qulonglong>(weak))));
    m_weak->setVisible(weak > 0);
}

} // namespace pryvane
