#include "reports/pdf/painter/PackedPdf.h"

#include "reports/pdf/PdfFixtures.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <fstream>
#include <vector>

namespace pryvane::test {

namespace {

/// A document as Cairo 1.16 writes it: one page for each text, its stream's length in an object of
/// its own, and a classic table.
std::string plainDocument(const std::vector<std::string>& texts)
{
    std::vector<std::string> bodies;
    std::string kids;
    for (const std::string& text : texts) {
        const std::string stream = "BT /F1 12 Tf 20 700 Td (" + text + ") Tj ET";
        const std::size_t first = bodies.size() + 4;
        kids += std::to_string(first) + " 0 R ";
        bodies.push_back("<< /Type /Page /Parent 2 0 R /Contents " + std::to_string(first + 1) +
                         " 0 R /MediaBox [0 0 595 842] /Resources << /Font << /F1 3 0 R >> >> >>");
        bodies.push_back("<< /Length " + std::to_string(first + 2) + " 0 R\n>>\nstream\n" + stream +
                         "\nendstream");
        bodies.push_back("   " + std::to_string(stream.size()));
    }
    bodies.insert(bodies.begin(), {"<< /Type /Catalog /Pages 2 0 R >>",
                                   "<< /Type /Pages /Kids [ " + kids + "] /Count " +
                                       std::to_string(texts.size()) + " >>",
                                   "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>"});
    std::string document = "%PDF-1.5\n";
    std::string table = "0000000000 65535 f \n";
    for (std::size_t i = 0; i < bodies.size(); ++i) {
        std::string offset = std::to_string(document.size());
        table += std::string(10 - offset.size(), '0') + offset + " 00000 n \n";
        document += std::to_string(i + 1) + " 0 obj\n" + bodies[i] + "\nendobj\n";
    }
    const std::string count = std::to_string(bodies.size() + 1);
    return document + "xref\n0 " + count + "\n" + table + "trailer\n<< /Size " + count +
           "\n   /Root 1 0 R\n>>\nstartxref\n" + std::to_string(document.size()) + "\n%%EOF\n";
}

std::string replaced(std::string text, std::string_view from, std::string_view to)
{
    const auto at = text.rfind(from);
    return at == text.npos ? text : text.replace(at, from.size(), to);
}

} // namespace

// More objects than one object stream takes.
TEST(PackedPdf, KeepsEveryPageInLessSpace)
{
    std::vector<std::string> texts;
    for (int i = 0; i < 150; ++i)
        texts.push_back("page" + std::to_string(i));
    const std::string plain = plainDocument(texts);
    const std::string packed = pdf::packedPdf(plain);
    EXPECT_LT(packed.size(), plain.size() * 3 / 4);
    EXPECT_EQ(packed.find(" 0 R\n>>\nstream"), packed.npos) << "a length that refers elsewhere";
    EXPECT_EQ(pdf::packedPdf(packed), packed);

    const TemporaryFolder folder;
    const std::string path = folder.hostPath("packed.pdf");
    std::ofstream(path, std::ios::binary) << packed;
    std::vector<std::string> words;
    for (const Word& word : wordsOf(path))
        words.push_back(word.text);
    EXPECT_EQ(words, texts);
}

TEST(PackedPdf, LeavesWhatItDoesNotKnowAsItIs)
{
    const std::string plain = plainDocument({std::string(600, 'a'), std::string(600, 'b')});
    ASSERT_NE(pdf::packedPdf(plain), plain);
    const std::vector<std::string> unknown = {
        "",
        "%PDF-1.5\n",
        plain.substr(0, plain.size() / 2),
        replaced(plain, "%PDF-1.", "%PDF-2."),
        replaced(plain, "startxref\n", "startxref\n9"),
        replaced(plain, "startxref\n", "startxref\nx"),
        replaced(plain, "xref\n0 ", "xref\n1 "),
        replaced(plain, " 00000 n ", " 00001 n "),
        replaced(plain, "0000000009 00000 n ", "0000000010 00000 n "),
        replaced(plain, "0000000009 00000 n ", "9999999999 00000 n "),
        replaced(plain, "endobj\nxref", "endob_\nxref"),
        replaced(plain, "/Size", "/Sise"),
        replaced(plain, ">>\nstartxref", "\nstartxref"),
    };
    for (const std::string& document : unknown)
        EXPECT_EQ(pdf::packedPdf(document), document);
}

} // namespace pryvane::test
