#include "store/MemoryUserDefaults.h"

#include <algorithm>

namespace pryvane {

std::optional<PreferenceValue> MemoryUserDefaults::objectForKey(std::string_view key)
{
    const RecursiveMutexLock lock(m_mutex);
    const auto found = m_values.find(key);
    return found == m_values.end() ? std::nullopt : std::optional(found->second);
}

Result<Done> MemoryUserDefaults::setObject(std::string_view key, const PreferenceValue& value)
{
    const RecursiveMutexLock lock(m_mutex);
    m_values.insert_or_assign(std::string(key), value);
    return Done{};
}

Result<Done> MemoryUserDefaults::removeObject(std::string_view key)
{
    const RecursiveMutexLock lock(m_mutex);
    if (const auto found = m_values.find(key); found != m_values.end())
        m_values.erase(found);
    return Done{};
}

Result<Done> MemoryUserDefaults::updateBytes(std::string_view key, const Change& change)
{
    const RecursiveMutexLock lock(m_mutex);
    std::optional<Bytes> stored;
    if (const auto found = m_values.find(key); found != m_values.end()) {
        if (const auto* bytes = std::get_if<Bytes>(&found->second))
            stored = *bytes;
    }
    if (auto changed = change(std::move(stored)))
        m_values.insert_or_assign(std::string(key), std::move(*changed));
    return Done{};
}

Result<Done> MemoryUserDefaults::setAside(std::string_view key)
{
    const RecursiveMutexLock lock(m_mutex);
    const auto found = m_values.find(key);
    if (found == m_values.end())
        return Done{};
    auto node = m_values.extract(found);
    node.key() += ".damaged";
    m_values.insert(std::move(node));
    return Done{};
}

Result<std::vector<StoredReport>> MemoryReportStore::list()
{
    const RecursiveMutexLock lock(m_mutex);
    std::vector<StoredReport> rows;
    for (const auto& [place, held] : m_list)
        rows.push_back(held.row);
    return rows;
}

Result<std::vector<StoredPiece>> MemoryReportStore::pieces(std::int64_t place, std::int64_t number,
                                                           std::size_t bytes)
{
    const RecursiveMutexLock lock(m_mutex);
    std::vector<StoredPiece> pieces;
    std::size_t size = 0;
    for (auto held = m_list.rbegin(); held != m_list.rend(); ++held) {
        const auto& [at, report] = *held;
        for (std::size_t i = at == place ? static_cast<std::size_t>(number) : 0;
             at >= place && i < report.pieces.size(); ++i) {
            if (!pieces.empty() && size >= bytes)
                return pieces;
            size += report.pieces[i].size();
            pieces.push_back({at, static_cast<std::int64_t>(i), report.pieces[i]});
        }
    }
    return pieces;
}

Result<Done> MemoryReportStore::put(const NewReport& report)
{
    const RecursiveMutexLock lock(m_mutex);
    List list = m_list;
    if (const auto older = newest(list, report.id); older != list.end())
        list.erase(older);
    if (auto inserted = insert(list, report); !inserted)
        return inserted;
    m_list.swap(list);
    return Done{};
}

Result<bool> MemoryReportStore::remove(std::string_view id)
{
    const RecursiveMutexLock lock(m_mutex);
    const auto found = newest(m_list, id);
    if (found == m_list.end())
        return false;
    m_list.erase(found);
    return true;
}

Result<Done> MemoryReportStore::replaceAll(std::size_t count,
                                           const std::function<NewReport(std::size_t)>& at)
{
    const RecursiveMutexLock lock(m_mutex);
    List list;
    for (std::size_t i = count; i-- > 0;) {
        if (auto inserted = insert(list, at(i)); !inserted)
            return inserted;
    }
    m_list.swap(list);
    return Done{};
}

Result<Done> MemoryReportStore::insert(List& list, const NewReport& report)
{
    Held held{{++m_lastPlace, report.id, report.facts}, {}};
    auto written = report.write([&](std::string_view piece) -> Result<Done> {
        held.pieces.emplace_back(piece);
        return Done{};
    });
    if (written)
        list.emplace(held.row.place, std::move(held));
    return written;
}

MemoryReportStore::List::iterator MemoryReportStore::newest(List& list, std::string_view id)
{
    return std::find_if(list.begin(), list.end(),
                        [&](const auto& entry) { return entry.second.row.id == id; });
}

} // namespace pryvane
