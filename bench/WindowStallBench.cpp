// How long the window's event loop is held at a time during a deep scan of 300,000 entries with
// 10,000 findings, by a heartbeat in the loop of the real program.
//   window_stall_bench VOLUME DATA-FOLDER   (made by bench/run window)
#include "BenchedWindow.h"
#include "Medians.h"

#include <QAbstractButton>
#include <QElapsedTimer>
#include <QLabel>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <vector>

namespace {

using namespace pryvane::bench;

constexpr double kAtMost = 50; // ms

QAbstractButton* button(const char* name)
{
    return find<QAbstractButton>(name);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    const std::string volume = argv[1], data = argv[2];
    argc = 1;
    QApplication application(argc, argv);
    BenchedWindow window(application, volume, data);

    std::vector<double> gaps;
    QElapsedTimer since;
    QTimer heartbeat;
    heartbeat.setTimerType(Qt::PreciseTimer);
    QObject::connect(&heartbeat, &QTimer::timeout, [&] {
        gaps.push_back(static_cast<double>(since.nsecsElapsed()) / 1e6);
        since.start();
        const QAbstractButton* report = button("viewReport"); // there once the scan is over
        if (report && report->isVisible())
            QTimer::singleShot(500, [] { QApplication::exit(); }); // with what follows the end
    });
    QTimer::singleShot(1000, [&] {
        button("btnDeepScan")->click();
        button("scanSpyware")->click();
        since.start();
        heartbeat.start(1);
    });
    QApplication::exec();
    const auto* label = find<QLabel>("verdict");
    const QString verdict = label ? label->text() : QString();
    window.end();
    std::sort(gaps.begin(), gaps.end());
    const auto late =
        std::count_if(gaps.begin(), gaps.end(), [](double gap) { return gap > kAtMost; });
    std::printf("%s %zu heartbeats in %.1f s, longest gap %.1f ms, 99.9 %% within %.1f ms, %td "
                "over 50 ms\n",
                qPrintable(verdict), gaps.size(),
                std::accumulate(gaps.begin(), gaps.end(), 0.0) / 1000, gaps.back(),
                gaps[gaps.size() * 999 / 1000], late);
    return pryvane::bench::row("a deep scan in the window, longest hold of its loop", gaps.back(),
                               kAtMost, " ms")
               ? 0
               : 1;
}
