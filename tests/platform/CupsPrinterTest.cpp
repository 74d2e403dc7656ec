#include "platform/posix/CupsPrinter.h"

#include "platform/PrintServer.h"

#include <gmock/gmock.h>

#include <chrono>
#include <cstdlib>

namespace pryvane {
namespace {

using namespace std::chrono_literals;
using test::PrintServer;
using testing::HasSubstr;

class CupsPrinterTest : public testing::Test {
protected:
    CupsPrinterTest()
    {
        for (const char* name : {"PRINTER", "LPDEST", "CUPS_SERVER"})
            unsetenv(name);
        setenv("HOME", folder.path().c_str(), 1); // a user's own default printer would interfere
        folder.file("Report.PDF", document);
    }

    [[nodiscard]] static CupsPrinter printerOf(const std::string& server)
    {
        return CupsPrinter(CupsPrinter::Options{server, 1000ms});
    }
    [[nodiscard]] std::string refusal(const std::string& server, const char* file = "Report.PDF",
                                      std::string_view queue = {}) const
    {
        const auto sent =
            printerOf(server).printFile(folder.hostPath(file), "Spyware Report", queue, {});
        return sent ? "sent" : sent.error().message;
    }

    test::TemporaryFolder folder;
    const std::string document = "%PDF-1.4\n" + std::string(200'000, '\x9c') + "%%EOF\n";
};

TEST_F(CupsPrinterTest, WhatArrivesIsTheDocumentOnAPageWithoutMargins)
{
    const PrintServer server;
    if (!server.trouble().empty())
        GTEST_SKIP() << server.trouble();
    CupsPrinter printer = printerOf(server.socket());
    const auto queues = printer.printers();
    ASSERT_TRUE(queues) << queues.error().message;
    std::vector<std::string> names;
    for (const auto& queue : *queues)
        names.push_back(queue.name + (queue.isDefault ? " (default)" : ""));
    EXPECT_THAT(names, testing::UnorderedElementsAre("pile (default)", "shut"));

    const auto job = printer.printFile(folder.hostPath("Report.PDF"), "Spyware Report", {}, {});
    ASSERT_TRUE(job) << job.error().message;
    EXPECT_EQ(server.arrived(), document);
    const std::string told = server.told();
    EXPECT_THAT(told, testing::StartsWith(std::to_string(*job) + "\n"));
    for (const char* part :
         {"\nSpyware Report\n", "media=iso_a4_210x297mm", "page-left=0", "page-right=0",
          "page-top=0", "page-bottom=0", "orientation-requested=3", "print-scaling=none"})
        EXPECT_THAT(told, HasSubstr(part));
}

TEST_F(CupsPrinterTest, SaysWhatWasMissing)
{
    const PrintServer server;
    if (!server.trouble().empty())
        GTEST_SKIP() << server.trouble();
    folder.folder("folder");
    folder.file("empty", "");
    const struct {
        const char* file;
        const char* queue;
        const char* words;
    } cases[] = {
        {"gone.pdf", "", "no such file or directory"},
        {"folder", "", "is not a file"},
        {"empty", "", "is empty"},
        {"Report.PDF", "attic", "there is no printer \"attic\"; choose one of: pile, shut"},
        {"Report.PDF", "shut", "the printer \"shut\" refused the report: "},
    };
    for (const auto& row : cases)
        EXPECT_THAT(refusal(server.socket(), row.file, row.queue), HasSubstr(row.words))
            << row.file << " to " << row.queue;
}

TEST_F(CupsPrinterTest, AServerWithoutQueuesIsNoError)
{
    const PrintServer server(PrintServer::Queues::None);
    if (!server.trouble().empty())
        GTEST_SKIP() << server.trouble();
    const auto queues = printerOf(server.socket()).printers();
    ASSERT_TRUE(queues) << queues.error().message;
    EXPECT_TRUE(queues->empty());
    EXPECT_THAT(refusal(server.socket()), HasSubstr("no printer is set as the default one"));
    EXPECT_THAT(refusal(server.socket(), "Report.PDF", "pile"), HasSubstr("has none"));
}

TEST_F(CupsPrinterTest, WithoutAServerItSaysSo)
{
    const std::string nowhere = folder.hostPath("cups.sock");
    EXPECT_THAT(refusal(nowhere), HasSubstr("there is no print service to be reached"));
    EXPECT_FALSE(printerOf(nowhere).printers());
}

TEST_F(CupsPrinterTest, ASilentServerIsNotWaitedForLong)
{
    PrintServer server;
    if (!server.trouble().empty())
        GTEST_SKIP() << server.trouble();
    server.freeze();
    for (const char* queue : {"", "pile"}) {
        const auto begun = std::chrono::steady_clock::now();
        EXPECT_THAT(refusal(server.socket(), "Report.PDF", queue), HasSubstr("does not answer"));
        EXPECT_LT(std::chrono::steady_clock::now() - begun, 5s) << queue;
    }
}

} // namespace
} // namespace pryvane
