#include "privacy/views/ToolsStatus.h"

#include "core/Texts.h"
#include "privacy/ToolsViewController.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Listen.h"
#include "ui/Theme.h"
#include "words/Shown.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace pryvane {

namespace {

using State = ToolsViewController::State;

constexpr int kLook = 100; // ms between two looks at the progress

QPushButton* makeButton(const QString& title, const char* name)
{
    auto* button = new QPushButton(title);
    button->setObjectName(QLatin1String(name));
    return button;
}

} // namespace

ToolsStatus::ToolsStatus(ToolsViewController& controller, QWidget* parent)
    : QWidget(parent), m_controller(controller),
      m_statement(ui::makeLabel(ui::TextRole::Statement)), m_detail(ui::makeNote()),
      m_bar(new QProgressBar), m_stop(makeButton(tr("Stop"), "stopMeasuring")),
      m_measure(makeButton(tr("Measure again"), "measure")), m_outcome(new QWidget),
      m_outcomeIcon(new QLabel), m_outcomeText(ui::makeLabel(ui::TextRole::Body)),
      m_cleared(makeButton(tr("What went…"), "showCleared")),
      m_leftOvers(makeButton(tr("What stayed…"), "showLeftOvers"))
{
    m_statement->setObjectName(QStringLiteral("statement"));
    m_outcomeText->setObjectName(QStringLiteral("outcome"));
    m_bar->setTextVisible(false);
    m_bar->setFixedHeight(6);
    m_bar->setAccessibleName(tr("Progress"));
    for (QLabel* label : {m_statement, m_detail, m_outcomeText}) {
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setFocusPolicy(Qt::NoFocus);
    }
    layOut();
    m_clock.setInterval(kLook);
    connect(&m_clock, &QTimer::timeout, this, &ToolsStatus::showProgress);
    connect(m_stop, &QPushButton::clicked, this, [this] { m_controller.stop(); });
    connect(m_measure, &QPushButton::clicked, this,
            [this] { m_controller.resetAndAddavailbleApplications(); });
    connect(m_cleared, &QPushButton::clicked, this, &ToolsStatus::clearedWanted);
    connect(m_leftOvers, &QPushButton::clicked, this, &ToolsStatus::leftOversWanted);
    ui::listen(m_controller.stateChanged, this, [this] {
        // The one that ends a clearing; it is followed by a scan at once.
        const bool cleaning = m_controller.state() == State::Cleaning;
        if (m_wasCleaning && !cleaning)
            showOutcome();
        m_wasCleaning = cleaning;
    });
    m_outcome->hide();
    showState();
}

void ToolsStatus::layOut()
{
    auto* words = new QVBoxLayout;
    words->setSpacing(2);
    words->addWidget(m_statement);
    words->addWidget(m_detail);
    auto* head = new QHBoxLayout;
    head->setSpacing(ui::kRelated);
    head->addLayout(words, 1);
    head->addWidget(m_stop, 0, Qt::AlignVCenter);
    head->addWidget(m_measure, 0, Qt::AlignVCenter);
    m_outcomeText->setWordWrap(true);
    auto* done = new QHBoxLayout(m_outcome);
    done->setContentsMargins(0, 0, 0, 0);
    done->setSpacing(ui::kRelated);
    done->addWidget(m_outcomeIcon);
    done->addWidget(m_outcomeText, 1);
    done->addWidget(m_cleared);
    done->addWidget(m_leftOvers);
    QSizePolicy kept = m_bar->sizePolicy();
    kept.setRetainSizeWhenHidden(true);
    m_bar->setSizePolicy(kept);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(ui::kRelated);
    column->addLayout(head);
    column->addWidget(m_bar);
    column->addWidget(m_outcome);
}

void ToolsStatus::showState()
{
    const State state = m_controller.state();
    const bool busy = state == State::Scanning || state == State::Cleaning;
    if (busy && !m_clock.isActive())
        m_clock.start();
    else if (!busy)
        m_clock.stop();
    m_bar->setVisible(busy);
    m_stop->setVisible(busy);
    m_stop->setAccessibleName(state == State::Cleaning ? tr("Stop clearing")
                                                       : tr("Stop measuring"));
    m_measure->setVisible(!busy);
    m_measure->setEnabled(state == State::Idle);
    if (state == State::Cleaning)
        m_outcome->hide();
    showStatement();
    showProgress();
}

void ToolsStatus::showStatement()
{
    const std::int64_t bytes = allBytes(m_controller.availbleApp());
    const QString size = ui::shown(sizeText(bytes));
    const bool known = !m_controller.availbleApp().empty();
    m_measure->setText(known ? tr("Measure again") : tr("Measure"));
    switch (m_controller.state()) {
    case State::Scanning:
        return m_statement->setText(bytes > 0 ? tr("Measuring: %1 so far").arg(size)
                                              : tr("Measuring what can be cleared"));
    case State::Cleaning:
        m_detail->setText(tr("What has been cleared stays cleared, even after a stop."));
        return m_statement->setText(tr("Clearing what you ticked"));
    default:
        break;
    }
    if (m_controller.isMeasured()) {
        const PrivacyProgress& progress = m_controller.progress();
        const bool all = progress.whole && progress.allSeen;
        m_statement->setText(bytes > 0 ? tr("%1 can be cleared").arg(size)
                             : all     ? tr("There is nothing to clear")
                                       : tr("Nothing to clear was found"));
        QString words =
            !progress.allSeen ? tr("Not every folder could be looked at; the items say which.")
            : !progress.whole ? tr("There are more profiles or folders than were looked at.")
            : bytes > 0 ? tr("Tick what you want to be rid of. Nothing is ticked for you, and "
                             "nothing goes before you have seen it.")
                        : tr("All that was looked at is empty or not there.");
        std::int64_t ofGroups = 0;
        for (const ToolGroup& group : m_controller.availbleApp())
            ofGroups += group.bytes;
        if (ofGroups > bytes)
            words += QLatin1Char(' ') + tr("A place that two groups share is counted once.");
        m_detail->setText(words);
    } else {
        m_statement->setText(known ? tr("Stopped: %1 measured").arg(size) : tr("Not measured yet"));
        m_detail->setText(known ? tr("Groups that are not listed were not reached.")
                                : tr("Measuring reads sizes only, never what is in a file."));
    }
}

void ToolsStatus::showProgress()
{
    if (m_controller.state() == State::Cleaning)
        return m_bar->setRange(0, 0);
    if (m_controller.state() != State::Scanning)
        return;
    const PrivacyProgress& progress = m_controller.progress();
    const std::size_t all = progress.locations, done = progress.measured;
    m_bar->setRange(0, static_cast<int>(all));
    m_bar->setValue(static_cast<int>(done));
    m_detail->setText(
        all == 0 ? tr("Looking for what is there")
                 : tr("%1 of %2, %3 looked at")
                       .arg(done)
                       .arg(ui::shown(countedText(all, "location", "locations")),
                            ui::shown(countedText(progress.sizes.entries, "entry", "entries"))));
}

void ToolsStatus::showOutcome()
{
    const CleaningOutcome& outcome = m_controller.outcome();
    const bool whole = outcome.stayed.empty();
    m_outcomeIcon->setPixmap(ui::icon(whole ? QStringLiteral("clean") : QStringLiteral("attention"),
                                      whole ? ui::Meaning::Clean : ui::Meaning::Attention)
                                 .pixmap(QSize(20, 20), devicePixelRatioF()));
    QString words = tr("%1, %2 cleared.")
                        .arg(ui::shown(countedText(outcome.entriesRemoved, "entry", "entries")),
                             ui::shown(sizeText(outcome.bytesRemoved)));
    if (!whole)
        words += QLatin1Char(' ') +
                 tr("%1 stayed.")
                     .arg(ui::shown(countedText(outcome.stayed.size(), "location", "locations")));
    m_outcomeText->setText(words);
    m_cleared->setVisible(outcome.entriesRemoved > 0);
    m_leftOvers->setVisible(!whole);
    m_outcome->show();
    QAccessibleEvent told(m_outcomeText, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
}

} // namespace pryvane
