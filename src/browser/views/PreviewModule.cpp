#include "browser/views/PreviewModule.h"

#include "browser/views/preview/Exports.h"
#include "core/LoadedModule.h"

namespace pryvane {

Result<std::unique_ptr<DocumentPages>> openDocument(const std::string& pdf)
{
    const auto module = loadedModule<preview::Exports>();
    if (!module)
        return module.error();
    auto pages = (*module)->openDocument(pdf);
    if (!pages)
        return Error{"The document cannot be shown: it is damaged. Print or export it anew."};
    return pages;
}

Result<std::optional<PrintTarget>> askWhereToPrint(QWidget* over)
{
    const auto module = loadedModule<preview::Exports>();
    if (!module)
        return module.error();
    return (*module)->askWhereToPrint(over);
}

} // namespace pryvane
