#include "hosts/posix/print/CupsPrinter.h"

#include "support/PrintServer.h"
#include "support/UnixSocket.h"

#include <gmock/gmock.h>

#include <chrono>
#include <cstdlib>
#include <sys/socket.h>
#include <thread>

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

struct PrintServerTest : CupsPrinterTest {
    void SetUp() override
    {
        if (!server.trouble().empty())
            GTEST_SKIP() << server.trouble();
    }
    PrintServer server;
};

TEST_F(PrintServerTest, WhatArrivesIsTheDocumentOnAPageWithoutMargins)
{
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

TEST_F(PrintServerTest, SaysWhatWasMissing)
{
    folder.folder("folder");
    folder.file("empty", "");
    const struct {
        const char *file, *queue, *words;
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

TEST_F(PrintServerTest, AServerWithoutQueuesIsNoError)
{
    const PrintServer empty(PrintServer::Queues::None);
    const auto queues = printerOf(empty.socket()).printers();
    ASSERT_TRUE(queues) << queues.error().message;
    EXPECT_TRUE(queues->empty());
    EXPECT_THAT(refusal(empty.socket()), HasSubstr("no printer is set as the default one"));
    EXPECT_THAT(refusal(empty.socket(), "Report.PDF", "pile"), HasSubstr("has none"));
}

TEST_F(PrintServerTest, ASilentServerIsNotWaitedForLong)
{
    server.freeze();
    for (const char* queue : {"", "pile"}) {
        const auto begun = std::chrono::steady_clock::now();
        EXPECT_THAT(refusal(server.socket(), "Report.PDF", queue), HasSubstr("does not answer"));
        EXPECT_LT(std::chrono::steady_clock::now() - begun, 5s) << queue;
    }
}

/// A server whose answer to each request does not end.
class EndlessServer {
public:
    EndlessServer(const std::string& socketPath, std::string head, std::string rest)
        : m_head(std::move(head)), m_rest(std::move(rest)),
          m_listening(test::listeningAt(socketPath))
    {
        m_thread = std::thread([this] { serve(); });
    }
    ~EndlessServer()
    {
        shutdown(m_listening.get(), SHUT_RDWR);
        m_thread.join();
    }

private:
    void serve() const
    {
        const auto next = [this] { return UniqueFd(accept(m_listening.get(), nullptr, nullptr)); };
        for (UniqueFd peer = next(); peer; peer = next()) {
            char request[4096];
            bool goesOn =
                recv(peer.get(), request, sizeof request, 0) > 0 && sent(peer.get(), m_head);
            while (goesOn)
                goesOn = sent(peer.get(), m_rest);
        }
    }
    static bool sent(int peer, const std::string& bytes)
    {
        return send(peer, bytes.data(), bytes.size(), MSG_NOSIGNAL) ==
               static_cast<ssize_t>(bytes.size());
    }

    std::string m_head, m_rest;
    UniqueFd m_listening;
    std::thread m_thread;
};

TEST_F(CupsPrinterTest, AnAnswerThatDoesNotEndIsCutOff)
{
    const std::string ok =
        "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\nContent-Type: application/ipp\r\n";
    const std::string attribute("\x44\x00\x04name\x00\x05value", 14);
    std::string attributes;
    for (int i = 0; i < 1000; ++i)
        attributes += attribute;
    const std::string begun("\x02\x00\x00\x00\x00\x00\x00\x01\x04", 9);
    const struct {
        const char* what;
        std::string head, rest;
    } rows[] = {
        {"attributes", ok + "Content-Length: 2000000000\r\n\r\n" + begun, attributes},
        {"interim answers", "HTTP/1.1 100 Continue\r\n\r\n", "HTTP/1.1 100 Continue\r\n\r\n"},
        {"lines of the head", ok, "X-Name: value\r\n"},
    };
    for (const auto& row : rows) {
        const std::string socket = folder.hostPath(row.what);
        const EndlessServer server(socket, row.head, row.rest);
        const auto begin = std::chrono::steady_clock::now();
        const auto queues = CupsPrinter({socket, 1000ms, 500ms}).printers();
        ASSERT_FALSE(queues) << row.what;
        EXPECT_THAT(queues.error().message, HasSubstr("does not end")) << row.what;

        // A stop does not wait for the time to be over.
        CupsPrinter stopped({socket, 60s, 60s});
        StopFlag stop;
        stopped.obey(stop);
        std::thread stopper([&] {
            std::this_thread::sleep_for(100ms);
            stop.request();
        });
        EXPECT_FALSE(stopped.printers()) << row.what;
        stopper.join();
        EXPECT_LT(std::chrono::steady_clock::now() - begin, 20s) << row.what;
    }
}

} // namespace
} // namespace pryvane
