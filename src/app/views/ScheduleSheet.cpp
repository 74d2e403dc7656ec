#include "app/views/ScheduleSheet.h"

#include "app/SchedulerVC.h"
#include "ui/Labels.h"
#include "ui/Style.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTimeEdit>
#include <QVBoxLayout>

namespace pryvane {

namespace {

QDateTime toQt(Date date)
{
    return QDateTime::fromMSecsSinceEpoch(date.time_since_epoch().count());
}

Date fromQt(const QDateTime& date)
{
    return Date(std::chrono::milliseconds(date.toMSecsSinceEpoch()));
}

void name(QAbstractSpinBox& edit, const QString& title)
{
    edit.setAccessibleName(title);
    edit.setMinimumHeight(ui::kTarget);
    if (auto* field = edit.findChild<QLineEdit*>())
        field->setAccessibleName(title);
}

QDateEdit* makeDateEdit(const QString& title)
{
    auto* edit = new QDateEdit;
    edit->setCalendarPopup(true);
    name(*edit, title);
    return edit;
}

} // namespace

ScheduleSheet::ScheduleSheet(QWidget* over, SchedulerVC& scheduler)
    : Sheet(over, tr("Scheduled scan")), m_scheduler(scheduler),
      m_isScheduleOn(new QCheckBox(tr("Scan on a schedule"))),
      m_startDatePicker(makeDateEdit(tr("First day"))),
      m_endDatePicker(makeDateEdit(tr("Last day"))), m_timePicker(new QTimeEdit),
      m_scheduleTypePopUp(new QComboBox), m_next(ui::makeNote())
{
    setObjectName(QStringLiteral("schedulerVC"));
    m_isScheduleOn->setObjectName(QStringLiteral("isScheduleOn"));
    name(*m_timePicker, tr("Time of day"));
    m_scheduleTypePopUp->setAccessibleName(tr("Repeat"));
    for (const std::string_view title : kScheduleTypeTitles)
        m_scheduleTypePopUp->addItem(ui::text(title));

    auto* form = new QFormLayout;
    form->setSpacing(ui::kRelated);
    form->addRow(tr("First day"), m_startDatePicker);
    form->addRow(tr("Last day"), m_endDatePicker);
    form->addRow(tr("Time of day"), m_timePicker);
    form->addRow(tr("Repeat"), m_scheduleTypePopUp);
    body()->addLayout(form);
    body()->addWidget(m_isScheduleOn);
    body()->addWidget(m_next);
    body()->addWidget(ui::makeNote(tr("Scheduled scans happen while Pryvane is running.")));
    auto* done = new QPushButton(tr("Done"));
    ui::makePrimary(*done);
    connect(done, &QPushButton::clicked, this, &Sheet::dismiss);
    buttons()->addWidget(done);
    setWidth(420);

    connect(m_startDatePicker, &QDateEdit::dateTimeChanged, this,
            [this](const QDateTime& date) { m_scheduler.setStartDatePicker(fromQt(date)); });
    connect(m_endDatePicker, &QDateEdit::dateTimeChanged, this,
            [this](const QDateTime& date) { m_scheduler.setEndDatePicker(fromQt(date)); });
    connect(m_timePicker, &QTimeEdit::dateTimeChanged, this,
            [this](const QDateTime& date) { m_scheduler.setTimePicker(fromQt(date)); });
    connect(m_scheduleTypePopUp, &QComboBox::activated, &m_scheduler,
            &SchedulerVC::setScheduleTypePopUp);
    connect(m_isScheduleOn, &QCheckBox::clicked, &m_scheduler, &SchedulerVC::removeSchudlerData);
    connect(&m_scheduler, &SchedulerVC::stateChanged, this, &ScheduleSheet::showState);
    showState();
}

void ScheduleSheet::present()
{
    Sheet::present(m_startDatePicker);
}

void ScheduleSheet::showState()
{
    const ScheduleForm& form = m_scheduler.form();
    const auto show = [](QDateTimeEdit& edit, Date value) {
        const QSignalBlocker quiet(edit);
        edit.setDateTime(toQt(value));
    };
    const QSignalBlocker quiet(m_startDatePicker), quietToo(m_endDatePicker);
    m_startDatePicker->setMinimumDate(
        toQt(std::min(form.minimumStart, form.startDatePicker)).date());
    m_endDatePicker->setMinimumDate(toQt(std::min(form.minimumEnd, form.endDatePicker)).date());
    show(*m_startDatePicker, form.startDatePicker);
    show(*m_endDatePicker, form.endDatePicker);
    show(*m_timePicker, form.timePicker);
    m_scheduleTypePopUp->setCurrentIndex(form.scheduleTypePopUp);
    m_isScheduleOn->setChecked(form.isScheduleOn);
    m_next->setText(ui::text(m_scheduler.nextFiringText()));
}

} // namespace pryvane
