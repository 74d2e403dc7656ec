#pragma once

#include "core/ThreadSafety.h"
#include "findings/Spyware.h"
#include "platform/FileURL.h"
#include "signatures/Catalogue.h"

#include <cstddef>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

class StopFlag;
class Workspace;

/// The keys that the maker's own products are known by, in their order.
[[nodiscard]] std::vector<std::string> makersApplicationKeys();

/// The display name of the maker's product whose key the name holds; the first key that fits wins.
[[nodiscard]] std::optional<std::string_view> getOriginalAppName(std::string_view name);

/// Whether the rule that keeps applications off the list looks at this location at all: only an
/// extension spelled exactly "app" makes an application bundle.
[[nodiscard]] bool isApplicationBundle(const FileURL& url);

/// The rule that keeps applications off the list. It reads the property lists of the maker's
/// installed products, each once, and so belongs on the scan's threads; callable from several.
class MakersApplications {
public:
    explicit MakersApplications(Workspace& workspace) : m_workspace(workspace) {}

    /// How many times a finding goes on the result list. Once, unless it is an application bundle:
    /// then once for each of `keys` that its path holds and whose product is installed on this
    /// volume under an identifier that is not the maker's. A bundle without a readable identifier
    /// is not the maker's. 0 means that it is held back; none that a stop came before it was known.
    [[nodiscard]] std::optional<std::size_t>
    timesListed(const FileURL& url, std::span<const std::string> keys, const StopFlag& stop);

    /// Forgets what was read, as a scan starts.
    void forget();

private:
    [[nodiscard]] std::optional<bool> isStrangers(std::string_view product, const StopFlag& stop);

    Workspace& m_workspace;
    Mutex m_mutex;
    std::map<std::string_view, bool> m_strangers GUARDED_BY(m_mutex); ///< by product
};

/// Whether the record stands for remote desktop, which is switched off rather than removed. Known
/// by its kind: any file may be called as the record is.
[[nodiscard]] inline bool isRemoteDesktop(const Spyware& record)
{
    return record.infections == catalogue::kRemoteDesktop;
}

} // namespace pryvane
