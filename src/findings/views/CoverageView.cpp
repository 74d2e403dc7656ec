#include "findings/views/CoverageView.h"

#include "core/Escape.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Navigation.h"
#include "ui/Sheet.h"
#include "words/Shown.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

namespace pryvane {

namespace {

constexpr int kSheetWidth = 560;
constexpr std::size_t kNamed = 50; // refusals and applications that are listed by name

QString number(std::int64_t value)
{
    return QLocale().toString(static_cast<qlonglong>(value));
}

QString detailsOf(const ScanCoverage& coverage, const Subject& subject)
{
    QStringList lines;
    lines += CoverageView::tr("%1 signatures tested, %2 folders listed, %3 entries searched")
                 .arg(number(coverage.signaturesTested), number(coverage.foldersListed),
                      number(coverage.entriesSearched));
    if (coverage.entriesWalked > 0)
        lines += CoverageView::tr("%1 entries walked").arg(number(coverage.entriesWalked));
    lines += CoverageView::tr("%1 seconds").arg(coverage.seconds, 0, 'f', 1);
    if (coverage.systemVolumeLeftOut > 0)
        lines += CoverageView::tr("The system volume was not looked at: %1 signatures left out")
                     .arg(number(coverage.systemVolumeLeftOut));
    for (const std::string& leftOut : {homesLeftOutText(coverage), otherDisksText(coverage)}) {
        if (!leftOut.empty())
            lines += ui::shown(leftOut);
    }
    const auto listed = [&](const QString& title, std::size_t count, auto&& line) {
        if (count == 0)
            return;
        lines += title;
        for (std::size_t i = 0; i < std::min(count, kNamed); ++i)
            lines += QStringLiteral("    ") + line(i);
        if (count > kNamed)
            lines += CoverageView::tr("    and %1 more").arg(number(std::int64_t(count - kNamed)));
    };
    listed(CoverageView::tr("Could not be read:"), coverage.refused.size(), [&](std::size_t i) {
        const Refusal& refusal = coverage.refused[i];
        return ui::text(forScreen(refusal.path) + " (" + forScreen(refusal.reason) + ")");
    });
    listed(CoverageView::tr("Applications that the list leaves out:"), coverage.heldBack.size(),
           [&](std::size_t i) { return ui::text(forScreen(coverage.heldBack[i])); });
    if (!coverage.missingHome.empty())
        lines += CoverageView::tr("There is no home folder %1")
                     .arg(ui::text(forScreen(coverage.missingHome)));
    if (subject.isKnown())
        lines.prepend(ui::shown(subjectText(subject)));
    return lines.join(QLatin1Char('\n'));
}

} // namespace

ui::Cell verdictCell(Verdict verdict)
{
    const VerdictWords& words = wordsFor(verdict);
    ui::Cell cell{.text = ui::shown(words.shortWord), .number = static_cast<qint64>(verdict)};
    switch (words.tone) {
    case Tone::Red:
        cell.iconName = QStringLiteral("found");
        cell.meaning = ui::Meaning::Found;
        break;
    case Tone::Amber:
        cell.iconName = QStringLiteral("attention");
        cell.meaning = ui::Meaning::Attention;
        break;
    case Tone::Green:
        cell.iconName = QStringLiteral("clean");
        cell.meaning = ui::Meaning::Clean;
        break;
    }
    return cell;
}

ui::Sheet* makeCoverageSheet(QWidget* over, const ScanCoverage& coverage, const Subject& subject)
{
    auto* sheet = new ui::Sheet(over, CoverageView::tr("What was looked at"));
    auto* words = ui::makeLabel(ui::TextRole::Body, detailsOf(coverage, subject));
    words->setWordWrap(true);
    words->setTextInteractionFlags(Qt::TextSelectableByMouse);
    words->setAlignment(Qt::AlignTop | Qt::AlignLeading);
    auto* scroll = new QScrollArea; // a hundred refusals are higher than any window
    scroll->setAccessibleName(CoverageView::tr("What was looked at"));
    scroll->setWidget(words);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->viewport()->setAutoFillBackground(false);
    words->setAutoFillBackground(false);
    scroll->setMinimumHeight(std::min(words->heightForWidth(kSheetWidth) + ui::kRelated, 360));
    sheet->body()->addWidget(scroll, 1);
    auto* close = new QPushButton(CoverageView::tr("Close"));
    QObject::connect(close, &QPushButton::clicked, sheet, &ui::Sheet::dismiss);
    sheet->buttons()->addWidget(close);
    sheet->setWidth(kSheetWidth + 2 * ui::kEdge);
    return sheet;
}

CoverageView::CoverageView(QWidget* parent)
    : QWidget(parent), m_icon(new QLabel), m_verdict(ui::makeLabel(ui::TextRole::GroupTitle)),
      m_details(ui::makeLabel(ui::TextRole::Small)),
      m_disclosure(new ui::Disclosure(tr("What was looked at"), m_details))
{
    m_verdict->setObjectName(QStringLiteral("verdict"));
    for (QLabel* label : {m_verdict, m_details}) {
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    auto* row = new QHBoxLayout;
    row->setSpacing(ui::kRelated);
    row->addWidget(m_icon);
    row->addWidget(m_verdict, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addLayout(row);
    column->addWidget(m_disclosure);
}

void CoverageView::show(std::size_t findings, const ScanCoverage& coverage, const Subject& subject)
{
    const ui::Cell look = verdictCell(verdictOf(findings, coverage));
    m_icon->setPixmap(
        ui::icon(look.iconName, look.meaning).pixmap(QSize(20, 20), devicePixelRatioF()));
    m_verdict->setText(ui::shown(verdictLine(findings, coverage, subject)));
    m_details->setText(detailsOf(coverage, subject));
}

QString CoverageView::verdict() const
{
    return m_verdict->text();
}

} // namespace pryvane
