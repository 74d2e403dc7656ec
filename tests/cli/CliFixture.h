#pragma once

#include "cli/CommandLine.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
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

    Outcome with(const std::function<int(const cli::Console&)>& work)
    {
        return onConsole({input, terminal, interrupted}, work);
    }

    Outcome scan(std::vector<std::string> more = {})
    {
        std::vector<std::string> arguments{"scan", "--volume", volume.path(), "--user", "alice"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run(arguments);
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
