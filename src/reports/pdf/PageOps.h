#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

/// What stands on the pages of a printed report, as plain values between the layout and the
/// painter. All lengths are PDF points, the origin is the page's bottom-left corner.
namespace pryvane::pdf {

class TextMeasure;
struct ReportTexts;

inline constexpr double kPageWidth = 595, kPageHeight = 842; // A4, upright

/// The system's standard font size.
inline constexpr double kSystemSize = 13;

enum class FontRole : std::uint8_t { TitleBar, System };
enum class Ink : std::uint8_t { Black, DarkGrey };
enum class Alignment : std::uint8_t { Left, Centre, Right };

/// What happens to a text that is longer than its line.
enum class Overflow : std::uint8_t {
    Wraps,           ///< onto further lines; drawn smaller where those do not fit the room either
    TruncatesMiddle, ///< one line with an ellipsis in its middle
    Shrinks          ///< one line, drawn smaller; truncated where it would get too small to read
};

struct Font {
    FontRole role = FontRole::System;
    double size = kSystemSize;
    friend bool operator==(const Font&, const Font&) = default;
};

struct Rect {
    double x = 0, y = 0, width = 0, height = 0;
    friend bool operator==(const Rect&, const Rect&) = default;
};

/// A text, its first line at the top of the rectangle.
struct TextOp {
    std::string text; ///< UTF-8 without control characters
    Rect rect;
    Font font;
    std::size_t boldPrefix = 0; ///< so many bytes of the text are set in the bold face
    Ink ink = Ink::Black;
    Alignment alignment = Alignment::Left;
    Overflow overflow = Overflow::TruncatesMiddle;
    /// What the drawn text may take up from the rectangle's top left corner, so that it meets
    /// nothing else; the rectangle itself may reach further.
    double roomWidth = 0, roomHeight = 0;
    friend bool operator==(const TextOp&, const TextOp&) = default;
};

/// A rectangle stroked in dark grey, one point wide.
struct FrameOp {
    Rect rect;
    friend bool operator==(const FrameOp&, const FrameOp&) = default;
};

/// A rectangle filled with white level 0.2, alpha 0.1.
struct BandOp {
    Rect rect;
    friend bool operator==(const BandOp&, const BandOp&) = default;
};

using PageOp = std::variant<TextOp, FrameOp, BandOp>;
using Page = std::vector<PageOp>;

/// The fields that a reader shows as the document's properties.
struct DocumentInformation {
    std::string title = "Spyware Report";
    std::string creator = "Torvell";
    std::string subject = "Spyware Report";
    std::string author = "Torvell";
};

/// Places a report on pages: a title block, the facts, a table with one row per finding, the
/// verdict, a frame and a number on each page. A row too tall for any page goes on over as many as
/// it takes.
[[nodiscard]] std::vector<Page> layOut(const ReportTexts& texts, TextMeasure& measure);

} // namespace pryvane::pdf
