#include "formats/Account.h"

#include <gtest/gtest.h>

namespace pryvane {
namespace {

std::string plist(const std::string& inside)
{
    return "<?xml version=\"1.0\"?><plist version=\"1.0\">" + inside + "</plist>";
}

TEST(Account, IsReadFromTheFirstValueOfEachAttribute)
{
    const auto account = readAccount(
        plist("<dict><key>name</key><array><string>dave</string><string>other</string></array>"
              "<key>uid</key><array><string>501</string></array>"
              "<key>home</key><array><string>/Users/dave</string></array>"
              "<key>realname</key><array><string>Dave D</string></array>"
              "<key>generateduid</key><array><string>AAAA-1</string></array>"
              "<key>jpegphoto</key><array><data>AAAA</data></array></dict>"));
    ASSERT_TRUE(account);
    EXPECT_EQ(account->name + " " + account->home, "dave /Users/dave");
    EXPECT_EQ(account->realName + " " + account->generatedUid, "Dave D AAAA-1");
    EXPECT_TRUE(account->uid == 501 && account->isPersons());
}

TEST(Account, OfWhatIsBrokenIsAnErrorOrSaysLess)
{
    for (const std::string& broken :
         {std::string(), std::string("bplist00"), plist("<array/>"), plist("<dict><key>name")})
        EXPECT_FALSE(readAccount(broken)) << broken;
    const struct {
        const char* name;
        const char* uid;
        bool isPersons;
    } rows[] = {{"dave", "501", true},  {"hidden", "401", true},
                {"root", "0", false},   {"daemon", "1", false},
                {"_www", "70", false},  {"nobody", "-2", false},
                {"dave", "5o1", false}, {"dave", "", false},
                {"", "501", false},     {"dave", "99999999999999999999", false}};
    for (const auto& row : rows) {
        const auto account =
            readAccount(plist("<dict><key>name</key><array><string>" + std::string(row.name) +
                              "</string></array><key>uid</key><array><string>" + row.uid +
                              "</string></array><key>home</key><array/></dict>"));
        ASSERT_TRUE(account);
        EXPECT_EQ(account->isPersons(), row.isPersons) << row.name << row.uid;
        EXPECT_EQ(account->home, "");
    }
    const auto longName = readAccount(
        plist("<dict><key>home</key><string>" + std::string(5000, 'x') + "</string></dict>"));
    ASSERT_TRUE(longName);
    EXPECT_EQ(longName->home, "");
}

} // namespace
} // namespace pryvane
