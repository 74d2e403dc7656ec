#include "words/Shown.h"

#include "words/EngineText.h"
#include "words/Language.h"

#include <QCoreApplication>
#include <QHash>
#include <QLocale>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace pryvane::ui {

namespace {

constexpr char kContext[] = "Engine";
constexpr char kCount = 'n';
constexpr int kDeepest = 8; ///< texts within texts
constexpr qsizetype kMostKept = 4096;

QString utf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

bool isDigits(std::string_view text)
{
    return !text.empty() && text.size() <= 9 &&
           std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

/// A text taken apart at its "%1" and "%n": one more literal than there are marks.
struct Pattern {
    const EngineText* text;
    bool isOne;
    std::vector<std::string_view> literals;
    std::string marks;
};

Pattern patternOf(const EngineText& text, bool isOne)
{
    Pattern pattern{&text, isOne, {}, {}};
    std::string_view rest = isOne ? text.one : text.english;
    for (std::size_t at = 0; at + 1 < rest.size(); ++at) {
        const char mark = rest[at + 1];
        if (rest[at] != '%' || !(mark == kCount || (mark >= '1' && mark <= '9')))
            continue;
        pattern.literals.push_back(rest.substr(0, at));
        pattern.marks += mark;
        rest.remove_prefix(at + 2);
        at = std::string_view::npos; // from the beginning of the rest
    }
    pattern.literals.push_back(rest);
    return pattern;
}

using Pieces = std::array<std::string_view, 128>; ///< by their marks

bool fits(const Pattern& pattern, std::size_t mark, std::string_view piece)
{
    const char name = pattern.marks[mark];
    if (name == kCount)
        return isDigits(piece) && (piece == "1") == (pattern.isOne || !*pattern.text->one);
    const bool onlyDigits = std::string_view(pattern.text->digits).find(name) != std::string::npos;
    return onlyDigits ? isDigits(piece) : !piece.empty();
}

/// What stands for each mark from this one on; false where the rest does not fit.
bool match(const Pattern& pattern, std::size_t mark, std::string_view rest, Pieces& pieces)
{
    const auto take = [&](std::string_view piece) {
        pieces[static_cast<std::size_t>(pattern.marks[mark])] = piece;
        return fits(pattern, mark, piece);
    };
    const std::string_view after = pattern.literals[mark + 1];
    if (mark + 1 == pattern.marks.size())
        return rest.ends_with(after) && take(rest.substr(0, rest.size() - after.size()));
    for (auto at = rest.find(after); at != std::string_view::npos; at = rest.find(after, at + 1))
        if (take(rest.substr(0, at)) &&
            match(pattern, mark + 1, rest.substr(at + after.size()), pieces))
            return true;
    return false;
}

class Texts {
public:
    Texts()
    {
        for (const auto texts :
             {scanTexts(), scheduleTexts(), removalTexts(), privacyTexts(), factTexts()})
            for (const EngineText& text : texts)
                add(text);
    }

    [[nodiscard]] QString shown(std::string_view english, int depth) const
    {
        if (const auto known = m_whole.find(english); known != m_whole.end())
            return QCoreApplication::translate(kContext, known->second->english);
        if (const auto size = sizeShown(english))
            return *size;
        if (const auto duration = durationShown(english))
            return *duration;
        for (const Pattern& pattern : m_patterns) {
            Pieces pieces;
            if (depth < kDeepest && english.starts_with(pattern.literals.front()) &&
                match(pattern, 0, english.substr(pattern.literals.front().size()), pieces))
                return filled(pattern, pieces, depth);
        }
        return utf8(english);
    }

private:
    void add(const EngineText& text)
    {
        Pattern pattern = patternOf(text, false);
        if (pattern.marks.empty()) {
            m_whole.emplace(text.english, &text);
            return;
        }
        m_patterns.push_back(std::move(pattern));
        if (*text.one)
            m_patterns.push_back(patternOf(text, true));
    }

    [[nodiscard]] QString filled(const Pattern& pattern, const Pieces& pieces, int depth) const
    {
        const auto pieceOf = [&](char mark) { return pieces[static_cast<std::size_t>(mark)]; };
        const bool counts = pattern.marks.find(kCount) != std::string::npos;
        const int count = counts ? std::stoi(std::string(pieceOf(kCount))) : -1;
        // The count is put in with the translation, as it decides on its form.
        QString text = QCoreApplication::translate(kContext, pattern.text->english, nullptr, count);
        const std::string_view inner = pattern.text->inner;
        QString whole;
        for (qsizetype at = 0; at < text.size(); ++at) {
            const char mark = at + 1 < text.size() ? text[at + 1].toLatin1() : '\0';
            if (text[at] != QLatin1Char('%') || pattern.marks.find(mark) == std::string::npos) {
                whole += text[at];
                continue;
            }
            whole += inner.find(mark) != std::string_view::npos ? shown(pieceOf(mark), depth + 1)
                                                                : utf8(pieceOf(mark));
            ++at;
        }
        return whole;
    }

    /// "1.4 MB" with the point and the unit of the language.
    [[nodiscard]] static std::optional<QString> sizeShown(std::string_view english)
    {
        constexpr std::array<const char*, 8> kUnits = {
            QT_TRANSLATE_NOOP("Engine", "%1 byte"), QT_TRANSLATE_NOOP("Engine", "%1 bytes"),
            QT_TRANSLATE_NOOP("Engine", "%1 KB"),   QT_TRANSLATE_NOOP("Engine", "%1 MB"),
            QT_TRANSLATE_NOOP("Engine", "%1 GB"),   QT_TRANSLATE_NOOP("Engine", "%1 TB"),
            QT_TRANSLATE_NOOP("Engine", "%1 PB"),   QT_TRANSLATE_NOOP("Engine", "%1 EB")};
        const auto blank = english.find(' ');
        if (blank == std::string_view::npos)
            return std::nullopt;
        const auto* unit = std::ranges::find(kUnits, english.substr(blank + 1),
                                             [](std::string_view each) { return each.substr(3); });
        const auto point = english.substr(0, blank).find('.');
        const auto whole = english.substr(0, std::min(point, blank));
        const auto part = point < blank ? english.substr(point + 1, blank - point - 1) : "0";
        if (unit == kUnits.end() || !isDigits(whole) || !isDigits(part))
            return std::nullopt;
        const double value = utf8(english.substr(0, blank)).toDouble();
        return QCoreApplication::translate(kContext, *unit)
            .arg(QLocale().toString(value, 'f', point < blank ? static_cast<int>(part.size()) : 0));
    }

    /// " 1 minutes  5 seconds": each count with its unit.
    [[nodiscard]] static std::optional<QString> durationShown(std::string_view english)
    {
        constexpr std::array<std::pair<std::string_view, const char*>, 3> kUnits = {
            {{"hour", QT_TRANSLATE_N_NOOP("Engine", "%n hours")},
             {"minute", QT_TRANSLATE_N_NOOP("Engine", "%n minutes")},
             {"second", QT_TRANSLATE_N_NOOP("Engine", "%n seconds")}}};
        const QStringList words = utf8(english).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        QStringList parts;
        for (qsizetype at = 0; at + 1 < words.size(); at += 2) {
            std::string unit = words[at + 1].toStdString();
            if (unit.ends_with('s'))
                unit.pop_back();
            const auto* known =
                std::ranges::find(kUnits, unit, [](auto& each) { return each.first; });
            bool isNumber = false;
            const int count = words[at].toInt(&isNumber);
            if (known == kUnits.end() || !isNumber)
                return std::nullopt;
            parts += QCoreApplication::translate(kContext, known->second, nullptr, count);
        }
        if (parts.isEmpty() || words.size() % 2 != 0)
            return std::nullopt;
        return parts.join(QLatin1Char(' '));
    }

    std::unordered_map<std::string_view, const EngineText*> m_whole;
    std::vector<Pattern> m_patterns;
};

} // namespace

QString shown(std::string_view english)
{
    if (!isTranslated() || english.empty())
        return utf8(english);
    static const Texts texts;
    static QHash<QByteArray, QString> known; // a list asks for the same words again and again
    const QByteArray key = QByteArray::fromRawData(english.data(), qsizetype(english.size()));
    if (const auto found = known.constFind(key); found != known.constEnd())
        return *found;
    if (known.size() >= kMostKept)
        known.clear();
    return *known.insert(QByteArray(english.data(), qsizetype(english.size())),
                         texts.shown(english, 0));
}

QString shownOnButton(std::string_view english)
{
    return shown(english).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace pryvane::ui
