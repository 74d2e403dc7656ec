#pragma once

#include "platform/Network.h"

#include <QNetworkAccessManager>
#include <QUrl>

#include <memory>
#include <string_view>

namespace pryvane {

/// The settings file over HTTP. The request names the program's version and nothing else: no
/// cookies, no language, no cache. A redirect is followed only on the same server.
class NetworkSettingsFile final : public SettingsFile {
public:
    explicit NetworkSettingsFile(std::string_view address,
                                 std::chrono::milliseconds timeLimit = kTimeLimit);

    void fetch(Reply reply) override;

private:
    QUrl m_address;
    std::chrono::milliseconds m_timeLimit;
    QObject m_whileThere; ///< a refusal is told while this lives
    /// Made for the first request. Its end ends the requests, before anything of them is told.
    std::unique_ptr<QNetworkAccessManager> m_network;
};

} // namespace pryvane
