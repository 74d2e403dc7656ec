#include "signatures/MakersApplications.h"

#include "core/StopFlag.h"
#include "platform/Machine.h"
#include "signatures/tables/MakersTable.h"

#include <algorithm>

namespace pryvane {

namespace {

bool contains(std::string_view text, std::string_view part)
{
    return text.find(part) != std::string_view::npos;
}

bool isInstalledButNotTheMakers(std::string_view applicationName, Workspace& workspace)
{
    const auto bundle = workspace.fullPathForApplication(applicationName);
    if (!bundle)
        return false;
    const auto identifier = workspace.bundleIdentifier(*bundle);
    return !identifier || !contains(*identifier, tables::kMakersBundlePrefix);
}

} // namespace

std::vector<std::string> makersApplicationKeys()
{
    std::vector<std::string> keys;
    for (const MakersProduct& product : tables::kMakersProducts)
        keys.emplace_back(product.key);
    return keys;
}

std::optional<std::string_view> getOriginalAppName(std::string_view name)
{
    const auto product = std::ranges::find_if(
        tables::kMakersProducts, [&](const MakersProduct& row) { return contains(name, row.key); });
    if (product == std::end(tables::kMakersProducts))
        return std::nullopt;
    return product->applicationName;
}

bool isApplicationBundle(const FileURL& url)
{
    return url.pathExtension() == "app";
}

std::optional<std::size_t> MakersApplications::timesListed(const FileURL& url,
                                                           std::span<const std::string> keys,
                                                           const StopFlag& stop)
{
    if (!isApplicationBundle(url))
        return 1;
    const auto product = getOriginalAppName(url.lastPathComponent());
    if (!product)
        return 0;
    const auto inPath = std::ranges::count_if(
        keys, [&](const std::string& key) { return contains(url.relativePath(), key); });
    if (inPath == 0)
        return 0;
    const auto strangers = isStrangers(*product, stop);
    if (!strangers)
        return std::nullopt;
    return *strangers ? static_cast<std::size_t>(inPath) : 0;
}

std::optional<bool> MakersApplications::isStrangers(std::string_view product, const StopFlag& stop)
{
    const MutexLock lock(m_mutex);
    if (const auto known = m_strangers.find(product); known != m_strangers.end())
        return known->second;
    if (stop.requested())
        return std::nullopt;
    return m_strangers.emplace(product, isInstalledButNotTheMakers(product, m_workspace))
        .first->second;
}

void MakersApplications::forget()
{
    const MutexLock lock(m_mutex);
    m_strangers.clear();
}

} // namespace pryvane
