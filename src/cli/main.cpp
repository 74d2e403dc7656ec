#include "cli/CommandLine.h"
#include "core/Exhaustion.h"
#include "removal/disk/ConfinedWork.h"

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string_view>
#include <unistd.h>

namespace {

pryvane::StopFlag g_interrupted;

/// The first Ctrl+C asks for an orderly end, the second one ends at once.
extern "C" void onInterrupt(int)
{
    if (g_interrupted.requested())
        _exit(pryvane::cli::kInterrupted);
    g_interrupted.request();
}

int runProgram(int argc, char** argv)
{
    // Scripts ask for the version by itself; no parser need be built for that.
    if (argc == 2 && std::string_view(argv[1]) == "--version") {
        // The program ends behind it, so no thread need be made for trying this out.
        static_cast<void>(pryvane::kernelConfinementText(pryvane::TriedOn::CallingThread));
        std::cout << pryvane::cli::versionText() << std::endl;
        return std::cout ? pryvane::cli::kDone : pryvane::cli::kFailed;
    }
    struct sigaction action {};
    action.sa_handler = onInterrupt;
    sigaction(SIGINT, &action, nullptr);

    const char* noColor = std::getenv("NO_COLOR");
    const bool outIsTerminal = isatty(STDOUT_FILENO) != 0;
    const pryvane::cli::Console console{
        .in = std::cin,
        .out = std::cout,
        .err = std::cerr,
        .inIsTerminal = isatty(STDIN_FILENO) != 0,
        .outIsTerminal = outIsTerminal,
        .errIsTerminal = isatty(STDERR_FILENO) != 0,
        .color = outIsTerminal && !(noColor && *noColor),
        .interrupted = g_interrupted,
    };
    std::ios::sync_with_stdio(false);
    pryvane::cli::CommandLine line;
    const int code = line.run({argv + 1, argv + argc}, console);
    if (!std::cout.flush()) {
        std::cerr << "pryvane-cli: the output could not be written; is the disk full?\n";
        return pryvane::cli::kFailed;
    }
    return code;
}

} // namespace

int main(int argc, char** argv)
{
    // A file that may not grow any further is then an error like a full disk.
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    pryvane::endInWordsWhenExhausted("pryvane-cli");
    try {
        return runProgram(argc, argv);
    } catch (const std::exception& error) {
        return pryvane::sayExhausted(error);
    }
}
