#include "hosts/qt/LoadedSettingsFile.h"

#include "core/LoadedModule.h"

#include <QTimer>

namespace pryvane {

namespace {

constexpr std::chrono::milliseconds kDelay{250};

} // namespace

void LoadedSettingsFile::fetch(Reply reply)
{
    QTimer::singleShot(kDelay, &m_whileThere, [this, reply = std::move(reply)] {
        if (!m_file) {
            const auto module = loadedModule<NetworkModule>();
            if (!module)
                return reply(module.error());
            m_file = (*module)->makeSettingsFile(PRYVANE_SETTINGS_URL);
        }
        m_file->fetch(reply);
    });
}

} // namespace pryvane
