#pragma once

#include "platform/FileSystem.h"
#include "platform/FileURL.h"

#include <cstdint>
#include <string_view>

namespace pryvane {

/// Where checks hand what they found. Callable from the scan's threads.
class FindingSink {
public:
    virtual ~FindingSink() = default;

    /// Puts the location on the result list if it exists, is not there yet, and is not one of the
    /// maker's own applications.
    virtual void addIfAvail(const FileURL& url, std::string_view name, std::string_view type,
                            std::string_view risk, std::int64_t size) = 0;

    /// addIfAvail() for what the caller has just seen in a folder's listing, so that a flood of
    /// findings need not cost another look at the disk each.
    virtual void addSeen(const FileURL& url, std::string_view name, std::string_view type,
                         std::string_view risk, std::int64_t size, const Sighting& /*seen*/)
    {
        addIfAvail(url, name, type, risk, size);
    }

    /// Puts the record on the result list as it is, without those tests.
    virtual void append(const FileURL& url, std::string_view name, std::string_view type,
                        std::string_view risk, std::int64_t size) = 0;
};

} // namespace pryvane
