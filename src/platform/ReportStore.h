#pragma once

#include "core/Result.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// A stored report as the list knows it.
struct StoredReport {
    std::int64_t place =
        0; ///< in the list: a newer report has a higher one, and no two ever share one
    std::string id;
    std::string facts; ///< encoded: what a list shows
};

/// One piece of the value of the report at that place, counted from 0.
struct StoredPiece {
    std::int64_t place = 0;
    std::int64_t number = 0;
    std::string value;
};

/// Takes the pieces of a report's value, in their order; an error ends it.
using PieceSink = std::function<Result<Done>(std::string_view piece)>;

/// A report that is to be stored.
struct NewReport {
    std::string id;
    std::string facts;
    /// Hands the value over, piece by piece, so that it need not be in memory whole.
    std::function<Result<Done>(const PieceSink& sink)> write;
};

/// The list of reports, a row each. It knows nothing of what facts and values hold. Each change is
/// whole and durable when it returns success. Callable from any thread; a change made from inside
/// UserDefaults::updateBytes() of the same store is stored together with that.
class ReportStore {
public:
    virtual ~ReportStore() = default;

    /// All reports, newest first; touches no value.
    [[nodiscard]] virtual Result<std::vector<StoredReport>> list() = 0;

    /// The piece of that report's value, and those that follow it, also in the reports of higher
    /// places, until there are `bytes` of them; one piece at least, and none behind the last. It
    /// begins with a later one where that piece is not there.
    [[nodiscard]] virtual Result<std::vector<StoredPiece>>
    pieces(std::int64_t place, std::int64_t number, std::size_t bytes) = 0;

    /// Puts the report at the head of the list, in place of the newest one of the same identity.
    virtual Result<Done> put(const NewReport& report) = 0;

    /// Takes the newest report of that identity out; false where there is none.
    virtual Result<bool> remove(std::string_view id) = 0;

    /// Puts these in place of the whole list; `at` gives one after the other, the newest first.
    virtual Result<Done> replaceAll(std::size_t count,
                                    const std::function<NewReport(std::size_t)>& at) = 0;
};

} // namespace pryvane
