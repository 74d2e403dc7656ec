#include "reports/pdf/PdfFixtures.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <sstream>
#include <utility>

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
    std::istringstream lines(outputOf("pdftotext -bbox '" + pdf + "' -"));
    std::vector<Word> words;
    int page = 0;
    for (std::string line; std::getline(lines, line);) {
        page += line.find("<page ") != std::string::npos ? 1 : 0;
        Word word{page, 0, 0, 0, 0, ""};
        int begin = 0;
        if (std::sscanf(line.c_str(),
                        " <word xMin=\"%lf\" yMin=\"%lf\" xMax=\"%lf\" yMax=\"%lf\">%n", &word.left,
                        &word.top, &word.right, &word.bottom, &begin) != 4)
            continue;
        const auto from = static_cast<std::size_t>(begin);
        word.text = line.substr(from, line.find("</word>") - from);
        words.push_back(std::move(word));
    }
    return words;
}

} // namespace pryvane::test
