#pragma once

#include "platform/Network.h"

#include <QObject>

#include <memory>
#include <string_view>

namespace pryvane {

/// The settings file behind a module that is loaded for the first request, a little after it was
/// asked for: its library brings ten others and makes ready for TLS, for which no window should
/// wait.
class LoadedSettingsFile final : public SettingsFile {
public:
    void fetch(Reply reply) override;

private:
    QObject m_whileThere; ///< what is asked for later is asked while this lives
    std::unique_ptr<SettingsFile> m_file;
};

struct NetworkModule {
    static constexpr const char* kFile = "libpryvane-network.so";

    std::unique_ptr<SettingsFile> (*makeSettingsFile)(std::string_view address);
};

} // namespace pryvane
