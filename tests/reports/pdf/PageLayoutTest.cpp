#include "reports/pdf/PageOps.h"
#include "reports/pdf/PdfPainter.h"
#include "reports/pdf/ReportTexts.h"
#include "signatures/Catalogue.h"

#include <gmock/gmock.h>

#include <cmath>
#include <sstream>

namespace pryvane::test {

namespace {

using namespace pdf;

/// Each byte is 10 points wide, a line two points higher than its font.
class SquareLetters final : public TextMeasure {
public:
    long measuredBytes = 0;

    std::string legible(std::string text) override { return text; }
    float height(std::string_view text, Font font, double width) override
    {
        measuredBytes += static_cast<long>(text.size());
        const double lines = std::ceil(10.0 * static_cast<double>(text.size()) / width);
        return static_cast<float>(std::max(1.0, lines) * (font.size + 2));
    }
    std::size_t fitting(std::string_view text, Font font, double width, double height) override
    {
        measuredBytes += static_cast<long>(text.size());
        const double bytes = std::floor(height / (font.size + 2)) * std::floor(width / 10);
        return std::min(text.size(), static_cast<std::size_t>(bytes));
    }
};

ReportTexts textsWith(std::vector<TableRow> rows)
{
    ReportTexts texts;
    texts.application = "Pryvane 1.2 (34)";
    texts.scanDate = "today";
    texts.rows = std::move(rows);
    for (auto& line : texts.facts)
        line = {Fact{"Left :", "1"}, Fact{"Right :", "2"}};
    return texts;
}

TableRow rowOf(const std::string& path)
{
    return {path, "Okaz Installer", "High Risk", kQuarantined};
}

std::vector<Page> pagesOf(std::vector<TableRow> rows)
{
    SquareLetters letters;
    return layOut(textsWith(std::move(rows)), letters);
}

/// The path column's texts of a page, without the header.
std::vector<std::string> pathsOn(const Page& page)
{
    std::vector<std::string> paths;
    for (const PageOp& op : page) {
        const auto* text = std::get_if<TextOp>(&op);
        if (text && text->rect.x == 50 && text->text != "Scan Path")
            paths.push_back(text->text);
    }
    return paths;
}

std::string inWords(const PageOp& op)
{
    const Rect at = std::visit([](const auto& any) { return any.rect; }, op);
    std::ostringstream words;
    words << at.x << ' ' << at.y << ' ' << at.width << ' ' << at.height << ": ";
    const auto* text = std::get_if<TextOp>(&op);
    if (!text) {
        words << (std::holds_alternative<BandOp>(op) ? "band" : "frame");
        return words.str();
    }
    words << text->text << ", size " << text->font.size;
    for (const auto& [holds, word] : {std::pair{text->font.role == FontRole::TitleBar, " title"},
                                      {text->alignment == Alignment::Centre, " centre"},
                                      {text->alignment == Alignment::Right, " right"},
                                      {text->ink == Ink::DarkGrey, " grey"},
                                      {text->overflow == Overflow::Wraps, " wraps"}})
        words << (holds ? word : "");
    if (text->boldPrefix > 0)
        words << " bold " << text->boldPrefix;
    return words.str();
}

Rect frameOf(const Page& page)
{
    const auto* frame = std::get_if<FrameOp>(&page.at(page.size() - 2));
    return frame ? frame->rect : Rect{};
}

std::string numberOf(const Page& page)
{
    return std::get<TextOp>(page.back()).text;
}

} // namespace

TEST(PageLayout, PutsEveryPartAtItsPlace)
{
    const std::vector<std::string> expected = {
        "18 806 525 12: Pryvane 1.2 (34), size 10 title grey",
        "20 765 555 27: SPYWARE REPORT, size 25 title centre",
        "460 807 555 12: today, size 10 title right grey",
        "40 740 555 15: Left : 1, size 13 bold 6",
        "337 740 555 15: Right : 2, size 13 bold 7",
        "40 715 555 15: Left : 1, size 13 bold 6",
        "337 715 555 15: Right : 2, size 13 bold 7",
        "40 690 555 15: Left : 1, size 13 bold 6",
        "337 690 555 15: Right : 2, size 13 bold 7",
        "40 665 555 15: Left : 1, size 13 bold 6",
        "337 665 555 15: Right : 2, size 13 bold 7",
        "40 609 523 31: band",
        "50 601 210 31: Scan Path, size 13 title wraps",
        "268 601 115 31: Infection Details, size 13 title",
        "390 601 65 31: Available, size 13 title",
        "458 601 100 31: Status, size 13 title",
        "50 570 210 31: /tmp/x, size 13 wraps",
        "268 570 115 31: Okaz Installer, size 13",
        "390 570 65 31: High Risk, size 13",
        "458 570 100 31: Quarantined, size 13",
        "40 578 523 62: frame",
        "525 8 50 10: 1, size 8 title right grey",
    };
    const auto pages = pagesOf({rowOf("/tmp/x")});
    ASSERT_EQ(pages.size(), 1U);
    std::vector<std::string> parts;
    for (const PageOp& op : pages[0])
        parts.push_back(inWords(op));
    EXPECT_EQ(parts, expected);
    EXPECT_EQ(frameOf(pagesOf({})[0]), (Rect{40, 609, 523, 31}));
}

TEST(PageLayout, BreaksPagesWhereARowWouldReachTheMargin)
{
    // Rows of 31 and 46 points below the header at 609.
    const TableRow one = rowOf(std::string(22, 'x')), two = rowOf(std::string(44, 'x'));
    const struct {
        const char* what;
        std::size_t ones, twos;
        std::vector<Rect> frames;
    } cases[] = {
        {"full to within ten points of the margin", 19, 0, {{40, 20, 523, 620}}},
        {"one over", 20, 0, {{40, 20, 523, 620}, {40, 771, 523, 31}}},
        {"would end exactly at the margin", 3, 11, {{40, 41, 523, 599}, {40, 771, 523, 31}}},
        {"would end one point above it", 15, 0, {{40, 144, 523, 496}}},
        {"three pages",
         19 + 25 + 1,
         0,
         {{40, 20, 523, 620}, {40, 27, 523, 775}, {40, 771, 523, 31}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        std::vector<TableRow> rows(c.twos, two);
        rows.insert(rows.end(), c.ones, one);
        const auto pages = pagesOf(rows);
        ASSERT_EQ(pages.size(), c.frames.size());
        for (std::size_t i = 0; i < pages.size(); ++i) {
            EXPECT_EQ(frameOf(pages[i]), c.frames[i]);
            EXPECT_EQ(numberOf(pages[i]), std::to_string(i + 1));
        }
    }
}

TEST(PageLayout, ARowIsAsTallAsItsPathAlsoWhereAnArticleStandsInItsPlace)
{
    TableRow article = rowOf(std::string(100, 'x'));
    article.infection = catalogue::kRemoteDesktop;
    const auto pages = pagesOf({article, rowOf("/after")});
    EXPECT_THAT(pathsOn(pages.at(0)),
                testing::ElementsAre(catalogue::kRemoteDesktopArticle, "/after"));
    EXPECT_EQ(frameOf(pages[0]), (Rect{40, 609 - 91 - 31, 523, 31 + 91 + 31}));
}

TEST(PageLayout, ContinuesARowThatIsTallerThanAnyPage)
{
    std::string path;
    while (path.size() < 40'000)
        path += "/" + std::to_string(path.size());
    const auto pages = pagesOf({rowOf("/before"), rowOf(path), rowOf("/after")});
    ASSERT_GT(pages.size(), 30U);
    EXPECT_THAT(pathsOn(pages[0]), testing::ElementsAre("/before"));
    EXPECT_THAT(pathsOn(pages.back()), testing::Contains("/after"));
    std::string shown;
    int statuses = 0;
    for (std::size_t i = 1; i < pages.size(); ++i) {
        shown += pathsOn(pages[i]).at(0);
        const Rect frame = frameOf(pages[i]);
        EXPECT_GT(frame.y, 10);
        EXPECT_EQ(frame.y + frame.height, 802);
        for (const PageOp& op : pages[i]) {
            const auto* text = std::get_if<TextOp>(&op);
            statuses += text && text->rect.x == 458 ? 1 : 0;
        }
    }
    EXPECT_EQ(shown, path);
    EXPECT_EQ(statuses, 2); // of this row and of the one after it
}

TEST(PageLayout, MeasuresEachRowOnce)
{
    SquareLetters letters;
    const auto texts = textsWith(std::vector<TableRow>(10'000, rowOf(std::string(100, 'x'))));
    const auto pages = layOut(texts, letters);
    EXPECT_EQ(pages.size(), 1U + (10'000 - 6 + 7) / 8); // 91 points each: 6, then 8 to a page
    // Paths and page numbers, and the few texts at the top.
    EXPECT_LT(letters.measuredBytes, 10'000 * 100 + 4 * static_cast<long>(pages.size()) + 200);
}

} // namespace pryvane::test
