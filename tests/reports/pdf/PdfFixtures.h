#pragma once

#include "platform/Machine.h"
#include "reports/pdf/PDFGenerate.h"
#include "support/ReportFixtures.h"

#include <optional>
#include <string>
#include <vector>

namespace pryvane::test {

class FakeMachine final : public MachineInfo {
public:
    std::optional<std::string> name = "Alice's Mac";
    std::optional<std::string> serial = "C02XK1ZHJG5H";
    std::optional<std::string> computerName() override { return name; }
    std::string loginName() override { return "alice"; }
    std::string machineModel() override { return "MacBookPro18,3"; }
    std::optional<std::string> serialNumber() override { return serial; }
};

[[nodiscard]] inline PDFFacts factsIn(const std::string& cachesFolder)
{
    return {.applicationName = "Pryvane",
            .shortVersion = "1.2",
            .buildVersion = "34",
            .cachesFolder = cachesFolder};
}

/// What a command line prints; fails the test where it does not end well.
[[nodiscard]] std::string outputOf(const std::string& command);

/// The text of a document in reading order, without what breaks it into lines and pages.
[[nodiscard]] std::string joinedTextOf(const std::string& pdf);

struct Word {
    int page;
    double left, top, right, bottom;
    std::string text;
};
[[nodiscard]] std::vector<Word> wordsOf(const std::string& pdf);

} // namespace pryvane::test
