#pragma once

#include <string>
#include <string_view>

namespace pryvane {

/// Text for a person, made from raw bytes of a file name: always valid UTF-8 on one line, with
/// everything that could hide or fake something (control characters, line and paragraph
/// separators, bidirectional and zero-width controls, bytes that are not UTF-8, and the backslash
/// itself) visibly escaped: \n, \x1b, \xff, \u{202e}, \\. Plain text: never to be read as markup.
[[nodiscard]] std::string forScreen(std::string_view bytes);

/// The same for a terminal; nothing that a terminal would obey is left.
[[nodiscard]] std::string forTerminal(std::string_view bytes);

/// The same for a JSON text value; quoting is left to the JSON writer.
[[nodiscard]] std::string forJson(std::string_view bytes);

/// The same for a desktop notification, whose server reads markup: & < > become entities.
[[nodiscard]] std::string forNotification(std::string_view bytes);

/// The same inside HTML text or a quoted attribute: & < > " ' become entities.
[[nodiscard]] std::string forHtml(std::string_view bytes);

/// How a character that cannot be shown is written: \u{202e}.
[[nodiscard]] std::string escapedCodePoint(char32_t codePoint);

/// Percent-encodes all bytes but unreserved characters and "/"; decoding gives the bytes back.
[[nodiscard]] std::string percentEncoded(std::string_view bytes);

/// The bytes of a percent-encoded text. A "%" that no two hexadecimal digits follow stands for
/// itself.
[[nodiscard]] std::string percentDecoded(std::string_view text);

/// Whether the bytes are well-formed UTF-8 (no surrogates, nothing overlong).
[[nodiscard]] bool isUtf8(std::string_view bytes);

/// Reads one well-formed UTF-8 character at the start of `bytes` into `codePoint` and returns its
/// length, or 0 where no character starts.
[[nodiscard]] std::size_t decodeUtf8(std::string_view bytes, char32_t& codePoint);

} // namespace pryvane
