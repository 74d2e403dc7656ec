// Property lists as a Mac writes them, compared with another implementation, and as nobody would.
#include "formats/PropertyList.h"

#include "formats/BinaryLists.h"

#include <gmock/gmock.h>
#include <plist/plist.h>

#include <memory>
#include <random>

namespace pryvane::test {
namespace {

using testing::HasSubstr;

/// A value in one line; a text in quotes, data in angle brackets.
std::string shown(const PropertyValue& value)
{
    std::string text;
    switch (value.kind()) {
    case PropertyKind::Dictionary:
    case PropertyKind::Array: {
        const bool dictionary = value.kind() == PropertyKind::Dictionary;
        std::size_t count = 0;
        for (const PropertyEntry& entry : value) {
            text += (count++ ? "," : "") + (dictionary ? std::string(entry.key) + ":" : "") +
                    shown(entry.value);
        }
        EXPECT_EQ(count, value.size());
        return (dictionary ? "{" : "[") + text + (dictionary ? "}" : "]");
    }
    case PropertyKind::Text:
        return "\"" + std::string(*value.text()) + "\"";
    case PropertyKind::Data:
        return "<" + std::string(*value.data()) + ">";
    case PropertyKind::Integer:
        return std::to_string(*value.integer());
    case PropertyKind::Real:
        return std::to_string(*value.real());
    case PropertyKind::Boolean:
        return *value.boolean() ? "yes" : "no";
    case PropertyKind::Time:
        return iso8601(*value.date());
    case PropertyKind::Uid:
        return "#" + std::to_string(*value.uid());
    case PropertyKind::Nothing:
        break;
    }
    return "nothing";
}

/// What the bytes hold, or the error.
std::string read(std::string bytes)
{
    const auto list = PropertyList::read(std::move(bytes));
    return list ? shown(list->root()) : list.error().message;
}

std::string xmlWith(std::string_view inside)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"-//Apple//DTD "
           "PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist "
           "version=\"1.0\">\n" +
           std::string(inside) + "\n</plist>\n";
}

std::string repeated(std::string_view text, std::size_t times)
{
    std::string all;
    all.reserve(text.size() * times);
    for (std::size_t i = 0; i < times; ++i)
        all += text;
    return all;
}

/// The same content in the binary form, made by another implementation.
std::string binaryOf(const std::string& xml)
{
    plist_t root = nullptr;
    plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &root);
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(root, &bytes, &length);
    plist_free(root);
    const std::unique_ptr<char, decltype(&std::free)> owner(bytes, &std::free);
    return {bytes, length};
}

TEST(PropertyListTest, ReadsBothFormsOfEveryKindAtEveryBorder)
{
    std::string inside, expected;
    const auto add = [&](const std::string& element, const std::string& value) {
        inside += element;
        expected += (expected.empty() ? "" : ",") + value;
    };
    for (const char* number : {"0", "127", "128", "255", "256", "65535", "65536", "2147483648",
                               "4294967296", "9223372036854775807", "-1", "-9223372036854775808"})
        add("<integer>" + std::string(number) + "</integer>", number);
    // Lengths at which the binary form says them otherwise, in one byte a letter, in two and four.
    for (const std::size_t length : {0, 1, 14, 15, 16, 255, 256, 70'000}) {
        for (const char* letter : {"x", "é", "€", "😀"}) {
            const std::string text = repeated(letter, length);
            add("<string>" + text + "</string>", "\"" + text + "\"");
        }
        add("<array>" + repeated("<true/>", length) + "</array>",
            "[" + repeated("yes,", length).substr(0, length ? 4 * length - 1 : 0) + "]");
    }
    add("<dict><key>é</key><dict><key>&amp;</key><false/></dict></dict>", "{é:{&:no}}");
    add("<data>PDw/Pj4A</data>", std::string("<<<?>>\0>", 8));
    add("<real>0.25</real>", "0.250000");
    add("<date>1904-02-29T00:00:01Z</date>", "1904-02-29T00:00:01.000Z");
    const std::string xml = xmlWith("<array>" + inside + "</array>");
    EXPECT_EQ(read(xml), "[" + expected + "]");
    EXPECT_EQ(read(binaryOf(xml)), "[" + expected + "]");
}

TEST(PropertyListTest, ValuesAreLookedUpByKey)
{
    const auto list = PropertyList::read(
        xmlWith("<dict><key>a</key><dict><key>b</key><string>deep</string></dict>"
                "<key>n</key><integer>1</integer><key>n</key><integer>2</integer></dict>"));
    ASSERT_TRUE(list);
    const PropertyValue root = list->root();
    EXPECT_EQ(root["a"]["b"].text(), "deep");
    EXPECT_EQ(root["n"].integer(), 2); // the last one counts
    EXPECT_EQ(root["n"].real(), 2.0);
    EXPECT_FALSE(root["b"] || root["a"]["b"]["c"] || root["x"]["y"] || root["n"].text());
    EXPECT_EQ(root["a"]["b"].begin(), root["a"]["b"].end());
    EXPECT_EQ(PropertyValue().begin(), PropertyValue().end());
}

TEST(PropertyListTest, XmlAsItMayBeWritten)
{
    const struct {
        const char* xml;
        const char* expected; // or a part of the error
    } rows[] = {
        {"<plist><true/></plist>", "yes"},
        {"\xEF\xBB\xBF\n<array/>", "[]"},
        {"<plist><dict/><!-- > --></plist><!-- done -->", "{}"},
        {"<array><!-- </array> --><string>a</string ></array >", "[\"a\"]"},
        {"<string a='</x>' b=\"<string>\">c</string>", "\"c\""},
        {"<string>&lt;&amp;&gt;&apos;&quot;&#65;&#x20AC;</string>", "\"<&>'\"A€\""},
        {"<string>a<![CDATA[<&amp;>]]>b&amp;<!-- x -->c<?d e?></string>", "\"a<&amp;>b&c\""},
        {"<string><![CDATA[]]></string>", "\"\""},
        {"<string> a\n</string>", "\" a\n\""},
        {"<!DOCTYPE p [<!ENTITY e \"]>\"><!-- ]> --><?x ]>?>]><array/>", "[]"},
        {"<data>\n YW\n JhYg==</data>", "<abab>"},
        {"<integer> -0x10 </integer>", "-16"},
        {"<integer>-9223372036854775808</integer>", "-9223372036854775808"},
        {"<integer>9223372036854775808</integer>", "9223372036854775808.000000"},
        {"<real>-1.5e1</real>", "-15.000000"},
        {"<real>-infinity</real>", "-inf"},
        {"<!DOCTYPE p [<!ENTITY e \"x\">]><string>&e;</string>", "entity"},
        {"<string>&#0;</string>", "entity"},
        {"<string>&#xD800;</string>", "entity"},
        {"<string>&#99999999999999999999;</string>", "entity"},
        {"<string>&amp</string>", "entity"},
        {"<string>a<b/></string>", "inside a text"},
        {"<dict><key>a</key></dict>", "a key has no value"},
        {"<dict><string>a</string></dict>", "take turns"},
        {"<dict><key>a</key><key>b</key></dict>", "take turns"},
        {"<array><key>a</key></array>", "outside a dictionary"},
        {"<array>x</array>", "text between the elements"},
        {"<array><set/></array>", "not understood"},
        {"<array></dict>", "not in order"},
        {"<string></key>", "not in order"},
        {"<array/><array/>", "more than one value"},
        {"<plist><plist><array/></plist></plist>", "where a value should"},
        {"<plist></plist>", "no value"},
        {"<array><!DOCTYPE x></array>", "an attribute has no value"},
        {"<array a=b/>", "not in quotes"},
        {"<array a=\"/>", "does not end"},
        {"<array", "does not end"},
        {"<array>", "ends too early"},
        {"<!-- ", "a comment does not end"},
        {"<!DOCTYPE x [\"", "document type does not end"},
        {"<data>YW?=</data>", "not Base64"},
        {"<date>yesterday</date>", "date is not understood"},
        {"<integer>1x</integer>", "whole number is not understood"},
        {"<real>1,5</real>", "number is not understood"},
        {"<true>x</true>", "truth value"},
        {"{ a = b; }", "neither XML nor binary"},
        {"", "neither XML nor binary"},
        {"bplist16\x01", "not version 0"},
    };
    for (const auto& row : rows)
        EXPECT_THAT(read(row.xml), HasSubstr(row.expected)) << row.xml;
}

TEST(PropertyListTest, NothingNestsWithoutBound)
{
    const auto nested = [](std::size_t levels) {
        return xmlWith(repeated("<array a=\"</x>\">", levels) + repeated("</array>", levels));
    };
    EXPECT_TRUE(PropertyList::read(nested(512)));
    EXPECT_TRUE(PropertyList::read(
        binaryOf(xmlWith(repeated("<array>", 500) + repeated("</array>", 500)))));
    const std::string start = "<plist a=\"</x>\">";
    for (const std::string& deep :
         {nested(513), start + repeated("<array a=\"</x>\">", 174'700),
          start + repeated("<dict a=\"</x>\"><key>a</key>", 100'000), BinaryList::nested(513),
          BinaryList::holdingItself(1), BinaryList::holdingItself(200)})
        EXPECT_THAT(read(deep), HasSubstr("512 levels"));
    EXPECT_EQ(read(BinaryList::nested(3)), "[[[]]]");
}

TEST(PropertyListTest, AFewBytesDoNotMakeManyValues)
{
    // Two references to the level below, 40 levels down: 2^40 values.
    EXPECT_THAT(read(BinaryList::doubling(40)), HasSubstr("too many values"));
    EXPECT_THAT(read(BinaryList::doubling(3)), "[[[[],[]],[[],[]]],[[[],[]],[[],[]]]]");
    // Each object is the whole rest of the file, read as one text.
    EXPECT_THAT(read(BinaryList::overlappingTexts(4000)), HasSubstr("overlap"));
    // Each element counts, however little it says.
    const auto shared = PropertyList::read(BinaryList::sharing(200'000));
    ASSERT_TRUE(shared);
    EXPECT_EQ(shared->values(), 200'001U);
    EXPECT_THAT(read(BinaryList::sharing(PropertyList::kMostValues)), HasSubstr("too many values"));
    const auto bomb = PropertyList::read("<string>" + repeated("&amp;", 1'000'000) + "</string>");
    ASSERT_TRUE(bomb);
    EXPECT_EQ(bomb->root().text(), repeated("&", 1'000'000));
}

TEST(PropertyListTest, DamagedBytesAreAnErrorAndNoCrash)
{
    const std::string xml =
        xmlWith("<dict><key>a</key><array><integer>7</integer><data>AAAA</data><real>1</real>"
                "</array><key>CFBundleIdentifier</key><string>é</string></dict>");
    std::mt19937 random(7);
    for (const std::string& whole : {xml, binaryOf(xml)}) {
        const std::size_t end = whole.find_last_not_of('\n') + 1;
        for (std::size_t length = 0; length < end; ++length)
            EXPECT_FALSE(PropertyList::read(whole.substr(0, length))) << length;
        std::size_t sound = 0;
        for (int i = 0; i < 20'000; ++i) {
            std::string damaged = whole;
            for (auto flips = random() % 4 + 1; flips > 0; --flips)
                damaged[random() % damaged.size()] = static_cast<char>(random());
            const auto list = PropertyList::read(damaged);
            if (list && !shown(list->root()).empty())
                ++sound;
        }
        EXPECT_GT(sound, 100U); // else hardly anything was tried
    }
    // Each number of the trailer and a size near each border.
    for (const std::uint64_t number :
         {std::uint64_t{0}, std::uint64_t{1} << 31, std::uint64_t{1} << 61, ~std::uint64_t{0} - 7,
          ~std::uint64_t{0}}) {
        for (std::size_t field = 0; field < 3; ++field)
            EXPECT_FALSE(PropertyList::read(BinaryList::withTrailer(field, number)))
                << field << " " << number;
        for (const unsigned marker : {0x4fU, 0x5fU, 0x6fU, 0xafU, 0xdfU}) {
            const bool fits = number == 0;
            EXPECT_EQ(PropertyList::read(BinaryList::ofSize(marker, number)).ok(), fits)
                << marker << " " << number;
        }
    }
}

} // namespace
} // namespace pryvane::test
