#pragma once

#include "core/ThreadSafety.h"
#include "platform/ReportStore.h"
#include "store/SqliteHandles.h"

#include <optional>

namespace pryvane {

struct OpenedStore;

/// The list of reports in the preferences file. It shares file and lock with the preferences.
class SqliteReportStore final : public ReportStore {
public:
    /// Both outlive it.
    SqliteReportStore(OpenedStore& store, RecursiveMutex& mutex, bool readOnly)
        : m_store(store), m_mutex(mutex), m_readOnly(readOnly)
    {
    }

    [[nodiscard]] Result<std::vector<StoredReport>> list() override;
    [[nodiscard]] Result<std::vector<StoredPiece>> pieces(std::int64_t place, std::int64_t number,
                                                          std::size_t bytes) override;
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
    [[nodiscard]] Error failure(std::string_view doing, int code) REQUIRES(m_mutex);
    [[nodiscard]] Outcome insert(const NewReport& report) REQUIRES(m_mutex);
    [[nodiscard]] int newest(std::string_view id, std::optional<std::int64_t>& place)
        REQUIRES(m_mutex);
    [[nodiscard]] int erase(std::int64_t place) REQUIRES(m_mutex);
    [[nodiscard]] const SqliteConnection& connection() const REQUIRES(m_mutex);

    OpenedStore& m_store;
    RecursiveMutex& m_mutex;
    const bool m_readOnly;
    std::optional<SqliteStatement> m_readPieces GUARDED_BY(m_mutex),
        m_insertReport GUARDED_BY(m_mutex), m_insertPiece GUARDED_BY(m_mutex);
};

} // namespace pryvane
