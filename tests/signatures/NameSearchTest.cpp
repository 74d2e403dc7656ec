#include "signatures/NameSearch.h"

#include "signatures/Catalogue.h"

#include <gmock/gmock.h>

namespace pryvane::test {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

NameSearch searchOver(const std::vector<std::string>& names, const char* folder = "/Library/Caches")
{
    DefaultLocations locations;
    locations.addFolder(folder, names);
    return NameSearch(std::move(locations));
}

} // namespace

TEST(NameSearch, FindsANameOnlyWhereADotTouchesIt)
{
    const auto search = searchOver({"com.okaz.agent", "Okaz", "OkazData", "OKAZ.app", "x.oKaz",
                                    "okaz-", "okazz.plist", ".okaz", "y.okaz.okaz"});
    EXPECT_THAT(search.touchingDot("Okaz"),
                ElementsAre("/Library/Caches/com.okaz.agent", "/Library/Caches/OKAZ.app",
                            "/Library/Caches/y.okaz.okaz", "/Library/Caches/com.okaz.agent",
                            "/Library/Caches/x.oKaz", "/Library/Caches/.okaz",
                            "/Library/Caches/y.okaz.okaz"));
    EXPECT_THAT(search.touchingDot("Okaz Installer"), IsEmpty());
    EXPECT_THAT(searchOver({"MyCodecPack", "code"}).containing("Codec"),
                ElementsAre("/Library/Caches/MyCodecPack"));
}

TEST(NameSearch, ANameInTheFolderItselfHitsEveryEntry)
{
    const auto search = searchOver({"a", "b.okaz"}, "/Users/x.okaz/Library/Caches");
    EXPECT_THAT(search.touchingDot("Okaz"), ElementsAre("/Users/x.okaz/Library/Caches/a",
                                                        "/Users/x.okaz/Library/Caches/b.okaz"));
}

} // namespace pryvane::test
