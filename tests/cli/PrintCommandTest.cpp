#include "cli/CliFixture.h"
#include "support/PrintServer.h"

#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <unistd.h>

namespace pryvane {
namespace {

using testing::HasSubstr;

class PrintCommandTest : public test::CliFixture {
protected:
    PrintCommandTest()
    {
        setenv("XDG_CACHE_HOME", data.hostPath("caches").c_str(), 1);
        for (const char* name : {"PRINTER", "LPDEST"})
            unsetenv(name);
        volume.file("/tmp/.mdworker");
    }
    ~PrintCommandTest() override
    {
        unsetenv("XDG_CACHE_HOME");
        unsetenv("CUPS_SERVER");
    }

    /// The words of a document, or why they cannot be told.
    static std::string wordsOf(const std::string& path)
    {
        FILE* output = popen(("pdftotext -layout '" + path + "' - 2>&1").c_str(), "r");
        std::string words;
        std::array<char, 4096> buffer;
        for (std::size_t n = 0; (n = fread(buffer.data(), 1, buffer.size(), output)) > 0;)
            words.append(buffer.data(), n);
        pclose(output);
        return words;
    }

    std::string onVolume = "--volume=" + volume.path();
};

TEST_F(PrintCommandTest, WritesDocuments)
{
    const std::string first = data.hostPath("scan.pdf"), second = data.hostPath("report.pdf");
    EXPECT_EQ(scan({"--pdf", first}).code, 1);
    volume.remove("/tmp/.mdworker");
    const Outcome written = run({"report", "pdf", "latest", second, onVolume});
    EXPECT_EQ(written.code, 0) << written.err;
    if (access("/usr/bin/pdftotext", X_OK) != 0)
        GTEST_SKIP() << "no pdftotext to read the documents with";
    EXPECT_THAT(wordsOf(first), testing::ContainsRegex("mdworker +Revir +High Risk +Not Quar"));
    EXPECT_THAT(wordsOf(second), testing::ContainsRegex("mdworker +Revir +High Risk +Quarant"));
}

TEST_F(PrintCommandTest, ADocumentThatCannotBeWrittenIsAnError)
{
    const std::string nowhere = data.hostPath("gone/x.pdf");
    const Outcome scanned = scan({"--pdf", nowhere});
    EXPECT_EQ(scanned.code, 2);
    EXPECT_THAT(scanned.err, HasSubstr("no such file or directory"));
    EXPECT_TRUE(reportIds().empty()) << "it is better known before the scan";
    EXPECT_EQ(scan().code, 1);
    EXPECT_EQ(run({"report", "pdf", "latest", nowhere, onVolume}).code, 2);
    data.folder("folder");
    EXPECT_EQ(scan({"--pdf", data.hostPath("folder")}).code, 2);
}

TEST_F(PrintCommandTest, PrintsWhatItWrote)
{
    EXPECT_EQ(scan().code, 1);
    setenv("CUPS_SERVER", data.hostPath("no.sock").c_str(), 1);
    const Outcome unserved = run({"report", "print", "latest", onVolume});
    EXPECT_EQ(unserved.code, 2);
    EXPECT_THAT(unserved.err, HasSubstr("there is no print service"));

    const test::PrintServer server;
    if (!server.trouble().empty())
        GTEST_SKIP() << server.trouble();
    setenv("CUPS_SERVER", server.socket().c_str(), 1);
    const Outcome nobody = run({"report", "print", "latest", "--printer", "attic", onVolume});
    EXPECT_EQ(nobody.code, 2);
    EXPECT_THAT(nobody.err, HasSubstr("choose one of: pile, shut"));

    const Outcome printed = run({"report", "print", "latest", onVolume});
    EXPECT_EQ(printed.code, 0) << printed.err;
    EXPECT_THAT(printed.out, HasSubstr("Print job "));
    const auto arrived = server.arrived();
    ASSERT_TRUE(arrived);
    EXPECT_THAT(*arrived, testing::StartsWith("%PDF-"));
    EXPECT_EQ(*arrived, test::contentOf(data.hostPath("caches/pryvane/Report.PDF")));
}

} // namespace
} // namespace pryvane
