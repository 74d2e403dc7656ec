#include "core/Escape.h"
#include "reports/pdf/PdfFixtures.h"
#include "signatures/Catalogue.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <set>
#include <sstream>
#include <sys/resource.h>
#include <thread>

namespace pryvane::test {

namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

class PDFGenerateTest : public testing::Test {
protected:
    /// Writes the report and returns its path.
    std::string print(const SpywareScanReport& report)
    {
        const auto path = generate.createPDFFileFor(report);
        EXPECT_TRUE(path.ok()) << (path.ok() ? "" : path.error().message);
        return path.ok() ? *path : "";
    }

    [[nodiscard]] std::vector<std::string> files() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder.path()))
            names.push_back(entry.path().filename());
        return names;
    }

    [[nodiscard]] std::string content() const { return contentOf(folder.hostPath("Report.PDF")); }

    TemporaryFolder folder;
    CountingDisk disk;
    FakeMachine machine;
    PDFGenerate generate{factsIn(folder.path()), disk, machine};
};

std::string times(int count, std::string_view part)
{
    std::string all;
    for (int i = 0; i < count; ++i)
        all += part;
    return all;
}

/// Words that lie over one another, in words.
std::vector<std::string> overlaps(const std::vector<Word>& words)
{
    constexpr double touch = 2; // line boxes may touch: their ascent and descent are generous
    std::vector<std::string> found;
    for (std::size_t i = 0; i < words.size(); ++i) {
        for (std::size_t j = i + 1; j < words.size() && words[j].page == words[i].page; ++j) {
            const Word &a = words[i], &b = words[j];
            if (std::min(a.right, b.right) - std::max(a.left, b.left) > touch &&
                std::min(a.bottom, b.bottom) - std::max(a.top, b.top) > touch)
                found.push_back(a.text + " / " + b.text);
        }
    }
    return found;
}

} // namespace

TEST_F(PDFGenerateTest, WritesADocumentWithItsInformationAndEmbeddedFonts)
{
    disk.paths = {"/Users/x/there"};
    const auto report = reportOf({"/Users/x/there", "/Users/x/gone", "/Users/x/\xd0\xb9\xd1\x84"});
    (*report->spyWareList)[1]->infections = catalogue::kRemoteDesktop;
    const std::string path = print(*report);
    EXPECT_EQ(path, folder.path() + "/Report.PDF");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0600));

    const std::string said = outputOf("pdfinfo '" + path + "'") + joinedTextOf(path) +
                             outputOf("qpdf --check '" + path + "'");
    for (const std::string& part :
         {"Title:           Spyware Report\n"s, "Subject:         Spyware Report\n"s,
          "Author:          Torvell\n"s, "Creator:         Torvell\n"s, "Pages:           1\n"s,
          "Page size:       595 x 842 pts"s, "Pryvane 1.2 (34)"s, "SPYWARE REPORT"s,
          "Mac Name : Alice's Mac"s, "/Users/x/there"s, "/Users/x/\xd0\xb9\xd1\x84"s,
          "Not Quarantined"s, std::string(catalogue::kRemoteDesktopArticle),
          "No syntax or stream"s})
        EXPECT_THAT(said, testing::HasSubstr(part));
    EXPECT_THAT(said, testing::Not(testing::HasSubstr("/Users/x/gone")));

    std::istringstream fonts(outputOf("pdffonts '" + path + "'"));
    int count = -2; // two lines of heading
    for (std::string line; std::getline(fonts, line); ++count) {
        if (count >= 0) {
            EXPECT_THAT(line, testing::HasSubstr("yes yes yes")) << "embedded, subset, readable";
        }
    }
    EXPECT_GE(count, 2); // the bold and the plain face
}

TEST_F(PDFGenerateTest, EveryRowIsOnANumberedPage)
{
    std::vector<std::string> paths;
    for (int i = 0; i < 200; ++i)
        paths.push_back("/Users/jane/item-" + std::to_string(i) + "-");
    const std::string path = print(*reportOf(paths));
    std::set<std::string> numbers;
    const auto words = wordsOf(path);
    for (const Word& word : words) {
        if (word.left > 560 && word.top > 820 && word.text == std::to_string(word.page))
            numbers.insert(word.text);
    }
    EXPECT_EQ(numbers.size(), 9U); // rows of 31 points, 19 and then 25 to a page
    EXPECT_EQ(words.back().page, 9);
    const std::string text = joinedTextOf(path);
    for (const auto& item : paths)
        EXPECT_THAT(text, testing::HasSubstr(item));
    EXPECT_THAT(overlaps(words), testing::IsEmpty());
}

TEST_F(PDFGenerateTest, AnyNameComesOutLegibleAndApart)
{
    std::vector<std::string> paths = {
        "/hebrew/\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d/\xd7\xa2\xd7\x95\xd7\x9c\xd7\x9d.txt",
        "/cyrillic/\xd0\xba\xd0\xb5\xd0\xb9\xd0\xbb\xd0\xbe\xd0\xb3\xd0\xb3\xd0\xb5\xd1\x80",
        "/key/\xf0\x9f\x94\x91/end", // drawn as a picture, or escaped where no font has it
        "/" + std::string(255, 'W') + "/" + std::string(255, '_') + "/" + std::string(255, 'i'),
        "/spaces/" + std::string(255, ' ') + "end",
        "/marks/e" + times(100, "\xcc\x81"),
        // As wide in the face that is measured as in the one that is drawn, in a narrower column.
        times(1500, "_"),
        times(1500, "\xe2\x80\x93"),
    };
    for (const std::string& name : hostileNames())
        paths.push_back("/hostile/" + name + "/end");
    const auto report = reportOf(paths);
    report->reportType = std::string(120, 'Q'); // a fact that is too long for its half
    report->subject.source.kind = DiskSource::Kind::ThisMac;
    machine.name = std::string(25, 'M');
    const std::string path = print(*report);
    auto words = wordsOf(path);
    for (const Word& word : words) {
        EXPECT_GE(word.left, 17) << word.text;
        EXPECT_LE(word.right, 580) << word.text;
        EXPECT_LE(word.bottom, word.left < 560 ? 832 : 842) << word.text; // but for the page number
    }
    // Marks that stand over their letter are meant to overlap.
    std::erase_if(words,
                  [](const Word& word) { return word.text.find('\xcc') != std::string::npos; });
    EXPECT_THAT(overlaps(words), testing::IsEmpty());

    std::string text = joinedTextOf(path);
    EXPECT_THAT(text, testing::HasSubstr(*machine.name)); // small, but whole
    std::erase(text, ' ');
    for (const std::string& name : hostileNames()) {
        std::string shown = forScreen(name);
        std::erase(shown, ' ');
        if (std::ranges::all_of(shown, [](char c) { return c > 0; })) {
            EXPECT_THAT(text, testing::HasSubstr(shown));
        }
    }
    EXPECT_THAT(text, testing::AnyOf(testing::HasSubstr("/key/\xf0\x9f\x94\x91/end"),
                                     testing::HasSubstr("/key/\\u{1f511}/end")));
    // The reader marks right-to-left text itself; nothing else may turn text around.
    for (const char* mark : {"\xe2\x80\xaa", "\xe2\x80\xab", "\xe2\x80\xac"}) {
        for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark))
            text.erase(at, 3);
    }
    EXPECT_TRUE(isHarmless(text));
}

TEST_F(PDFGenerateTest, AFailureKeepsTheOldFileAndLeavesNothingBehind)
{
    print(*reportOf({"/old"}));
    const std::string old = content();
    ASSERT_FALSE(old.empty());

    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tight{4096, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &tight);
    const auto written = generate.createPDFFileFor(*reportOf({"/new"}));
    setrlimit(RLIMIT_FSIZE, &before);
    static_cast<void>(std::signal(SIGXFSZ, handler));

    ASSERT_FALSE(written.ok());
    EXPECT_THAT(written.error().message, testing::HasSubstr(folder.path() + "/Report.PDF: "));
    EXPECT_EQ(content(), old);
    EXPECT_THAT(files(), testing::ElementsAre("Report.PDF"));
}

TEST_F(PDFGenerateTest, MakesItsOwnFolderAndRefusesWhatItCannotWriteTo)
{
    const auto report = reportOf({"/x"});
    folder.folder("folder.pdf");
    folder.link("link.pdf", "folder.pdf/elsewhere");
    folder.file("file");
    for (const char* name : {"folder.pdf", "link.pdf", "file/Report.PDF", "missing/Report.PDF"}) {
        const auto written = generate.createPDF(*report, folder.hostPath(name));
        ASSERT_FALSE(written.ok()) << name;
        EXPECT_THAT(written.error().message, testing::StartsWith(folder.hostPath(name) + ": "));
    }
    EXPECT_FALSE(folder.contains("folder.pdf/elsewhere"));
    EXPECT_EQ(files().size(), 3U);

    const std::string caches = folder.hostPath("home/.cache/pryvane"); // of a fresh account
    ASSERT_TRUE(PDFGenerate(factsIn(caches), disk, machine).createPDFFileFor(*report).ok());
    EXPECT_EQ(fs::status(caches).permissions(), fs::perms(0700));
}

TEST_F(PDFGenerateTest, TwoDocumentsAtTheSameTime)
{
    const auto print4 = [&](const std::string& name) {
        for (int i = 0; i < 4; ++i) {
            CountingDisk own;
            FakeMachine facts;
            PDFGenerate generator(factsIn(folder.path()), own, facts);
            EXPECT_TRUE(
                generator.createPDF(*reportOf({"/\xd7\xa9/" + name}), folder.hostPath(name)).ok());
        }
    };
    std::thread other([&] { print4("one.pdf"); });
    print4("two.pdf");
    other.join();
    for (const std::string name : {"one.pdf", "two.pdf"})
        EXPECT_THAT(joinedTextOf(folder.hostPath(name)), testing::HasSubstr("/" + name));
}

using PDFGenerateDeathTest = PDFGenerateTest;

TEST_F(PDFGenerateDeathTest, SaysThatNoFontIsInstalled)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // fontconfig reads its settings once a process
    folder.file("fonts.conf", "<?xml version=\"1.0\"?><fontconfig></fontconfig>");
    const auto printWithoutFonts = [&] {
        setenv("FONTCONFIG_FILE", folder.hostPath("fonts.conf").c_str(), 1);
        const auto written = generate.createPDFFileFor(*reportOf({"/x"}));
        std::fprintf(stderr, "%s\n", written.ok() ? "written" : written.error().message.c_str());
        std::_Exit(0);
    };
    EXPECT_EXIT(printWithoutFonts(), testing::ExitedWithCode(0), "no font is installed");
}

} // namespace pryvane::test
