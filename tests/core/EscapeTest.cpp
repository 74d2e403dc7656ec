#include "core/Escape.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace pryvane {
namespace {

TEST(Escape, ShowsWhatWouldHideOrObey)
{
    const struct {
        std::string bytes, shown;
    } rows[] = {
        {"plain name.plist", "plain name.plist"},
        {"Ünïcode ✓ 日本", "Ünïcode ✓ 日本"},
        {"emoji 👩‍💻", "emoji 👩‍💻"},
        {"line\nbreak\ttab\r", "line\\nbreak\\ttab\\r"},
        {"esc\x1b[31m", "esc\\x1b[31m"},
        {std::string("nul\0x", 5), "nul\\x00x"},
        {"back\\slash", "back\\\\slash"},
        {"gpj.\xe2\x80\xae"
         "exe",
         "gpj.\\u{202e}exe"},
        {"c1 \xc2\x9b", "c1 \\u{9b}"},
        {"bad \xff\xc0\xaf \xed\xa0\x80", "bad \\xff\\xc0\\xaf \\xed\\xa0\\x80"},
        {"cut \xe2\x82", "cut \\xe2\\x82"},
        {"<img src=x> %1 & 'q'", "<img src=x> %1 & 'q'"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(forScreen(row.bytes), row.shown);
    EXPECT_EQ(forHtml("<b>\"x\" & 'y'</b>"), "&lt;b&gt;&quot;x&quot; &amp; &#39;y&#39;&lt;/b&gt;");
    EXPECT_EQ(forNotification("<b>&"), "&lt;b&gt;&amp;");
}

TEST(Escape, RandomBytesComeOutHarmlessAndUnambiguous)
{
    std::mt19937 random(7);
    std::uniform_int_distribution<int> byte(0, 255), length(1, 255);
    for (int i = 0; i < 5000; ++i) {
        std::string name(static_cast<std::size_t>(length(random)), '\0');
        for (char& c : name)
            c = static_cast<char>(byte(random));
        const std::string shown = forScreen(name);
        ASSERT_TRUE(isUtf8(shown));
        for (const char c : shown)
            ASSERT_FALSE((c >= 0 && c < 0x20) || c == 0x7f);
        ASSERT_EQ(forScreen(shown).find("\\u{202e}"), std::string::npos);
        ASSERT_EQ(percentDecoded(percentEncoded(name)), name);
    }
}

TEST(Escape, PercentDecodingLeavesWhatIsNotEncoded)
{
    EXPECT_EQ(percentDecoded("100%"), "100%");
    EXPECT_EQ(percentDecoded("%zz%4"), "%zz%4");
    EXPECT_EQ(percentEncoded("/a b/\xff#?"), "/a%20b/%FF%23%3F");
}

} // namespace
} // namespace pryvane
