#pragma once

#include "cli/CommandLine.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace pryvane::test {

/// What a command came to.
struct Outcome {
    int code;
    std::string out, err;
};

/// An outcome with that code and, among its words on one of the streams, these.
[[nodiscard]] inline auto says(int code, const std::string& words)
{
    return testing::AllOf(testing::Field("code", &Outcome::code, code),
                          testing::Field("out", &Outcome::out, testing::HasSubstr(words)));
}
[[nodiscard]] inline auto remarks(int code, const std::string& words)
{
    return testing::AllOf(testing::Field("code", &Outcome::code, code),
                          testing::Field("err", &Outcome::err, testing::HasSubstr(words)));
}
/// An error with these words, and nothing that could be taken for an answer.
[[nodiscard]] inline auto refuses(const std::string& words)
{
    return testing::AllOf(remarks(2, words), testing::Field("out", &Outcome::out, ""));
}

/// Who sits in front of a command.
struct Seat {
    std::string input = {};
    bool terminal = false;
    StopFlag& interrupted;
};

/// What the work writes to a console, and the code it returns.
[[nodiscard]] inline Outcome onConsole(const Seat& seat,
                                       const std::function<int(const cli::Console&)>& work)
{
    std::istringstream in(seat.input);
    std::ostringstream out, err;
    const cli::Console console{.in = in,
                               .out = out,
                               .err = err,
                               .inIsTerminal = seat.terminal,
                               .outIsTerminal = false,
                               .errIsTerminal = seat.terminal,
                               .color = false,
                               .interrupted = seat.interrupted};
    const int code = work(console);
    return {code, out.str(), err.str()};
}

/// Makes an image of a disk with an HFS+ volume that holds the tree; false where nothing here can.
[[nodiscard]] inline bool makeImage(const std::string& tree, const std::string& image)
{
    const std::string command = "xorriso -as mkisofs -quiet -hfsplus -o " + image + " " + tree;
    return std::system((command + " >/dev/null 2>&1").c_str()) == 0;
}

/// Runs commands inside this process, with a data folder and a volume of their own.
class CliFixture : public testing::Test {
protected:
    using Outcome = test::Outcome;

    CliFixture()
    {
        setenv("PRYVANE_DATA_DIR", data.path().c_str(), 1);
        volume.folder("/Users/alice/Library");
    }
    ~CliFixture() override { unsetenv("PRYVANE_DATA_DIR"); }

    Outcome run(std::vector<std::string> arguments)
    {
        return with([&](const cli::Console& console) {
            return cli::CommandLine().run(std::move(arguments), console);
        });
    }

    /// The command on this fixture's volume.
    Outcome onVolume(std::vector<std::string> command, const std::vector<std::string>& more = {})
    {
        command.insert(command.end(), {"--volume", volume.path()});
        command.insert(command.end(), more.begin(), more.end());
        return run(std::move(command));
    }
    nlohmann::json jsonOnVolume(const std::vector<std::string>& command,
                                std::vector<std::string> more = {})
    {
        more.insert(more.end(), {"--format", "json"});
        return nlohmann::json::parse(onVolume(command, more).out);
    }

    Outcome with(const std::function<int(const cli::Console&)>& work)
    {
        return onConsole({input, terminal, interrupted}, work);
    }

    Outcome scan(const std::vector<std::string>& more = {})
    {
        return onVolume({"scan", "--user", "alice"}, more);
    }

    std::vector<std::string> reportIds()
    {
        std::vector<std::string> ids;
        std::istringstream lines(run({"report", "list"}).out);
        for (std::string line; std::getline(lines, line);)
            ids.push_back(line.substr(0, line.find(' ')));
        return ids;
    }

    TemporaryFolder data, volume;
    std::string input;
    bool terminal = false;
    StopFlag interrupted;
};

} // namespace pryvane::test
