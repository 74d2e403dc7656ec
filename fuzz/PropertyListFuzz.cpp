// Property lists, XML and binary, of unknown origin: no bytes may crash the reader, and a few of
// them may not make much text.

#include "platform/linux/PropertyList.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace pryvane;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    static_cast<void>(propertyListString(bytes, "CFBundleIdentifier"));
    std::size_t text = 0;
    for (const PropertyTexts& texts :
         LinuxPropertyLists().dictionariesUnder(bytes, "Installed Extensions")) {
        for (const auto& [key, value] : texts)
            text += key.size() + value.size();
    }
    // At most as many characters as there are bytes, of at most three bytes each.
    if (text > 3 * size)
        std::abort();
    return 0;
}
