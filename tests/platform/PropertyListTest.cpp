#include "platform/linux/PropertyList.h"

#include "platform/linux/LinuxWorkspace.h"
#include "platform/posix/VolumeFileSystem.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <plist/plist.h>

#include <memory>
#include <random>

namespace pryvane {
namespace {

constexpr std::string_view kKey = "CFBundleIdentifier";

std::string xmlWith(std::string_view inside)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"-//Apple//DTD "
           "PLIST "
           "1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist "
           "version=\"1.0\">" +
           std::string(inside) + "</plist>\n";
}

std::string repeated(std::string_view text, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

/// The same content as a binary property list, made by the library.
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

TEST(PropertyListTest, FindsTheTextInXmlAndBinary)
{
    std::string many = "<dict>";
    for (int i = 0; i < 300; ++i)
        many += "<key>k" + std::to_string(i) + "</key><integer>" + std::to_string(i) + "</integer>";
    many += "<key>CFBundleIdentifier</key><string>com.example.many</string></dict>";
    const struct {
        const char* name;
        std::string xml;
        std::optional<std::string> expected;
    } rows[] = {
        {"plain",
         "<dict><key>A</key><array><string>b</string></array>"
         "<key>CFBundleIdentifier</key><string>com.example.a</string></dict>",
         "com.example.a"},
        {"more than 255 objects", many, "com.example.many"},
        {"UTF-16", "<dict><key>CFBundleIdentifier</key><string>é€😀</string></dict>", "é€😀"},
        {"entities", "<dict><key>CFBundleIdentifier</key><string>a&amp;b</string></dict>", "a&b"},
        {"long",
         "<dict><key>CFBundleIdentifier</key><string>" + std::string(70000, 'x') +
             "</string></dict>",
         std::string(70000, 'x')},
        {"no text", "<dict><key>CFBundleIdentifier</key><integer>1</integer></dict>", {}},
        {"missing", "<dict><key>CFBundleIdentifiers</key><string>a</string></dict>", {}},
        {"only further inside",
         "<dict><key>d</key><dict><key>CFBundleIdentifier</key><string>a</string></dict></dict>",
         {}},
        {"no dictionary", "<array><string>CFBundleIdentifier</string></array>", {}},
    };
    for (const auto& row : rows) {
        const std::string xml = xmlWith(row.xml);
        EXPECT_EQ(propertyListString(xml, kKey), row.expected) << row.name;
        EXPECT_EQ(propertyListString(binaryOf(xml), kKey), row.expected) << row.name << ", binary";
    }
    EXPECT_EQ(propertyListString(xmlWith("<!-- </dict> --><dict><key>CFBundleIdentifier</key>"
                                         "<string><![CDATA[<a>]]></string></dict>"),
                                 kKey),
              "<a>");
}

TEST(PropertyListTest, RefusesDepthHoweverItIsHidden)
{
    const auto nested = [](int depth, std::string_view before) {
        return xmlWith("<dict><key>CFBundleIdentifier</key><string>a</string><key>d</key>" +
                       repeated("<array>", depth) + std::string(before) +
                       repeated("<array>", depth) + repeated("</array>", 2 * depth) + "</dict>");
    };
    EXPECT_EQ(propertyListString(nested(250, ""), kKey), "a");
    constexpr int kDeep = 400;
    for (const std::string& hiding : {std::string(), "<!--" + repeated("</array>", kDeep) + "-->",
                                      "<?x \"?>" + repeated("</array>", kDeep) + "\"?>",
                                      "<array a=\"" + repeated("</array>", kDeep) + "\">",
                                      "<!DOCTYPE x [" + repeated("</array>", kDeep) + "]>"})
        EXPECT_EQ(propertyListString(nested(kDeep, hiding), kKey), std::nullopt) << hiding;
    EXPECT_EQ(propertyListString(repeated("<a></", 2'000'000), kKey), std::nullopt);
    EXPECT_EQ(propertyListString(repeated("<dict><key>a</key>", 500'000), kKey), std::nullopt);
}

TEST(PropertyListTest, DamagedBytesAreNoListAndNoCrash)
{
    const std::string xml =
        xmlWith("<dict><key>a</key><array><integer>7</integer><data>AAAA</data>"
                "</array><key>CFBundleIdentifier</key><string>é</string></dict>");
    const std::string binary = binaryOf(xml);
    EXPECT_EQ(propertyListString("", kKey), std::nullopt);
    EXPECT_EQ(propertyListString("bplist00", kKey), std::nullopt);
    std::mt19937 random(7);
    int found = 0;
    for (const std::string& whole : {xml, binary}) {
        for (std::size_t length = 0; length < whole.size(); ++length)
            found += propertyListString(std::string_view(whole).substr(0, length), kKey) ? 1 : 0;
        EXPECT_LE(found, 10); // XML cut behind the text may still be read
        for (int i = 0; i < 20000; ++i) {
            std::string damaged = whole;
            for (auto flips = random() % 4 + 1; flips > 0; --flips)
                damaged[random() % damaged.size()] = static_cast<char>(random());
            static_cast<void>(propertyListString(damaged, kKey));
        }
    }
    // Every object refers to itself: endless for a reader that builds the tree.
    std::string cycle = "bplist00";
    cycle += std::string("\xd1\x00\x00", 3) + std::string(1, '\x08');
    cycle += std::string(6, '\0') + "\x01\x01" + std::string(7, '\0') + "\x01" +
             std::string(8, '\0') + std::string(7, '\0') + "\x0b";
    EXPECT_EQ(propertyListString(cycle, kKey), std::nullopt);
}

TEST(LinuxWorkspaceTest, FindsApplicationsAndTheirIdentifiers)
{
    const test::TemporaryFolder disk;
    const std::string list =
        xmlWith("<dict><key>CFBundleIdentifier</key><string>com.example.app</string></dict>");
    disk.file("Applications/Both.app/Contents/Info.plist", list);
    disk.file("Users/ann/Applications/Both.app/Contents/Info.plist", "x");
    disk.file("Users/ann/Applications/Own App.app/Contents/Info.plist", binaryOf(list));
    disk.folder("Users/bob/Applications/Other.app");
    disk.file("Applications/File.app");
    disk.folder("Applications/Linked.app/Contents");
    disk.link("Applications/Linked.app/Contents/Info.plist",
              "/Applications/Both.app/Contents/Info.plist");
    const auto volume = std::move(VolumeFileSystem::open(disk.path()).value());
    LinuxWorkspace workspace(*volume, "ann");

    const auto path = [&workspace](std::string_view name) {
        const auto url = workspace.fullPathForApplication(name);
        return url ? url->relativePath() : "none";
    };
    EXPECT_EQ(path("Both"), "/Applications/Both.app");
    EXPECT_EQ(path("Own App"), "/Users/ann/Applications/Own App.app");
    for (const char* name : {"Other", "File", "", "../Applications/Both", "Contents"})
        EXPECT_EQ(path(name), "none") << name;

    const auto identifier = [&workspace](std::string_view bundle) {
        return workspace.bundleIdentifier(FileURL::fileURLWithPath(bundle));
    };
    EXPECT_EQ(identifier("/Applications/Both.app"), "com.example.app");
    EXPECT_EQ(identifier("/Users/ann/Applications/Own App.app/"), "com.example.app");
    EXPECT_EQ(identifier("/Users/ann/Applications/Both.app"), std::nullopt);
    EXPECT_EQ(identifier("/Applications/File.app"), std::nullopt);
    EXPECT_EQ(identifier("/Applications/Linked.app"), std::nullopt);
}

} // namespace
} // namespace pryvane
