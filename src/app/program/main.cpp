#include "app/program/Arguments.h"
#include "app/program/Desktop.h"
#include "app/program/FileOpening.h"
#include "app/program/Session.h"
#include "core/Escape.h"
#include "core/Exhaustion.h"
#include "core/tasks/Worker.h"
#include "hosts/Host.h"
#include "hosts/posix/SingleInstance.h"
#include "hosts/qt/DesktopHost.h"
#include "hosts/qt/InstanceServer.h"
#include "store/StoreFolder.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Theme.h"
#include "words/Language.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <chrono>
#include <csignal>
#include <iostream>
#include <optional>
#include <utility>

namespace {

using namespace pryvane;

constexpr int kFailed = 2;
constexpr std::chrono::milliseconds kIconAfter{150};

/// Ends the program in words when memory runs out while it handles an event: what the screen shows
/// may be half of what it should be, and the store and the journal are whole at any moment.
class Application final : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception& error) {
            if (!std::exchange(m_gaveUp, true))
                sayExhausted(error);
            exit(kFailed);
            return false;
        }
    }

private:
    bool m_gaveUp = false;
};

int fail(const std::string& message)
{
    std::cerr << "pryvane: " << forTerminal(message) << std::endl;
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Pryvane"), ui::text(forScreen(message)));
    box.setTextFormat(Qt::PlainText);
    box.exec();
    return kFailed;
}

/// One program a store. None where it cannot be told: the store guards itself.
std::optional<SingleInstance> claim(Host& host, const std::string& dataFolder)
{
    if (!makeFolders(dataFolder))
        return std::nullopt; // what opens the store says why
    const auto runtime = host.runtimeFolder(dataFolder);
    if (!runtime)
        return std::nullopt;
    auto claimed = SingleInstance::claim(dataFolder, *runtime);
    if (!claimed)
        return std::nullopt;
    return std::move(claimed).value();
}

int handOver(Host& host, const SingleInstance& instance, const Arguments& arguments)
{
    const auto taken = instance.handOver(
        {arguments.volume, arguments.user, arguments.scan, host.activationToken()});
    if (taken)
        return 0;
    std::cerr << "pryvane: " << forTerminal(taken.error().message) << std::endl;
    return kFailed;
}

/// One session after the other, until one ends the program.
int runSessions(Desktop& desktop, const Arguments& arguments, SingleInstance* instance)
{
    Session* current = nullptr;
    FileOpening* opening = nullptr;
    std::optional<InstanceRequest> waiting; // for a session that can take it
    std::unique_ptr<InstanceServer> server;
    if (instance) {
        if (auto socket = instance->listen())
            server = std::make_unique<InstanceServer>(std::move(socket).value(),
                                                      [&](const InstanceRequest& request) {
                                                          if (current)
                                                              current->take(request);
                                                          else
                                                              waiting = request;
                                                          if (opening)
                                                              opening->bringToFront();
                                                      });
        else
            desktop.log.line(socket.error().message);
    }
    std::optional<NextDisk> next = NextDisk{arguments.choice(), {}};
    if (isFileOfHost(next->choice.folder)) {
        FileOpening file(desktop, next->choice);
        opening = &file;
        auto opened = file.run();
        opening = nullptr;
        if (!opened)
            return fail(opened.error().message);
        next = std::move(opened).value();
    }
    if (next) // else reading the file was cancelled
        next->scan = arguments.scan;
    for (bool isFirst = true; next; isFirst = false) {
        const bool scan = next->scan;
        const auto session = Session::open(desktop, std::move(*next));
        if (!session)
            return fail(session.error().message);
        current = session->get();
        current->start();
        if (scan)
            current->requestScan();
        for (const std::string& told : {desktop.notice(), desktop.host.accessAdvice()}) {
            if (isFirst && !told.empty())
                desktop.alerts.runModal({"", told, {"OK"}});
        }
        if (const auto request = std::exchange(waiting, {}))
            desktop.mainQueue.post([&current, request] { // once its main loop runs
                if (current)
                    current->take(*request);
            });
        if (QApplication::exec() == kFailed)
            return kFailed;
        current->end();
        next = current->next();
        current = nullptr;
    }
    return 0;
}

/// Background work that was given up is told while the program goes on.
void tellOfGivenUpWork(Desktop& desktop)
{
    whenWorkIsGivenUp([&desktop](const char* why) {
        desktop.mainQueue.post([&desktop, why] {
            const std::string text = std::string("Something could not be finished: ") + why + ".";
            desktop.log.line(text);
            desktop.alerts.runModal({"", text, {"OK"}});
        });
    });
}

int runProgram(int argc, char** argv)
{
    const ParsedArguments parsed = parseArguments(argc, argv);
    if (!parsed.arguments)
        return parsed.exitCode;
    const auto host = makeHost();
    const std::string dataFolder = host->dataFolder();
    auto instance = claim(*host, dataFolder);
    if (instance && !instance->isFirst())
        return handOver(*host, *instance, *parsed.arguments);

    Worker fonts; // a tenth of the time until the window is there
    fonts.start(readFonts, [](const char*) {});
    int qtArgumentCount = 1; // the rest has been read
    Application application(qtArgumentCount, argv);
    QApplication::setApplicationName(QStringLiteral("Pryvane"));
    QApplication::setDesktopFileName(QStringLiteral("com.torvell.Pryvane"));
    QApplication::setQuitOnLastWindowClosed(false);
    ui::speakUsersLanguage(application);
    if (qgetenv("PRYVANE_DIRECTION") == "rtl")
        QApplication::setLayoutDirection(Qt::RightToLeft);
    ui::applyTheme(application);
    // Drawn in six sizes, which the first window need not wait for.
    QTimer::singleShot(kIconAfter, &application,
                       [] { QApplication::setWindowIcon(ui::applicationIcon()); });
    auto desktop = Desktop::open(*host, dataFolder);
    if (!desktop)
        return fail(desktop.error().message);
    tellOfGivenUpWork(**desktop);
    return runSessions(**desktop, *parsed.arguments, instance ? &*instance : nullptr);
}

} // namespace

int main(int argc, char** argv)
{
    // A file that may not grow any further is then an error like a full disk.
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    endInWordsWhenExhausted("pryvane");
    try {
        return runProgram(argc, argv);
    } catch (const std::exception& error) {
        return sayExhausted(error);
    }
}
