// How soon the tools screen and its page "Who May Watch" show their first rows, and how long the
// window's event loop is held at a time until all is there, searched and folded out.
//   tools_screen_bench groups|facts VOLUME DATA-FOLDER   (made by bench/run)
#include "BenchedWindow.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

using namespace pryvane::bench;

constexpr double kLongestGap = 50; // ms

int rowsOf(const char* name)
{
    const auto* list = find<QAbstractItemView>(name);
    return list && list->isVisible() ? list->model()->rowCount() : 0;
}

void click(const char* name)
{
    if (auto* button = find<QAbstractButton>(name))
        button->click();
}

/// One thing after the other, each begun when the one before has come true.
struct Step {
    std::function<void()> act;
    std::function<bool()> done;
    const char* name;
    double took = 0;
    double longestGap = 0;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    const std::string what = argv[1], volume = argv[2], data = argv[3];
    argc = 1;
    QApplication application(argc, argv);
    BenchedWindow window(application, volume, data);

    const auto showTools = [] {
        find<QAbstractItemView>("navigation")
            ->setCurrentIndex(find<QAbstractItemView>("navigation")->model()->index(2, 0));
    };
    const auto measured = [] {
        const auto* again = find<QAbstractButton>("measure");
        return again && again->isVisible() && again->isEnabled();
    };
    const auto isRead = [] {
        const auto* again = find<QAbstractButton>("factsAgain");
        return again && again->isEnabled();
    };
    const auto filter = [](const char* text) {
        return [text] { find<QLineEdit>("factsFilter")->setText(QLatin1String(text)); };
    };
    const auto soon = [] { return true; };
    std::vector<Step> steps;
    if (what == "groups")
        steps = {{showTools, [] { return rowsOf("groups") > 0; }, "first group"},
                 {[] {}, measured, "all groups"}};
    else
        steps = {
            {showTools, measured, "tools"},
            {[] { click("showFacts"); }, [] { return rowsOf("permissions") > 0; }, "first rows"},
            {[] {}, isRead, "all lists"},
            {[] { click("factsDenied"); }, soon, "denied ones folded out"},
            {filter("1"), soon, "filter of one sign"},
            {filter("12"), soon, "filter of two signs"},
            {[] { click("tab-start-up"); }, [] { return rowsOf("startUp") > 0; }, "start-up items"},
            {filter(""), soon, "filter away"},
            {[] { click("factsOnlyThere"); }, soon, "only what is there"}};

    std::size_t at = 0;
    QElapsedTimer since, inStep;
    QTimer heartbeat;
    heartbeat.setTimerType(Qt::PreciseTimer);
    int beats = 0;
    QObject::connect(&heartbeat, &QTimer::timeout, [&] {
        Step& step = steps[at];
        step.longestGap =
            std::max(step.longestGap, static_cast<double>(since.nsecsElapsed()) / 1e6);
        since.start();
        // Three beats on, what the step began is painted, too.
        if (!step.done() || (step.took > 0 ? ++beats < 3 : false)) {
            return;
        }
        if (step.took == 0) {
            step.took = static_cast<double>(inStep.nsecsElapsed()) / 1e6;
            beats = 0;
            return;
        }
        if (++at == steps.size())
            return QApplication::exit();
        inStep.start();
        steps[at].act();
    });
    QTimer::singleShot(1000, [&] {
        since.start();
        inStep.start();
        heartbeat.start(1);
        steps[0].act();
    });
    QTimer::singleShot(120'000, [] { QApplication::exit(1); });
    const int ended = QApplication::exec();
    window.end();
    if (ended != 0) {
        std::fprintf(stderr, "waited in vain for: %s\n", steps[at].name);
        return 2;
    }
    double longest = 0;
    for (const Step& step : steps) {
        longest = std::max(longest, step.longestGap);
        std::printf("%s: %.1f ms, longest gap %.1f ms\n", step.name, step.took, step.longestGap);
    }
    return longest <= kLongestGap ? 0 : 1;
}
