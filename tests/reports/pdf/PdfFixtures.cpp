#include "reports/pdf/PdfFixtures.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <regex>
#include <sstream>

namespace pryvane::test {

std::string outputOf(const std::string& command)
{
    std::string output;
    std::FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    std::array<char, 4096> part{};
    while (const std::size_t length = std::fread(part.data(), 1, part.size(), pipe))
        output.append(part.data(), length);
    EXPECT_EQ(pclose(pipe), 0) << command << "\n" << output;
    return output;
}

std::string joinedTextOf(const std::string& pdf)
{
    std::string text = outputOf("pdftotext -raw '" + pdf + "' -");
    std::erase_if(text, [](char c) { return c == '\n' || c == '\f'; });
    return text;
}

std::vector<Word> wordsOf(const std::string& pdf)
{
    static const std::regex pattern(
        R"re(<word xMin="([-0-9.]+)" yMin="([-0-9.]+)" xMax="([-0-9.]+)" yMax="([-0-9.]+)">(.*)</word>)re");
    std::istringstream lines(outputOf("pdftotext -bbox '" + pdf + "' -"));
    std::vector<Word> words;
    int page = 0;
    std::smatch match;
    for (std::string line; std::getline(lines, line);) {
        page += line.find("<page ") != std::string::npos ? 1 : 0;
        if (std::regex_search(line, match, pattern))
            words.push_back({page, std::stod(match[1]), std::stod(match[2]), std::stod(match[3]),
                             std::stod(match[4]), match[5]});
    }
    return words;
}

} // namespace pryvane::test
