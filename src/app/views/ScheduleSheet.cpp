#include "app/views/ScheduleSheet.h"

#include "app/SchedulerVC.h"
#include "ui/Labels.h"
#include "ui/Style.h"
#include "ui/Surfaces.h"
#include "words/Shown.h"

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
    edit->setDisplayFormat(QStringLiteral("ddd d MMM yyyy"));
    name(*edit, title);
    return edit;
}

} // namespace

ScheduleSheet::ScheduleSheet(QWidget* over, SchedulerVC& scheduler)
    : Sheet(over, tr("Scheduled scan")), m_scheduler(scheduler),
      m_isScheduleOn(new ui::SwitchRow(
          tr("Scan on a schedule"), tr("While Pryvane is running, with its window or without."))),
      m_fields(new QWidget),
      m_alsoWhenClosed(new ui::SwitchRow(tr("Also when Pryvane is closed"), {})),
      m_startDatePicker(makeDateEdit(tr("First day"))),
      m_endDatePicker(makeDateEdit(tr("Last day"))), m_timePicker(new QTimeEdit),
      m_scheduleTypePopUp(new QComboBox), m_sentence(ui::makeLabel(ui::TextRole::Body)),
      m_save(new QPushButton(tr("Save"))), m_cancel(new QPushButton(tr("Cancel")))
{
    setObjectName(QStringLiteral("schedulerVC"));
    m_isScheduleOn->box()->setObjectName(QStringLiteral("isScheduleOn"));
    m_alsoWhenClosed->box()->setObjectName(QStringLiteral("alsoWhenClosed"));
    m_timePicker->setDisplayFormat(QStringLiteral("HH:mm"));
    name(*m_timePicker, tr("Time of day"));
    m_scheduleTypePopUp->setAccessibleName(tr("Repeat"));
    m_scheduleTypePopUp->setMinimumHeight(ui::kTarget);
    for (const std::string_view title : kScheduleTypeTitles)
        m_scheduleTypePopUp->addItem(ui::shown(title));
    m_sentence->setObjectName(QStringLiteral("whatWillHappen"));
    layOut();
    connect(m_startDatePicker, &QDateEdit::dateTimeChanged, this,
            [this](const QDateTime& date) { m_scheduler.setStartDatePicker(fromQt(date)); });
    connect(m_endDatePicker, &QDateEdit::dateTimeChanged, this,
            [this](const QDateTime& date) { m_scheduler.setEndDatePicker(fromQt(date)); });
    connect(m_timePicker, &QTimeEdit::dateTimeChanged, this,
            [this](const QDateTime& date) { m_scheduler.setTimePicker(fromQt(date)); });
    connect(m_scheduleTypePopUp, &QComboBox::currentIndexChanged, &m_scheduler,
            &SchedulerVC::setScheduleTypePopUp);
    connect(m_isScheduleOn->box(), &QCheckBox::toggled, &m_scheduler, &SchedulerVC::setScheduleOn);
    connect(m_alsoWhenClosed->box(), &QCheckBox::toggled, &m_scheduler,
            &SchedulerVC::setAlsoWhenClosed);
    connect(&m_scheduler, &SchedulerVC::stateChanged, this, &ScheduleSheet::showState);
    connect(m_save, &QPushButton::clicked, this, &ScheduleSheet::save);
    connect(m_cancel, &QPushButton::clicked, this, &Sheet::dismiss);
    showState();
}

void ScheduleSheet::layOut()
{
    auto* form = new QFormLayout(m_fields);
    form->setContentsMargins(0, 0, 0, 0);
    form->setSpacing(ui::kRelated);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setLabelAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    form->addRow(tr("Repeat"), m_scheduleTypePopUp);
    form->addRow(tr("Time of day"), m_timePicker);
    form->addRow(tr("First day"), m_startDatePicker);
    form->addRow(tr("Last day"), m_endDatePicker);
    m_sentence->setWordWrap(true);
    m_sentence->setMinimumHeight(2 * fontMetrics().lineSpacing());
    m_sentence->setAlignment(Qt::AlignTop | Qt::AlignLeading);
    body()->setSpacing(ui::kGroups);
    body()->addWidget(m_isScheduleOn);
    body()->addWidget(m_fields);
    body()->addWidget(m_sentence);
    body()->addWidget(m_alsoWhenClosed);
    ui::makePrimary(*m_save);
    setDefault(m_save);
    buttons()->addWidget(m_save);
    buttons()->addWidget(m_cancel);
    setWidth(440);
}

void ScheduleSheet::present()
{
    Sheet::present(m_isScheduleOn->box());
}

/// A refusal leaves the form open, so that it can be mended.
void ScheduleSheet::save()
{
    if (m_scheduler.save())
        dismiss();
}

void ScheduleSheet::showState()
{
    const ScheduleForm& form = m_scheduler.form();
    const auto show = [](QDateTimeEdit& edit, Date value) {
        const QSignalBlocker quiet(edit);
        edit.setDateTime(toQt(value));
    };
    const QSignalBlocker quiet(m_startDatePicker), quietToo(m_endDatePicker),
        quietThree(m_scheduleTypePopUp);
    m_startDatePicker->setMinimumDate(
        toQt(std::min(form.minimumStart, form.startDatePicker)).date());
    m_endDatePicker->setMinimumDate(toQt(std::min(form.minimumEnd, form.endDatePicker)).date());
    show(*m_startDatePicker, form.startDatePicker);
    show(*m_endDatePicker, form.endDatePicker);
    show(*m_timePicker, form.timePicker);
    m_scheduleTypePopUp->setCurrentIndex(form.scheduleTypePopUp);
    ui::showTicked(*m_isScheduleOn->box(), form.isScheduleOn);
    m_fields->setEnabled(form.isScheduleOn);
    m_sentence->setText(ui::shown(m_scheduler.formSentence()));
    const ClosedScansRow closed = m_scheduler.closedScansRow();
    m_alsoWhenClosed->setVisible(closed.isShown);
    m_alsoWhenClosed->setEnabled(closed.isEnabled);
    m_alsoWhenClosed->setExplanation(ui::shown(closed.line));
    ui::showTicked(*m_alsoWhenClosed->box(), form.alsoWhenClosed);
}

} // namespace pryvane
