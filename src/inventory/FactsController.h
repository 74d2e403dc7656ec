#pragma once

#include "core/Result.h"
#include "core/Signal.h"
#include "core/StopFlag.h"
#include "core/tasks/BoundQueue.h"
#include "core/tasks/Worker.h"
#include "inventory/facts/FactScan.h"
#include "inventory/facts/FactTable.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace pryvane {

/// In which form a list of facts is written.
enum class FactsFormat : std::uint8_t { Text, Json, Csv };

/// Who may watch, what starts and who may come in, without a window: read from the disk on one
/// background thread, for every account, and judged by nobody. Main thread only.
class FactsController final {
public:
    /// The disk and the queue outlive this.
    FactsController(FileSystem& disk, MainQueue& mainQueue);
    ~FactsController();
    FactsController(const FactsController&) = delete;
    FactsController& operator=(const FactsController&) = delete;

    /// The page is about to be shown: the first time, the facts are read.
    void viewWillAppear();

    /// Reads all anew. Nothing while they are being read.
    void gather();

    [[nodiscard]] bool isGathering() const { return m_isGathering; }
    /// Whether that list is there. Permissions come first.
    [[nodiscard]] bool isRead(FactKind kind) const { return at(kind).isRead; }
    [[nodiscard]] const FactTable& table(FactKind kind) const { return at(kind).table; }
    /// What a search looks through, a text for each of the table's rows, escaped for the screen.
    [[nodiscard]] const std::vector<std::string>& searchTexts(FactKind kind) const
    {
        return at(kind).searchTexts;
    }
    /// The sources of that list that could not be read whole, each in a line.
    [[nodiscard]] const std::vector<std::string>& troubles(FactKind kind) const
    {
        return at(kind).troubles;
    }
    /// The accounts that any list names, sorted.
    [[nodiscard]] const std::vector<std::string>& users() const { return m_users; }

    /// Writes one list to a file of this computer, behind what is done already. `told` gets the
    /// outcome on the main thread.
    void exportTo(const std::string& path, FactKind kind, FactsFormat format,
                  std::function<void(const Result<Done>&)> told);

    Signal stateChanged;

private:
    struct List {
        bool isRead = false;
        FactTable table;
        std::vector<std::string> searchTexts;
        std::vector<std::string> troubles;
        std::shared_ptr<const Facts> facts;
    };
    /// Shown here and written elsewhere at the same time, and changed by nobody.
    using SharedList = std::shared_ptr<const List>;

    [[nodiscard]] const List& at(FactKind kind) const
    {
        return *m_lists[static_cast<std::size_t>(kind)];
    }
    [[nodiscard]] static SharedList listOf(const std::shared_ptr<const Facts>& facts,
                                           FactKind kind);
    [[nodiscard]] static std::string textOf(const List& list, FactKind kind, FactsFormat format);
    void forget();
    void read();
    void take(FactKind kind, SharedList list);
    void ended();

    FileSystem& m_disk;
    bool m_hasAppeared = false;
    bool m_isGathering = false;
    std::array<SharedList, 3> m_lists;
    std::vector<std::string> m_users;
    StopFlag m_stop;
    BoundQueue m_later;
    Worker m_thread; // last: they end before anything they use
    Worker m_writing;
};

} // namespace pryvane
