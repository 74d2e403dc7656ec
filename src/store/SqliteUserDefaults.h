#pragma once

#include "core/ThreadSafety.h"
#include "platform/UserDefaults.h"
#include "store/SqliteReportStore.h"
#include "store/SqliteStoreFile.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace pryvane {

class Log;

/// The preferences in one SQLite file of the user, which the window and the command line may have
/// open at the same time.
class SqliteUserDefaults final : public UserDefaults {
public:
    struct Opened {
        std::unique_ptr<SqliteUserDefaults> defaults;
        /// What the person must be told once: a damaged file was replaced.
        std::optional<std::string> notice;
    };

    /// Opens the file of that folder and makes both where they are missing. The log must outlive
    /// the preferences, and hears of a notice too.
    [[nodiscard]] static Result<Opened> open(std::string_view dataFolder, Log& log);

    /// Opens it for reading alone, and makes and moves nothing: what is missing or damaged reads as
    /// empty, the latter with a notice, and every change fails.
    [[nodiscard]] static Result<Opened> openReadOnly(std::string_view dataFolder, Log& log,
                                                     CutOffSave cutOff = CutOffSave::Leave);

    ~SqliteUserDefaults() override;

    /// Where the file lies; empty where a read-only opening found none.
    [[nodiscard]] const std::string& path() const { return m_path; }

    [[nodiscard]] std::optional<PreferenceValue> objectForKey(std::string_view key) override;
    Result<Done> setObject(std::string_view key, const PreferenceValue& value) override;
    Result<Done> removeObject(std::string_view key) override;
    Result<Done> updateBytes(std::string_view key, const Change& change) override;
    Result<Done> setAside(std::string_view key) override;
    [[nodiscard]] ReportStore& reports() override { return m_reports; }

private:
    enum class Access : std::uint8_t { ReadOnly, ReadWrite };
    SqliteUserDefaults(OpenedStore store, Access access, Log& log);
    static Result<Opened> made(Result<OpenedStore> store, Access access, Log& log);

    /// The calls below give SQLite's result codes.
    [[nodiscard]] int read(std::string_view key, std::optional<PreferenceValue>& value)
        REQUIRES(m_mutex);
    [[nodiscard]] int write(std::string_view key, const PreferenceValue& value) REQUIRES(m_mutex);
    [[nodiscard]] int moveAside(std::string_view key) REQUIRES(m_mutex);
    [[nodiscard]] int change(std::string_view key, const Change& change) REQUIRES(m_mutex);
    [[nodiscard]] Result<Done> saved(int code) REQUIRES(m_mutex);

    Log& m_log;
    const Access m_access;
    const std::string m_path;
    RecursiveMutex m_mutex; ///< recursive: a change may set the old value aside
    OpenedStore m_store GUARDED_BY(m_mutex);
    SqliteReportStore m_reports;
};

} // namespace pryvane
