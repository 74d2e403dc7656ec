#include "reports/browser/views/PreviewModule.h"

#include "platform/LoadedModule.h"
#include "reports/browser/views/preview/Exports.h"

namespace pryvane {

Result<std::unique_ptr<DocumentPages>> openDocument(const std::string& pdf)
{
    const auto open = functionOfModule(preview::kModule, preview::kOpenDocument);
    if (!open)
        return open.error();
    std::unique_ptr<DocumentPages> pages(reinterpret_cast<preview::OpenDocument>(*open)(pdf));
    if (!pages)
        return Error{"The document cannot be shown: it is damaged. Print or export it anew."};
    return pages;
}

Result<std::optional<PrintTarget>> askWhereToPrint(QWidget* over)
{
    const auto ask = functionOfModule(preview::kModule, preview::kAskWhereToPrint);
    if (!ask)
        return ask.error();
    PrintTarget target;
    if (!reinterpret_cast<preview::AskWhereToPrint>(*ask)(over, target))
        return std::optional<PrintTarget>();
    return std::optional(std::move(target));
}

} // namespace pryvane
