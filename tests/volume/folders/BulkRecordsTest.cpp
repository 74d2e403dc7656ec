#include "volume/folders/BulkRecords.h"

#include "platform/FileSystem.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <random>
#include <string>

namespace pryvane {
namespace {

constexpr std::uint32_t kName = 1, kType = 8, kError = 0x20000000, kReturned = 0x80000000;

std::string number(std::uint32_t value)
{
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

/// As a Mac's kernel lays an entry out: what is returned, an error where there is one, where the
/// name stands, the kind, and then the name with its NUL, filled up to four bytes.
std::string record(const std::string& name, std::uint32_t type, std::uint32_t common)
{
    std::string fields = number(common) + std::string(16, '\0');
    if (common & kError)
        fields += number(13);
    const std::size_t reference = fields.size();
    const std::size_t behind = reference + 8 + (common & kType ? 4 : 0);
    fields += number(static_cast<std::uint32_t>(behind - reference)) +
              number(static_cast<std::uint32_t>(name.size() + 1));
    if (common & kType)
        fields += number(type);
    fields += name + std::string(4 - name.size() % 4, '\0');
    return number(static_cast<std::uint32_t>(fields.size() + 4)) + fields;
}

std::string read(std::string bytes, int entries)
{
    const auto filled = entriesOfBulk(bytes.data(), bytes.size(), entries);
    return filled ? bytes.substr(0, *filled) : "refused";
}

std::string kept(FileKind kind, const std::string& name)
{
    return static_cast<char>(kind) + name + '\0';
}

TEST(BulkRecords, TakesKindAndNameOfEachEntry)
{
    const std::uint32_t usual = kReturned | kName | kType;
    const std::string longest(765, '\xe4');
    EXPECT_EQ(read(record("a", 1, usual) + record("folder", 2, usual) + record("link", 5, usual) +
                       record(longest, 7, usual) + record("new", 0, usual) +
                       record("refused", 0, kReturned | kName | kError) + "what was there before",
                   6),
              kept(FileKind::RegularFile, "a") + kept(FileKind::Folder, "folder") +
                  kept(FileKind::SymbolicLink, "link") + kept(FileKind::Other, longest) +
                  kept(FileKind::Unknown, "new") + kept(FileKind::Unknown, "refused"));
    EXPECT_EQ(read("", 0), "");
}

TEST(BulkRecords, BelievesNothingOfAnAnswerThatIsNone)
{
    const std::uint32_t usual = kReturned | kName | kType;
    const std::string good = record("name", 1, usual);
    std::string noName = good, far = good, endless = good, noLength = good, open = good;
    noName[4] = static_cast<char>(kType);
    far.replace(24, 4, number(0xfffffff0));
    endless.replace(28, 4, number(0xffffffff));
    noLength.replace(0, 4, number(0));
    open.replace(28, 4, number(4)); // ends before its NUL
    for (const std::string& bytes :
         {noName, far, endless, noLength, open, record("", 1, usual), record("a/b", 1, usual),
          record("..", 2, usual), good.substr(0, 20)})
        EXPECT_EQ(read(good + bytes, 2), "refused");
    EXPECT_EQ(read(good, 2), "refused"); // fewer than the kernel says
}

TEST(BulkRecords, ReadsNothingBeyondAnyDamage)
{
    std::mt19937 random(7);
    std::string good;
    for (int i = 0; i < 8; ++i)
        good += record("name" + std::to_string(i), 1, kReturned | kName | kType);
    for (int round = 0; round < 20'000; ++round) {
        // In memory of exactly that size, so that a sanitizer sees a step beyond it.
        std::string bytes = good.substr(0, random() % (good.size() + 1));
        for (int change = 0; change < 4 && !bytes.empty(); ++change)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        const std::unique_ptr<char[]> exact(new char[bytes.size()]);
        bytes.copy(exact.get(), bytes.size());
        const auto filled = entriesOfBulk(exact.get(), bytes.size(), 8);
        EXPECT_LE(filled.value_or(0), bytes.size());
    }
}

} // namespace
} // namespace pryvane
