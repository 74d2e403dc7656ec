#pragma once

#include "inventory/facts/FactTexts.h"
#include "inventory/facts/Facts.h"

#include <string>
#include <vector>

namespace pryvane {

/// One fact as a row of a table. Texts are raw bytes: escape at the sink.
struct FactRow {
    std::size_t group = 0;          ///< of its table
    std::vector<std::string> cells; ///< one a column
    Whereabouts whereabouts = Whereabouts::NotKnown;
    std::string user; ///< empty: the whole Mac
    std::string path; ///< the program's, or else the source's
    bool isDenied = false;
};

/// The facts of one kind as every face shows them: permissions that are allowed first, denied ones
/// last in their group.
struct FactTable {
    FactKind kind = FactKind::Permissions;
    std::vector<const char*> columns;
    std::vector<GroupWords> groups;
    std::vector<FactRow> rows; ///< in the order of their groups
};

[[nodiscard]] FactTable factTable(const Facts& facts, FactKind kind);

/// Comma-separated values: a line of titles, then one line a row, CR LF. Names that a spreadsheet
/// would take for a formula begin with an apostrophe.
[[nodiscard]] std::string factsCsv(const FactTable& table);

/// The same in lines for a person, group by group.
[[nodiscard]] std::string factsText(const FactTable& table);

} // namespace pryvane
