#include "removal/disk/TreeCensus.h"

#include "removal/disk/NameList.h"
#include "removal/disk/ProtectedPlaces.h"
#include "removal/disk/RemovalErrors.h"

#include <cerrno>
#include <utility>
#include <vector>

namespace pryvane {

namespace {

constexpr std::uint64_t kMostCounted = 10'000;

/// Visits what lies below a folder, folder by folder, with at most kMostHandles of them open.
class Descent {
public:
    virtual ~Descent() = default;

protected:
    void below(FolderHandle top)
    {
        enter(std::move(top));
        while (!m_levels.empty() && wantsMore()) {
            Level& level = m_levels.back();
            if (level.subfolders.empty())
                leave();
            else if (FolderHandle child = openBelow(level.folder.fd(), level.subfolders.take()))
                enter(std::move(child));
            else
                notOpened(errno);
        }
    }

    [[nodiscard]] virtual bool wantsMore() const = 0;
    /// Before a folder is read; false leaves it out.
    [[nodiscard]] virtual bool enters(const FolderHandle& folder) = 0;
    /// Whether the entry of the folder entered last is a folder to go into.
    [[nodiscard]] virtual bool visit(const FolderHandle& folder,
                                     const FolderBatch::Entry& entry) = 0;
    virtual void notOpened(int error) = 0;
    virtual void notRead(int error) = 0;
    virtual void movedAway() = 0;

private:
    struct Level {
        FolderHandle folder;
        FolderId id;
        NameList subfolders; ///< still to be visited
    };

    void enter(FolderHandle folder)
    {
        if (!enters(folder))
            return;
        Level level{std::move(folder), {}, {}};
        level.id = level.folder.id();
        read(level);
        m_levels.push_back(std::move(level));
        // The topmost stays open, as the one to fall back to.
        if (m_levels.size() > kMostHandles)
            m_levels[m_levels.size() - kMostHandles].folder.close();
    }

    void read(Level& level)
    {
        FolderBatch::Entry entry;
        do {
            if (!m_batch.fill(level.folder))
                return notRead(errno);
            while (wantsMore() && m_batch.next(entry)) {
                if (visit(level.folder, entry))
                    level.subfolders.add(entry.name);
            }
        } while (!m_batch.atEnd() && wantsMore());
    }

    void leave()
    {
        const FolderHandle child = std::move(m_levels.back().folder);
        m_levels.pop_back();
        if (m_levels.empty() || m_levels.back().folder)
            return;
        m_levels.back().folder = child.openParent(m_levels.back().id);
        if (!m_levels.back().folder)
            movedAway();
        while (!m_levels.back().folder)
            m_levels.pop_back();
    }

    FolderBatch m_batch;
    std::vector<Level> m_levels;
};

class Forecast final : Descent {
public:
    Forecast(const ProtectedPlaces& places, const StopFlag& stop, RemovalForecast& forecast)
        : m_places(places), m_stop(stop), m_forecast(forecast)
    {
    }

    void foresee(int parent, const std::string& name)
    {
        if (FolderHandle folder = openBelow(parent, name))
            below(std::move(folder));
        else
            notOpened(errno);
        if (m_stop.requested())
            m_forecast.countedWhole = false;
    }

private:
    bool wantsMore() const override { return !m_stop.requested(); }

    bool enters(const FolderHandle& folder) override
    {
        if (m_places.contains(folder.id())) {
            obstacle({RemovalObstacle::ProtectedPlace, {}});
            return false;
        }
        m_rules.emplace(folder.fd());
        return true;
    }

    bool visit(const FolderHandle& folder, const FolderBatch::Entry& entry) override
    {
        const auto facts = factsOf(folder.fd(), std::string(entry.name));
        if (!facts)
            return false; // gone since the folder was read
        first(m_rules->foreseen(*facts));
        ++m_forecast.entries;
        m_forecast.bytes += facts->bytes;
        return facts->kind == FileKind::Folder;
    }

    void notOpened(int error) override
    {
        if (error != ENOENT && error != ENOTDIR && error != ELOOP) // gone or exchanged
            obstacle(unreadable(error));
    }
    void notRead(int error) override { obstacle(unreadable(error)); }
    void movedAway() override { m_forecast.countedWhole = false; }

    void obstacle(RemovalFailure failure)
    {
        m_forecast.countedWhole = false;
        first(std::move(failure));
    }

    void first(RemovalFailure failure)
    {
        if (m_forecast.obstacle != RemovalObstacle::None)
            return;
        m_forecast.obstacle = failure.obstacle;
        m_forecast.detail = std::move(failure.detail);
    }

    const ProtectedPlaces& m_places;
    const StopFlag& m_stop;
    RemovalForecast& m_forecast;
    std::optional<FolderRules> m_rules; ///< of the folder being read
};

class QuickCount final : Descent {
public:
    explicit QuickCount(EntryCount& count) : m_count(count) {}

    void count(FolderHandle folder)
    {
        if (folder)
            below(std::move(folder));
        else
            m_count.whole = false;
        if (!wantsMore())
            m_count.whole = false;
    }

private:
    bool wantsMore() const override { return m_count.entries < kMostCounted; }
    bool enters(const FolderHandle&) override { return true; }

    bool visit(const FolderHandle& folder, const FolderBatch::Entry& entry) override
    {
        ++m_count.entries;
        return FileKind::Folder == (entry.kind == FileKind::Unknown
                                        ? kindAt(folder.fd(), entry.name.data())
                                        : entry.kind);
    }

    void notOpened(int) override { m_count.whole = false; }
    void notRead(int) override { m_count.whole = false; }
    void movedAway() override { m_count.whole = false; }

    EntryCount& m_count;
};

} // namespace

void foreseeBelow(int parent, const std::string& name, const ProtectedPlaces& places,
                  const StopFlag& stop, RemovalForecast& forecast)
{
    Forecast(places, stop, forecast).foresee(parent, name);
}

EntryCount countEntries(FileSystem& disk, const FileURL& url, RemovalScope scope)
{
    EntryCount count;
    const FileKind kind = disk.kind(url);
    if (kind == FileKind::Missing)
        count.state = EntryCount::State::Missing;
    if (kind == FileKind::Missing || kind == FileKind::Unknown)
        return count;
    count.state = EntryCount::State::There;
    if (scope == RemovalScope::Item)
        count.entries = 1;
    if (kind != FileKind::Folder)
        return count;
    QuickCount(count).count(FolderHandle(disk.openFolder(url)));
    // What a removal leaves of a folder whose content was to go is the folder itself.
    if (scope == RemovalScope::ContentsOf && count.whole && count.entries == 0)
        count.state = EntryCount::State::Missing;
    return count;
}

} // namespace pryvane
