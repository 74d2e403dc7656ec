#pragma once

#include "volume/image/reader/Channel.h"

#include <ctime>
#include <set>
#include <string>
#include <string_view>
#include <tsk/libtsk.h>
#include <vector>

namespace pryvane {

/// Goes through a volume's folders and sends every name, depth first. A folder is read once,
/// whatever names lead to it.
class NameStream {
public:
    NameStream(TSK_FS_INFO& volume, Channel& channel) : m_volume(volume), m_channel(channel) {}

    void sendAll();

    /// How many of a Mac's top folders the volume's root has.
    [[nodiscard]] static int likeness(TSK_FS_INFO& volume);

private:
    struct Child {
        std::string name;
        TSK_INUM_T inode = 0;
    };

    void readFolder(TSK_INUM_T inode, std::vector<Child>& folders);
    void sendEntry(const TSK_FS_FILE& file, const std::string& name, std::vector<Child>& folders);
    void leave();
    void refuse(std::string_view reason);
    void flush(bool always);

    TSK_FS_INFO& m_volume;
    Channel& m_channel;
    std::set<TSK_INUM_T> m_seen;
    frames::Writer m_block;
    std::time_t m_sentAt = 0;
};

} // namespace pryvane
