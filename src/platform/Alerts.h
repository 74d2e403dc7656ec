#pragma once

#include <string>
#include <vector>

namespace pryvane {

/// A question or message for the user. All texts are plain text.
struct Alert {
    std::string messageText;
    std::string informativeText;
    std::vector<std::string> buttons; ///< from the first, which the Return key chooses
};

/// The response that stands for an alert's first button; the others follow it.
inline constexpr int kAlertFirstButton = 1000;

/// Shows modal alerts. Main thread only.
class Alerts {
public:
    virtual ~Alerts() = default;

    /// Waits for the answer: kAlertFirstButton + the index of the chosen button.
    virtual int runModal(const Alert& alert) = 0;
};

} // namespace pryvane
