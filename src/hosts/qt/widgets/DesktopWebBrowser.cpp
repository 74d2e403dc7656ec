#include "hosts/qt/widgets/DesktopWebBrowser.h"

#include "core/Escape.h"
#include "hosts/qt/Text.h"

#include <QDesktopServices>
#include <QUrl>

namespace pryvane {

Result<Done> DesktopWebBrowser::open(const std::string& address)
{
    const QUrl url(qt::text(address), QUrl::StrictMode);
    const bool isWeb =
        url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http");
    if (!isWeb || url.host().isEmpty())
        return Error{"\"" + forScreen(address) + "\" is not the address of a web page"};
    if (!QDesktopServices::openUrl(url))
        return Error{"no web browser could be started; open " + forScreen(address) + " yourself"};
    return Done{};
}

} // namespace pryvane
