#pragma once

#include "reports/SpywareScanReport.h"

#include <functional>
#include <memory>
#include <string>

namespace pryvane::bench {

/// The same stored list written and read by Qt's streaming CBOR classes, from and into plain
/// structs of Qt's own string types.
class QtPeer {
public:
    explicit QtPeer(const ReportList& reports);
    ~QtPeer();

    [[nodiscard]] std::size_t write(std::string& bytes) const;

    /// Reads the list and tests each distinct path once; gives the number of records that exist.
    [[nodiscard]] static std::size_t
    readAndFollow(const std::string& bytes, const std::function<bool(const char* path)>& exists);

private:
    struct Lists;
    std::unique_ptr<Lists> m_lists;
};

} // namespace pryvane::bench
