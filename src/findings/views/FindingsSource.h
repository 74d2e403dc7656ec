#pragma once

#include "findings/Spyware.h"
#include "signatures/FlaggedBy.h"
#include "ui/RowModel.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

namespace pryvane {

/// Findings as rows of a table: tick, name, threat, evidence, location, size. Those of a stored
/// report tell what is still there in place of the evidence.
class FindingsSource final : public ui::RowSource {
public:
    enum Column : int { Tick, Name, Threat, EvidenceColumn, Location, Size, ColumnCount };
    enum Grouping : int { None, ByThreat, ByFolder };

    enum class Of : std::uint8_t { Scan, Report };

    /// Tells which rows were ticked or unticked.
    using Ticked = std::function<void(const std::vector<int>& rows, bool on)>;

    /// `user` is the short name for which the rules are filled in; `foldedName` as in
    /// ExplainQuestion.
    FindingsSource(std::string user, std::function<std::string(std::string_view)> foldedName,
                   Ticked ticked, Of of);

    [[nodiscard]] static std::vector<ui::Column> columns(Of of);

    /// The list to show. Null: nothing.
    void setRecords(std::shared_ptr<const SpywareList> records);
    [[nodiscard]] const std::shared_ptr<const SpywareList>& records() const { return m_records; }
    /// Whether rows can be ticked now.
    void setSelectable(bool selectable) { m_selectable = selectable; }
    /// Rows that can be selected, at the best of times.
    [[nodiscard]] int selectableCount() const;
    [[nodiscard]] bool isOfScan() const { return m_of == Of::Scan; }
    /// The row of the remote-desktop finding, which a scan shows apart; none without.
    [[nodiscard]] std::optional<int> remoteDesktopRow() const;
    [[nodiscard]] const Spyware& record(int row) const;

    /// The strongest evidence against the record, and all of it in words.
    [[nodiscard]] const FlaggedBy& flaggedBy(int row) const;
    [[nodiscard]] QString whyFound(int row) const;

    [[nodiscard]] int count() const override;
    [[nodiscard]] ui::Cell cell(int row, int column) const override;
    [[nodiscard]] std::optional<bool> ticked(int row) const override;
    void tick(const std::vector<int>& rows, bool on) override;
    [[nodiscard]] QString group(int row, int grouping) const override;
    [[nodiscard]] bool hidden(int row) const override;
    [[nodiscard]] QString searchText(int row) const override;
    [[nodiscard]] ui::Cell remark(int row) const override;
    [[nodiscard]] bool faded(int row) const override;

private:
    [[nodiscard]] ui::Cell evidenceOrOutcome(int row) const;
    [[nodiscard]] ui::Cell presence(int row) const;
    [[nodiscard]] bool isSelectable(int row) const;
    [[nodiscard]] ExplainQuestion question(int row) const;

    std::string m_user;
    std::function<std::string(std::string_view)> m_foldedName;
    Ticked m_ticked;
    const Of m_of;
    std::shared_ptr<const SpywareList> m_records;
    bool m_selectable = true;
    mutable int m_lookedAt = 0; ///< the first row not yet looked at for the next one
    mutable std::optional<int> m_remoteDesktop;
    mutable FindingRules m_rules;
    mutable std::unordered_map<const Spyware*, FlaggedBy>
        m_evidence; ///< what was asked for already
};

/// The word of each evidence.
[[nodiscard]] QStringList evidenceWords();

/// The rule in plain words, in the language of the window.
[[nodiscard]] QString ruleShown(const FlaggedBy& flaggedBy);

/// Icon and words of that evidence; the tooltip tells the rule and the text that fits.
[[nodiscard]] ui::Cell evidenceCell(const FlaggedBy& flaggedBy);

} // namespace pryvane
