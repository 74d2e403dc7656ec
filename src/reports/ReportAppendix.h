#pragma once

#include <string>
#include <vector>

namespace pryvane {

/// What a report carries behind its findings where that was asked for: lists in groups, as any face
/// shows them. Texts are raw bytes: escape at the sink.
struct ReportAppendix {
    struct Row {
        std::vector<std::string> cells; ///< one a column, the first one its name
    };
    struct Group {
        std::string title;
        std::string meaning; ///< in a sentence or two
        std::vector<Row> rows;
    };
    struct List {
        std::string title;
        std::vector<std::string> columns;
        std::vector<Group> groups; ///< those that have rows
    };

    std::string title;
    std::string introduction;
    std::vector<List> lists;
    std::vector<std::string> missing; ///< what is not in the lists, each with the reason
    std::string json;                 ///< the same as one JSON object; already escaped
};

/// What there is to say of a row behind its name: "State: on", without the columns that are empty.
[[nodiscard]] std::vector<std::string> detailsOf(const ReportAppendix::List& list,
                                                 const ReportAppendix::Row& row);

} // namespace pryvane
