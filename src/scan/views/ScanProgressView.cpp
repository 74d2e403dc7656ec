#include "scan/views/ScanProgressView.h"

#include "scan/ScanDisplay.h"
#include "ui/Labels.h"
#include "words/Shown.h"

#include <QHBoxLayout>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>

namespace pryvane {

using ui::TextRole;

namespace {

QString elapsedText(qint64 milliseconds)
{
    const qint64 seconds = milliseconds / 1000;
    return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

constexpr qint64 kTellsFrom = 5000; // ms: before that it would be a guess

} // namespace

ScanPace paceOf(const ScanDisplay& display, qint64 milliseconds)
{
    const double part = display.progressBar / 100;
    if (display.entries <= 0 || milliseconds < kTellsFrom || part <= 0 || part >= 1)
        return {};
    const double seconds = double(milliseconds) / 1000;
    return {std::llround(double(display.entries) * part / seconds),
            std::llround(seconds * (1 - part) / part)};
}

ScanProgressView::ScanProgressView(QWidget* parent)
    : Card(parent), m_percent(ui::makeLabel(TextRole::Statement)), m_facts(ui::makeNote()),
      m_kind(ui::makeNote()), m_bar(new QProgressBar), m_location(new ui::ElidedLabel),
      m_stop(new QPushButton(tr("Stop")))
{
    m_stop->setObjectName(QStringLiteral("stopScan"));
    m_stop->setAccessibleName(tr("Stop the scan"));
    m_bar->setAccessibleName(tr("Scan progress"));
    m_bar->setTextVisible(false);
    m_bar->setFixedHeight(10);
    m_facts->setWordWrap(false);
    m_kind->setWordWrap(false);
    ui::setTextRole(*m_location, TextRole::Path);
    connect(m_stop, &QPushButton::clicked, this, &ScanProgressView::stopWanted);

    auto* head = new QHBoxLayout;
    head->setSpacing(ui::kGroups);
    head->addWidget(m_percent);
    head->addWidget(m_facts, 1, Qt::AlignBottom);
    head->addWidget(m_stop);
    auto* foot = new QHBoxLayout;
    foot->addWidget(m_kind);
    foot->addWidget(m_location, 1);
    column()->addLayout(head);
    column()->addWidget(m_bar);
    column()->addLayout(foot);
}

void ScanProgressView::show(const ScanDisplay& display)
{
    m_percent->setText(ui::text(display.progressText));
    m_bar->setRange(0, display.indeterminate ? 0 : 100);
    m_bar->setValue(static_cast<int>(display.progressBar));
    QStringList facts{elapsedText(m_elapsed.isValid() ? m_elapsed.elapsed() : 0),
                      tr("%n found", nullptr, static_cast<int>(display.findings))};
    if (display.entries > 0)
        facts += tr("%1 entries").arg(QLocale().toString(static_cast<qlonglong>(display.entries)));
    if (const ScanPace pace = paceOf(display, m_elapsed.isValid() ? m_elapsed.elapsed() : 0);
        pace.secondsLeft >= 0) {
        facts += tr("%1 entries a second").arg(QLocale().toString(pace.entriesPerSecond));
        facts += tr("about %1 left").arg(elapsedText(1000 * pace.secondsLeft));
    }
    m_facts->setText(facts.join(QStringLiteral("   ")));
    m_kind->setText(ui::shown(display.scanTypeLabel));
    m_location->setText(ui::shown(display.location));
    m_stop->setVisible(display.stopButton);
}

} // namespace pryvane
