#include "signatures/NameSearch.h"

#include "signatures/Catalogue.h"

#include <gmock/gmock.h>

#include <random>
#include <set>

namespace pryvane::test {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Letter case away, the plain way: ASCII, the kelvin sign, the long s.
std::string plain(std::string_view text)
{
    std::string result;
    while (!text.empty()) {
        std::size_t length = 1;
        if (text.starts_with("\xE2\x84\xAA")) {
            result += 'k';
            length = 3;
        } else if (text.starts_with("\xC5\xBF")) {
            result += 's';
            length = 2;
        } else {
            const char c = text.front();
            result += c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
        }
        text.remove_prefix(length);
    }
    return result;
}

/// One scan of the list for each text.
class Reference {
public:
    explicit Reference(const DefaultLocations& locations) : m_paths(locations.paths())
    {
        for (const std::string& path : m_paths)
            m_plain.push_back(plain(path));
    }

    [[nodiscard]] std::vector<std::string> containing(const std::string& text) const
    {
        const std::string wanted = plain(text);
        std::vector<std::string> hits;
        for (std::size_t entry = 0; entry < m_paths.size(); ++entry) {
            if (m_plain[entry].find(wanted) != std::string::npos)
                hits.push_back(m_paths[entry]);
        }
        return hits;
    }

    [[nodiscard]] std::vector<std::string> touchingDot(const std::string& fragment) const
    {
        auto hits = containing(fragment + ".");
        for (std::string& path : containing("." + fragment))
            hits.push_back(std::move(path));
        return hits;
    }

private:
    std::vector<std::string> m_paths;
    std::vector<std::string> m_plain;
};

std::set<std::string> fragments()
{
    std::set<std::string> all = {"not in the catalogue", "k", "ss", "x.y", "\xFF"};
    for (const ThreatCheck& check : catalogue::threatChecks())
        all.insert(check.names.begin(), check.names.end());
    for (const DefaultOnlyEntry& entry : catalogue::defaultOnlyEntries())
        all.insert(entry.names.begin(), entry.names.end());
    return all;
}

/// Names glued from pieces of fragments and from what could confuse a matcher.
class RandomNames {
public:
    std::string name()
    {
        std::string text;
        for (std::size_t pieces = pick(6) + 1; pieces > 0; --pieces)
            text += piece();
        return text;
    }

    std::size_t pick(std::size_t count)
    {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random);
    }

private:
    std::string piece()
    {
        static const std::set<std::string> known = fragments();
        static const std::vector<std::string> words(known.begin(), known.end());
        static const std::vector<std::string> glue = {
            ".",    ".",    ".",  " ", "x", "\xE2\x84\xAA", "\xC5\xBF", "\xE2\x84", "\xC5", "\xAA",
            "\xBF", "\xFF", "\n", "K", "S", "com."};
        if (pick(2) == 0)
            return glue[pick(glue.size())];
        std::string word = words[pick(words.size())];
        std::erase(word, '/');
        if (pick(3) == 0)
            word = word.substr(pick(word.size()));
        for (std::size_t at = 0; at < word.size(); ++at) {
            if ((word[at] == 'k' || word[at] == 'K') && pick(3) == 0)
                word.replace(at, 1, "\xE2\x84\xAA");
            else if ((word[at] == 's' || word[at] == 'S') && pick(3) == 0)
                word.replace(at, 1, "\xC5\xBF");
            else if (pick(2) == 0)
                word[at] = static_cast<char>(std::toupper(static_cast<unsigned char>(word[at])));
        }
        return word;
    }

    std::mt19937 m_random{20240229};
};

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
                                    "okaz-", "okazz.plist", ".okaz"});
    EXPECT_THAT(search.touchingDot("Okaz"),
                ElementsAre("/Library/Caches/com.okaz.agent", "/Library/Caches/OKAZ.app",
                            "/Library/Caches/com.okaz.agent", "/Library/Caches/x.oKaz",
                            "/Library/Caches/.okaz"));
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

TEST(NameSearch, AgreesWithOneScanPerFragment)
{
    RandomNames random;
    for (int list = 0; list < 40; ++list) {
        DefaultLocations locations;
        for (std::size_t folders = random.pick(4); folders > 0; --folders) {
            std::vector<std::string> names(random.pick(60));
            for (std::string& name : names)
                name = random.name();
            locations.addFolder("/Users/" + random.name() + "/Library", names);
        }
        const Reference reference(locations);
        const NameSearch search(locations);
        for (const std::string& fragment : fragments())
            ASSERT_EQ(search.touchingDot(fragment), reference.touchingDot(fragment)) << fragment;
        ASSERT_EQ(search.containing("Codec"), reference.containing("Codec"));
    }
}

} // namespace pryvane::test
