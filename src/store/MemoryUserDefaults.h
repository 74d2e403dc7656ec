#pragma once

#include "core/ThreadSafety.h"
#include "platform/ReportStore.h"
#include "platform/UserDefaults.h"

#include <map>

namespace pryvane {

/// Reports that live as long as the object.
class MemoryReportStore final : public ReportStore {
public:
    [[nodiscard]] Result<std::vector<StoredReport>> list() override;
    [[nodiscard]] Result<std::vector<StoredPiece>> pieces(std::int64_t place, std::int64_t number,
                                                          std::size_t bytes) override;
    Result<Done> put(const NewReport& report) override;
    Result<bool> remove(std::string_view id) override;
    Result<Done> replaceAll(std::size_t count,
                            const std::function<NewReport(std::size_t)>& at) override;

private:
    struct Held {
        StoredReport row;
        std::vector<std::string> pieces;
    };
    using List = std::map<std::int64_t, Held, std::greater<>>; // newest first
    [[nodiscard]] Result<Done> insert(List& list, const NewReport& report) REQUIRES(m_mutex);
    [[nodiscard]] static List::iterator newest(List& list, std::string_view id);

    RecursiveMutex m_mutex;
    List m_list GUARDED_BY(m_mutex);
    std::int64_t m_lastPlace GUARDED_BY(m_mutex) = 0;
};

/// Preferences that live as long as the object: for scans that must leave no trace, and for tests.
class MemoryUserDefaults final : public UserDefaults {
public:
    [[nodiscard]] std::optional<PreferenceValue> objectForKey(std::string_view key) override;
    Result<Done> setObject(std::string_view key, const PreferenceValue& value) override;
    Result<Done> removeObject(std::string_view key) override;
    Result<Done> updateBytes(std::string_view key, const Change& change) override;
    Result<Done> setAside(std::string_view key) override;
    [[nodiscard]] ReportStore& reports() override { return m_reports; }

private:
    RecursiveMutex m_mutex; ///< recursive: a change may set the old value aside
    std::map<std::string, PreferenceValue, std::less<>> m_values GUARDED_BY(m_mutex);
    MemoryReportStore m_reports;
};

} // namespace pryvane
