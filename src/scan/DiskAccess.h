#pragma once

#include "core/Result.h"
#include "platform/FileURL.h"
#include "platform/UserDefaults.h"

namespace pryvane {

/// Which part of the disk this process may look at, and asking for more. Main thread only.
class DiskAccess {
public:
    virtual ~DiskAccess() = default;

    /// Whether the whole disk has been granted and the grant still holds.
    [[nodiscard]] virtual bool isHDAccessible() = 0;

    /// Whether the home folder can be reached, by itself or through a grant.
    virtual bool isUserAccessible() = 0;

    /// Whether this process may write there, as far as its grants reach.
    [[nodiscard]] virtual bool isWritable(const FileURL& folder) = 0;

    /// Asks for the whole disk with a folder panel and keeps the grant.
    virtual void confirmAccessAction() = 0;

    /// A token that reopens this folder in a later process.
    [[nodiscard]] virtual Result<Bytes> makeBookmark(const FileURL& folder) = 0;
};

} // namespace pryvane
