#include "core/Escape.h"
#include "reports/pdf/PageOps.h"
#include "reports/pdf/PdfPainter.h"
#include "reports/pdf/ReportTexts.h"
#include "signatures/Catalogue.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace pryvane::pdf {

namespace {

constexpr Font kTitleFont{FontRole::TitleBar, 25};
constexpr Font kTitleLineFont{FontRole::TitleBar, 10};
constexpr Font kPageNumberFont{FontRole::TitleBar, 8};
constexpr Font kHeaderFont{FontRole::TitleBar, kSystemSize};
constexpr Font kRowFont{FontRole::System, kSystemSize};

constexpr int kFirstTop = 822, kNextTop = 802; // where the first page, and each later one, starts
constexpr int kBottom = 10;                    // no row reaches this low
constexpr double kFrameX = 40, kFrameWidth = 523;
constexpr double kMeasuredWidth = 220;
constexpr float kMeasuredHeight = 1000;        // what is taller is not measured any further
constexpr std::size_t kMeasuredBytes = 16'384; // more than a page holds of any script
constexpr float kRowPadding = 16, kCellDrop = 8;
constexpr Font kAppendixFont{FontRole::TitleBar, 17};
constexpr float kParagraphGap = 4;
constexpr double kIndent = 12;

struct Column {
    double x, width;
    Overflow overflow;
};
constexpr Column kPathColumn{50, 210, Overflow::Wraps};
constexpr Column kInfectionColumn{268, 115, Overflow::TruncatesMiddle};
constexpr Column kAvailableColumn{390, 65, Overflow::TruncatesMiddle};
constexpr Column kStatusColumn{458, 100, Overflow::TruncatesMiddle};

constexpr double kLeftFactX = 40, kRightFactX = 337, kFactWidth = 555, kFactGap = 10;

/// As much of a UTF-8 text as so many bytes hold.
std::string_view wholeCharacters(std::string_view text, std::size_t bytes)
{
    if (text.size() <= bytes)
        return text;
    while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xc0) == 0x80)
        --bytes;
    return text.substr(0, bytes);
}

/// Page by page from the top down. The position is a whole number that every step lowers.
class ReportLayout {
public:
    ReportLayout(const ReportTexts& texts, TextMeasure& measure)
        : m_texts(texts), m_measure(measure), m_pages(1)
    {
    }

    std::vector<Page> pages();

private:
    void titleText();
    void reportHeader();
    double factItem(const Fact& fact, double x, double room);
    void printTallRow(TableRow row);
    void printRow(TableRow row, bool isHeader, float height);
    void cell(const Column& column, std::string text, Font font, float rowHeight);
    void remark(std::string_view words);
    void appendix(const ReportAppendix& appendix);
    void appendixGroup(const ReportAppendix::List& list, const ReportAppendix::Group& group);
    void paragraph(std::string_view bytes, Font font, std::string_view bold, double indent);
    void closePage();
    void startPage();

    [[nodiscard]] TableRow shown(const TableRow& row);
    [[nodiscard]] std::string shown(std::string_view bytes)
    {
        return m_measure.legible(forScreen(bytes));
    }
    [[nodiscard]] float rowHeight(std::string_view path);
    /// Whether the current page has room for a row so tall.
    [[nodiscard]] bool fits(float height) const { return kBottom < double(m_position) - height; }
    void lower(double by) { m_position = static_cast<int>(m_position - by); }
    void add(PageOp op) { m_pages.back().push_back(std::move(op)); }

    const ReportTexts& m_texts;
    TextMeasure& m_measure;
    std::vector<Page> m_pages;
    int m_position = kFirstTop;
    double m_tableHeight = 0; ///< of the rows on the current page
    double m_belowTable = 0;  ///< of the paragraphs on it
};

std::vector<Page> ReportLayout::pages()
{
    titleText();
    reportHeader();
    const TableRow header{"Scan Path", "Infection Details", "Available", "Status"};
    const float headerHeight = rowHeight(header.url);
    lower(headerHeight);
    m_tableHeight = headerHeight;
    printRow(header, true, headerHeight);
    for (const TableRow& raw : m_texts.rows) {
        TableRow row = shown(raw);
        const float height = rowHeight(row.url);
        if (!fits(height)) {
            closePage();
            startPage();
        }
        // The location is not shown for this one, but it decides how tall the row is.
        if (raw.infection == catalogue::kRemoteDesktop)
            row.url = catalogue::kRemoteDesktopArticle;
        if (!fits(height)) {
            printTallRow(std::move(row));
            continue;
        }
        lower(height);
        m_tableHeight += height;
        printRow(std::move(row), false, height);
    }
    remark(m_texts.verdict);
    for (const std::string& words : m_texts.remarks)
        remark(words);
    if (m_texts.appendix)
        appendix(*m_texts.appendix);
    closePage();
    return std::move(m_pages);
}

TableRow ReportLayout::shown(const TableRow& row)
{
    return {shown(row.url), shown(row.infection), shown(row.available), row.status};
}

void ReportLayout::titleText()
{
    std::string line = shown(m_texts.application);
    double height = m_measure.height(line, kTitleLineFont, kOneLine);
    add(TextOp{.text = std::move(line),
               .rect = {18, m_position - height - 4, 525, height},
               .font = kTitleLineFont,
               .ink = Ink::DarkGrey,
               .roomWidth = 525,
               .roomHeight = height});

    std::string title = "SPYWARE REPORT";
    height = m_measure.height(title, kTitleFont, kOneLine);
    add(TextOp{.text = std::move(title),
               .rect = {20, m_position - height - 30, 555, height},
               .font = kTitleFont,
               .alignment = Alignment::Centre,
               .roomWidth = 555,
               .roomHeight = height});
    lower(height + 30);

    std::string date = shown(m_texts.scanDate);
    height = m_measure.height(date, kTitleLineFont, kOneLine);
    add(TextOp{.text = std::move(date),
               .rect = {460, m_position - height + 54, 555, height},
               .font = kTitleLineFont,
               .ink = Ink::DarkGrey,
               .alignment = Alignment::Right,
               .roomWidth = 555,
               .roomHeight = height});
}

void ReportLayout::reportHeader()
{
    // The left item ends before the right one begins, the right one where the table's frame does.
    constexpr double leftRoom = kRightFactX - kLeftFactX - kFactGap;
    constexpr double rightRoom = kFrameX + kFrameWidth - kRightFactX;
    double height = 0;
    for (const auto& line : m_texts.facts) {
        if (&line != m_texts.facts.data())
            lower(height + 10);
        const double left = factItem(line[0], kLeftFactX, leftRoom);
        height = std::max(left, factItem(line[1], kRightFactX, rightRoom));
    }
    lower(height + 35);
}

/// Draws one fact at the current position and returns its height.
double ReportLayout::factItem(const Fact& fact, double x, double room)
{
    std::string text = fact.label + " " + shown(fact.value);
    const double height = m_measure.height(text, kRowFont, kOneLine);
    add(TextOp{.text = std::move(text),
               .rect = {x, m_position - height - 10, kFactWidth, height},
               .font = kRowFont,
               .boldPrefix = fact.label.size(),
               .overflow = Overflow::Shrinks,
               .roomWidth = room,
               .roomHeight = height});
    return height;
}

float ReportLayout::rowHeight(std::string_view path)
{
    const float height = path.size() > kMeasuredBytes
                             ? kMeasuredHeight
                             : m_measure.height(path, kHeaderFont, kMeasuredWidth);
    return std::min(height, kMeasuredHeight) + kRowPadding;
}

/// A row that no page has room for, from the top of a page on.
void ReportLayout::printTallRow(TableRow row)
{
    constexpr float room = kNextTop - kBottom - 1 - kRowPadding;
    const std::string path = std::move(row.url);
    std::string_view rest = path;
    while (true) {
        std::size_t taken = rest.size();
        const bool last = fits(rowHeight(rest));
        if (!last)
            taken = m_measure.fitting(wholeCharacters(rest, kMeasuredBytes), kHeaderFont,
                                      kMeasuredWidth, room);
        row.url = rest.substr(0, taken);
        const float height = rowHeight(row.url);
        lower(height);
        m_tableHeight += height;
        printRow(std::exchange(row, {}), false, height);
        rest.remove_prefix(taken);
        if (last)
            return;
        closePage();
        startPage();
    }
}

void ReportLayout::printRow(TableRow row, bool isHeader, float height)
{
    const Font font = isHeader ? kHeaderFont : kRowFont;
    if (isHeader)
        add(BandOp{{kFrameX, double(m_position), kFrameWidth, height}});
    cell(kPathColumn, std::move(row.url), font, height);
    cell(kInfectionColumn, std::move(row.infection), font, height);
    cell(kAvailableColumn, std::move(row.available), font, height);
    cell(kStatusColumn, std::move(row.status), font, height);
}

void ReportLayout::cell(const Column& column, std::string text, Font font, float rowHeight)
{
    if (text.empty())
        return;
    add(TextOp{.text = std::move(text),
               .rect = {column.x, double(m_position) - kCellDrop, column.width, rowHeight},
               .font = font,
               .overflow = column.overflow,
               .roomWidth = column.width,
               .roomHeight = rowHeight - kCellDrop}); // down to the row's own edge
}

/// Below the table, whose frame stays around its rows.
void ReportLayout::remark(std::string_view words)
{
    if (words.empty())
        return;
    constexpr double kMost = kNextTop - kBottom - kRowPadding - 1;
    std::string text = shown(wholeCharacters(words, kMeasuredBytes));
    const double height = std::min<double>(m_measure.height(text, kRowFont, kFrameWidth), kMost);
    if (!fits(float(height + m_belowTable) + kRowPadding)) {
        closePage();
        startPage();
    }
    add(TextOp{
        .text = std::move(text),
        .rect = {kFrameX, m_position - m_belowTable - height - kCellDrop, kFrameWidth, height},
        .font = kRowFont,
        .overflow = Overflow::Wraps,
        .roomWidth = kFrameWidth,
        .roomHeight = height});
    m_belowTable += height + kCellDrop;
}

/// What was asked for besides, from the top of a page on and without a table's frame.
void ReportLayout::appendix(const ReportAppendix& appendix)
{
    closePage();
    startPage();
    paragraph(appendix.title, kAppendixFont, {}, 0);
    paragraph(appendix.introduction, kRowFont, {}, 0);
    for (const ReportAppendix::List& list : appendix.lists) {
        lower(kRowPadding);
        paragraph(list.title, kAppendixFont, {}, 0);
        if (list.groups.empty())
            paragraph("Nothing of this was found in the places that were read.", kRowFont, {}, 0);
        for (const ReportAppendix::Group& group : list.groups)
            appendixGroup(list, group);
    }
    if (appendix.missing.empty())
        return;
    lower(kRowPadding);
    paragraph("What of this could not be read", kAppendixFont, {}, 0);
    for (const std::string& missing : appendix.missing)
        paragraph(missing, kRowFont, {}, kIndent);
}

void ReportLayout::appendixGroup(const ReportAppendix::List& list,
                                 const ReportAppendix::Group& group)
{
    lower(kCellDrop);
    paragraph({}, kHeaderFont, group.title, 0);
    paragraph(group.meaning, kRowFont, {}, 0);
    for (const ReportAppendix::Row& row : group.rows) {
        std::string details;
        for (const std::string& detail : detailsOf(list, row))
            details += (details.empty() ? ". " : "; ") + detail;
        paragraph(details, kRowFont, row.cells.front(), kIndent);
    }
}

/// As many lines as it takes, on the page where they fit; `bold` stands in front.
void ReportLayout::paragraph(std::string_view bytes, Font font, std::string_view bold,
                             double indent)
{
    constexpr double kMost = kNextTop - kBottom - kRowPadding - 1;
    std::string text = shown(wholeCharacters(bold, kMeasuredBytes / 2));
    const std::size_t boldPrefix = text.size();
    text += shown(wholeCharacters(bytes, kMeasuredBytes / 2));
    const double width = kFrameWidth - indent;
    // A bold face is wider, so that a line more may be needed.
    const Font measured = boldPrefix > 0 ? Font{FontRole::TitleBar, font.size} : font;
    const double height = std::min<double>(m_measure.height(text, measured, width), kMost);
    if (!fits(float(height) + kParagraphGap)) {
        closePage();
        startPage();
    }
    add(TextOp{.text = std::move(text),
               .rect = {kFrameX + indent, m_position - height - kParagraphGap, width, height},
               .font = font,
               .boldPrefix = boldPrefix,
               .overflow = Overflow::Wraps,
               .roomWidth = width,
               .roomHeight = height});
    lower(height + kParagraphGap);
}

void ReportLayout::closePage()
{
    if (m_tableHeight > 0)
        add(FrameOp{{kFrameX, double(m_position), kFrameWidth, m_tableHeight}});
    std::string number = std::to_string(m_pages.size());
    const double height = m_measure.height(number, kPageNumberFont, kOneLine);
    add(TextOp{.text = std::move(number),
               .rect = {525, 8, 50, height},
               .font = kPageNumberFont,
               .ink = Ink::DarkGrey,
               .alignment = Alignment::Right,
               .roomWidth = 50,
               .roomHeight = height});
}

void ReportLayout::startPage()
{
    m_pages.emplace_back();
    m_position = kNextTop;
    m_tableHeight = m_belowTable = 0;
}

} // namespace

std::vector<Page> layOut(const ReportTexts& texts, TextMeasure& measure)
{
    return ReportLayout(texts, measure).pages();
}

} // namespace pryvane::pdf
