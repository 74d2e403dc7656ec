#include "findings/views/FindingsSource.h"

#include "core/Escape.h"
#include "core/Texts.h"
#include "signatures/MakersApplications.h"
#include "ui/Labels.h"
#include "words/Shown.h"

#include <QObject>

namespace pryvane {

FindingsSource::FindingsSource(std::string user,
                               std::function<std::string(std::string_view)> foldedName,
                               Ticked ticked, Of of)
    : m_user(std::move(user)), m_foldedName(std::move(foldedName)), m_ticked(std::move(ticked)),
      m_of(of)
{
}

std::vector<ui::Column> FindingsSource::columns(Of of)
{
    QStringList words{QObject::tr("removed"), QObject::tr("not removed")};
    if (of == Of::Scan)
        words += evidenceWords();
    else
        words += {QObject::tr("still there"), QObject::tr("gone"), QObject::tr("not known")};
    return {{.title = QObject::tr("Selected"), .width = 40},
            {.title = QObject::tr("Name"), .stretches = true},
            {.title = QObject::tr("Threat"), .width = 170},
            {.title = of == Of::Scan ? QObject::tr("Evidence") : QObject::tr("Now"),
             .isChip = true,
             .words = words},
            {.title = QObject::tr("Location"), .isPath = true, .isBelow = true},
            {.title = QObject::tr("Size"), .width = 80, .isNumber = true, .isSpare = true}};
}

void FindingsSource::setRecords(std::shared_ptr<const SpywareList> records)
{
    m_records = std::move(records);
    m_evidence.clear();
    m_lookedAt = 0;
    m_remoteDesktop.reset();
}

int FindingsSource::selectableCount() const
{
    const auto remoteDesktop = m_of == Of::Scan ? remoteDesktopRow() : std::nullopt;
    int selectable = 0;
    for (int row = 0; row < count(); ++row)
        if (m_of == Of::Scan)
            selectable += !record(row).isDeleted && row != remoteDesktop ? 1 : 0;
        else
            selectable += isSelectable(row) ? 1 : 0;
    return selectable;
}

bool FindingsSource::isSelectable(int row) const
{
    const Spyware& found = record(row);
    return !found.isDeleted && !isRemoteDesktop(found) && (m_of == Of::Scan || found.isAvail());
}

/// Looks at each row once only: the list may be long, and grow.
std::optional<int> FindingsSource::remoteDesktopRow() const
{
    for (; m_lookedAt < count(); ++m_lookedAt)
        if (isRemoteDesktop(record(m_lookedAt)))
            m_remoteDesktop = m_lookedAt;
    return m_remoteDesktop;
}

const Spyware& FindingsSource::record(int row) const
{
    return *m_records->at(static_cast<std::size_t>(row));
}

/// Of all threats' rules.
ExplainQuestion FindingsSource::question(int row) const
{
    const std::string user(record(row).user);
    return {record(row).url.relativePath(), user.empty() ? m_user : user, m_foldedName};
}

const FlaggedBy& FindingsSource::flaggedBy(int row) const
{
    const auto [known, isNew] = m_evidence.try_emplace(&record(row));
    if (isNew)
        known->second = m_rules.flaggedBy(record(row));
    return known->second;
}

QString FindingsSource::whyFound(int row) const
{
    QStringList lines;
    for (const ExplainMatch& match : explain(question(row)).matches)
        lines +=
            QObject::tr("%1: %2, %3 \"%4\"")
                .arg(ui::text(forScreen(match.row.family)), ui::shown(evidenceText(match.evidence)),
                     ui::shown(ruleWords(ruleText(match.row.rule))),
                     ui::text(forScreen(match.location)));
    return lines.join(QLatin1Char('\n'));
}

int FindingsSource::count() const
{
    return m_records ? static_cast<int>(m_records->size()) : 0;
}

ui::Cell FindingsSource::cell(int row, int column) const
{
    const Spyware& found = record(row);
    switch (column) {
    case Name: {
        const bool folder = found.url.mustBeFolder();
        return {.text = ui::text(forScreen(found.name())),
                .iconName = folder ? QStringLiteral("folder") : QStringLiteral("file")};
    }
    case Threat:
        return {.text = ui::text(forScreen(found.infections))};
    case EvidenceColumn:
        return evidenceOrOutcome(row);
    case Location:
        return {.text = ui::text(forScreen(found.url.relativePath()))};
    case Size:
        return {.text = ui::shown(sizeText(found.size)), .number = found.size};
    default:
        return {};
    }
}

/// What became of a finding is of more interest than why it was found.
ui::Cell FindingsSource::evidenceOrOutcome(int row) const
{
    const Spyware& found = record(row);
    if (found.isDeleted)
        return {.text = QObject::tr("removed"),
                .iconName = QStringLiteral("clean"),
                .meaning = ui::Meaning::Clean,
                .number = -1,
                .tooltip = ui::shown(forScreen(found.removalRemark))};
    if (!found.removalFailure.empty())
        return {.text = QObject::tr("not removed"),
                .iconName = QStringLiteral("attention"),
                .meaning = ui::Meaning::Found,
                .number = -2,
                .tooltip = ui::shown(forScreen(found.removalFailure))};
    return m_of == Of::Scan ? evidenceCell(flaggedBy(row)) : presence(row);
}

ui::Cell FindingsSource::presence(int row) const
{
    const Spyware& found = record(row);
    switch (found.presence) {
    case Presence::Present:
        return {.text = QObject::tr("still there"),
                .iconName = QStringLiteral("found"),
                .meaning = ui::Meaning::Found,
                .number = 0};
    case Presence::Absent:
        return {.text = QObject::tr("gone"), .iconName = QStringLiteral("gone"), .number = 1};
    case Presence::Unknown:
        break;
    }
    return {.text = QObject::tr("not known"),
            .iconName = QStringLiteral("info"),
            .number = 2,
            .tooltip = ui::shown(found.presenceReason)};
}

/// Why something stayed, or is not known, is not left to a tooltip.
ui::Cell FindingsSource::remark(int row) const
{
    const Spyware& found = record(row);
    if (!found.isDeleted && !found.removalFailure.empty())
        return {.text = ui::shown(forScreen(found.removalFailure)), .meaning = ui::Meaning::Found};
    if (m_of == Of::Report && !found.isDeleted && found.presence == Presence::Unknown)
        return {.text = ui::shown(found.presenceReason)};
    return {};
}

std::optional<bool> FindingsSource::ticked(int row) const
{
    if (!m_selectable || !isSelectable(row))
        return std::nullopt;
    return record(row).isChecked;
}

bool FindingsSource::hidden(int row) const
{
    return m_of == Of::Scan && isRemoteDesktop(record(row));
}

void FindingsSource::tick(const std::vector<int>& rows, bool on)
{
    m_ticked(rows, on);
}

QString FindingsSource::group(int row, int grouping) const
{
    if (grouping == ByThreat)
        return ui::text(forScreen(record(row).infections));
    const std::string path = record(row).url.absolutePath();
    return ui::text(forScreen(path.substr(0, std::max<std::size_t>(1, path.rfind('/')))));
}

QString FindingsSource::searchText(int row) const
{
    const Spyware& found = record(row);
    return ui::text(forScreen(found.infections) + '\n' + forScreen(found.url.relativePath()));
}

bool FindingsSource::faded(int row) const
{
    return !record(row).isAvail() || record(row).isDeleted;
}

QString ruleShown(const FlaggedBy& flaggedBy)
{
    return ui::shown(ruleWords(flaggedBy.rule));
}

ui::Cell evidenceCell(const FlaggedBy& flaggedBy)
{
    const Evidence evidence = flaggedBy.evidence;
    static const char* const icons[] = {"exact-path", "launch-folder", "name-fragment",
                                        "bare-substring"};
    QString why = ruleShown(flaggedBy);
    if (!flaggedBy.text.empty())
        why += QStringLiteral(": ") + ui::text(forScreen(flaggedBy.text));
    return {.text = ui::shown(evidenceText(evidence)),
            .iconName = QLatin1String(icons[static_cast<int>(evidence)]),
            .meaning = isWeak(evidence) ? ui::Meaning::Attention : ui::Meaning::Neutral,
            .number = static_cast<qint64>(evidence),
            .tooltip = why,
            .whole = ui::shown(forScreen(evidenceText(flaggedBy)))};
}

QStringList evidenceWords()
{
    QStringList words;
    for (const Evidence evidence : {Evidence::ExactPath, Evidence::NameInLaunchFolder,
                                    Evidence::NameFragment, Evidence::BareSubstring})
        words += ui::shown(evidenceText(evidence));
    return words;
}

} // namespace pryvane
