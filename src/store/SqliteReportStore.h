#pragma once

#include "platform/ReportStore.h"
#include "store/SqliteHandles.h"

#include <mutex>

namespace pryvane {

struct OpenedStore;

/// The list of reports in the preferences file. It shares file and lock with the preferences.
class SqliteReportStore final : public ReportStore {
public:
    /// Both outlive it.
    SqliteReportStore(OpenedStore& store, std::recursive_mutex& mutex, bool readOnly)
        : m_store(store), m_mutex(mutex), m_readOnly(readOnly)
    {
    }

    [[nodiscard]] Result<std::vector<StoredReport>> list() override;
    [[nodiscard]] Result<std::optional<std::string>> piece(std::int64_t place,
                                                           std::int64_t number) override;
    Result<Done> put(const NewReport& report) override;
    Result<bool> remove(std::string_view id) override;
    Result<Done> replaceAll(std::size_t count,
                            const std::function<NewReport(std::size_t)>& at) override;

private:
    /// What a change came to: SQLite's code, or what the report's writer said.
    struct Outcome {
        int code = 0;
        std::optional<Error> error;
    };
    using Work = std::function<Outcome()>;
    class Statement;

    [[nodiscard]] Result<Done> change(const Work& work);
    [[nodiscard]] Outcome insert(const NewReport& report);
    [[nodiscard]] int newest(std::string_view id, std::optional<std::int64_t>& place);
    [[nodiscard]] int erase(std::int64_t place);
    [[nodiscard]] const SqliteConnection& connection() const;

    OpenedStore& m_store;
    std::recursive_mutex& m_mutex;
    const bool m_readOnly;
    std::optional<SqliteStatement> m_readPiece, m_insertReport, m_insertPiece;
};

} // namespace pryvane
