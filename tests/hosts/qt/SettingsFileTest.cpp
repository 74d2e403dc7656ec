#include "hosts/qt/EventLoop.h"
#include "hosts/qt/network/NetworkSettingsFile.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <gtest/gtest.h>

#include <optional>

namespace pryvane::test {
namespace {

using std::chrono::milliseconds;

/// An HTTP server on this machine that answers each request with the given bytes.
class Server final : public QTcpServer {
public:
    explicit Server(QByteArray answer, bool endless = false)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this, answer, endless] {
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket, answer, endless] {
                requests.back() += socket->readAll();
                if (!requests.back().endsWith("\r\n\r\n") || answer.isEmpty())
                    return;
                socket->write(answer);
                if (endless)
                    connect(socket, &QTcpSocket::bytesWritten, socket,
                            [socket] { socket->write(QByteArray(10000, 'x')); });
                else
                    socket->disconnectFromHost();
            });
            requests.emplace_back();
        });
    }

    [[nodiscard]] std::string address() const
    {
        return "http://127.0.0.1:" + std::to_string(serverPort()) + "/settings.txt";
    }

    std::vector<QByteArray> requests;
};

/// The body, or the error behind a "!".
std::string fetched(const std::string& address, milliseconds limit = milliseconds(3000))
{
    NetworkSettingsFile file(address, limit);
    std::optional<std::string> told;
    int replies = 0;
    file.fetch([&](Result<std::string> body) {
        ++replies;
        told = body ? body.value() : "!" + body.error().message;
    });
    EXPECT_FALSE(told) << "the answer comes after the call";
    EXPECT_TRUE(runUntil([&] { return told.has_value(); }));
    runFor(milliseconds(20));
    EXPECT_EQ(replies, 1);
    return told.value_or("none");
}

QByteArray ok(const QByteArray& body)
{
    return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" +
           body;
}

TEST(SettingsFileTest, tellsTheBodyOrWhyThereIsNone)
{
    const QByteArray full(static_cast<qsizetype>(SettingsFile::kSizeLimit), 'y');
    const struct {
        const char* name;
        QByteArray answer;
        bool endless;
        std::string expected; ///< behind "!": a part of the error
    } rows[] = {
        {"true", ok("true"), false, "true"},
        {"with a line end", ok("true\n"), false, "true\n"},
        {"raw bytes", ok(QByteArray("\xff\0x", 3)), false, std::string("\xff\0x", 3)},
        {"empty", ok(""), false, ""},
        {"as long as may be", ok(full), false, full.toStdString()},
        {"a byte more", ok(full + 'y'), false, "!too long"},
        {"endless", "HTTP/1.1 200 OK\r\n\r\n", true, "!too long"},
        {"created", "HTTP/1.1 201 Created\r\nContent-Length: 4\r\n\r\ntrue", false, "!201"},
        {"missing", "HTTP/1.1 404 No\r\nContent-Length: 4\r\n\r\ntrue", false, "!could not"},
        {"cut short", "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\ntrue", false, "!could not"},
        {"no HTTP", "true", false, "!could not"},
        {"to a file", "HTTP/1.1 302 F\r\nLocation: file:///etc/passwd\r\n\r\n", false,
         "!could not"},
        {"to elsewhere", "HTTP/1.1 302 F\r\nLocation: http://localhost:1/\r\n\r\n", false,
         "!could not"},
        {"in circles", "HTTP/1.1 302 F\r\nLocation: /settings.txt\r\nContent-Length: 0\r\n\r\n",
         false, "!could not"},
        {"silence", "", false, "!in time"},
    };
    for (const auto& row : rows) {
        const Server server(row.answer, row.endless);
        const auto limit = milliseconds(row.answer.isEmpty() ? 200 : 3000);
        const std::string told = fetched(server.address(), limit);
        if (row.expected.starts_with('!'))
            EXPECT_TRUE(told.starts_with('!') && told.find(row.expected.substr(1)) != told.npos)
                << row.name << ": " << told;
        else
            EXPECT_EQ(told, row.expected) << row.name;
    }
}

TEST(SettingsFileTest, asksOnlyForWhatItShould)
{
    Server server(ok("true"));
    EXPECT_EQ(fetched(server.address()), "true");
    ASSERT_EQ(server.requests.size(), 1U);
    const QByteArray request = server.requests[0];
    EXPECT_TRUE(request.startsWith("GET /settings.txt HTTP/1.1\r\n"));
    EXPECT_TRUE(request.contains("User-Agent: Pryvane/"));
    EXPECT_FALSE(request.contains("Cookie"));
    EXPECT_FALSE(request.contains("gzip"));

    const std::string nobody = server.address();
    server.close();
    EXPECT_TRUE(fetched(nobody).starts_with('!')) << "refused";
    for (const char* address :
         {"file:///etc/hostname", "", "http://", "ftp://127.0.0.1/x", "qrc:/x"})
        EXPECT_TRUE(fetched(address).starts_with("!the settings file has no web")) << address;

    bool told = false;
    {
        const Server slow("");
        NetworkSettingsFile file(slow.address(), milliseconds(100));
        file.fetch([&](const Result<std::string>&) { told = true; });
        runFor(milliseconds(30));
    }
    runFor(milliseconds(200));
    EXPECT_FALSE(told) << "it ended first";
}

} // namespace
} // namespace pryvane::test
