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

/// Runs commands inside this process, with a data folder and a volume of their own.
class CliFixture : public testing::Test {
protected:
    struct Outcome {
        int code;
        std::string out, err;
    };

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

    /// What the work writes to a console, and the code it returns.
    Outcome with(const std::function<int(const cli::Console&)>& work)
    {
        std::istringstream in(input);
        std::ostringstream out, err;
        const cli::Console console{.in = in,
                                   .out = out,
                                   .err = err,
                                   .inIsTerminal = terminal,
                                   .outIsTerminal = false,
                                   .errIsTerminal = terminal,
                                   .color = false,
                                   .interrupted = interrupted};
        const int code = work(console);
        return {code, out.str(), err.str()};
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
