#pragma once

#include "findings/Spyware.h"

#include <memory>
#include <string_view>
#include <unordered_set>

namespace pryvane {

/// The ordered list of findings of the running or last scan, with an index of their locations.
/// Main thread only.
class ResultList {
public:
    [[nodiscard]] const SpywareList& records() const { return *m_records; }

    /// The list itself, shared with the report that is made from it.
    [[nodiscard]] const std::shared_ptr<SpywareList>& shared() const { return m_records; }

    [[nodiscard]] bool contains(const FileURL& url) const
    {
        return m_locations.contains(url.identity());
    }

    void append(std::shared_ptr<Spyware> record);

    /// Starts over with a list of its own, so that a report made from the last one keeps it.
    void clear();

private:
    std::shared_ptr<SpywareList> m_records = std::make_shared<SpywareList>();
    std::unordered_set<std::string_view>
        m_locations; // views into m_records' URLs, which never change
};

} // namespace pryvane
