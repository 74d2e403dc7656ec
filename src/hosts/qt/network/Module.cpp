#include "core/LoadedModule.h"
#include "hosts/qt/LoadedSettingsFile.h"
#include "hosts/qt/network/NetworkSettingsFile.h"

namespace {

std::unique_ptr<pryvane::SettingsFile> makeSettingsFile(std::string_view address)
{
    return std::make_unique<pryvane::NetworkSettingsFile>(address);
}

} // namespace

PRYVANE_EXPORT_MODULE(pryvane::NetworkModule, makeSettingsFile)
