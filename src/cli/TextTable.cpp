#include "cli/TextTable.h"

#include "core/Escape.h"

#include <algorithm>

namespace pryvane::cli {

namespace {

/// Terminal cells of a text: East Asian wide characters and emoji take two.
std::size_t cells(std::string_view text)
{
    std::size_t width = 0;
    char32_t c = 0;
    for (std::size_t length = 0; !text.empty(); text.remove_prefix(length)) {
        length = std::max<std::size_t>(decodeUtf8(text, c), 1);
        const bool combining = c >= 0x300 && c <= 0x36f;
        const bool wide = (c >= 0x1100 && c <= 0x115f) || (c >= 0x2e80 && c <= 0xa4cf) ||
                          (c >= 0xac00 && c <= 0xd7a3) || (c >= 0xf900 && c <= 0xfaff) ||
                          (c >= 0xfe30 && c <= 0xfe6f) || (c >= 0xff00 && c <= 0xff60) ||
                          (c >= 0x1f300 && c <= 0x1faff) || (c >= 0x20000 && c <= 0x3fffd);
        width += combining ? 0 : wide ? 2 : 1;
    }
    return width;
}

} // namespace

std::string TextTable::text(std::string_view indent) const
{
    std::vector<std::size_t> widths(m_columns.size(), 0);
    for (const auto& row : m_rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], cells(row[i]));
    }
    std::string out;
    for (const auto& row : m_rows) {
        out += indent;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string padding(widths[i] - cells(row[i]), ' ');
            const bool last = i + 1 == row.size();
            if (m_columns[i] == Align::Right)
                out += padding;
            out += row[i];
            if (!last)
                out += (m_columns[i] == Align::Left ? padding : "") + "  ";
        }
        out += '\n';
    }
    return out;
}

} // namespace pryvane::cli
