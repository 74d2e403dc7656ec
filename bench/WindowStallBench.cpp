// How long the window's event loop is held at a time during a deep scan of 300,000 entries with
// 10,000 findings, by a heartbeat in the loop of the real program, and afterwards by what somebody
// does to the list of them; QT_SCALE_FACTOR is told in what it prints.
//   window_stall_bench VOLUME DATA-FOLDER   (made by bench/run window)
#include "BenchedWindow.h"
#include "Medians.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <numeric>
#include <utility>
#include <vector>

namespace {

using namespace pryvane::bench;

constexpr double kAtMost = 50; // ms

QAbstractButton* button(const char* name)
{
    return find<QAbstractButton>(name);
}

/// The longest hold of all that is done to the list, each with its painting.
double longestByHand()
{
    auto* const filter = find<QLineEdit>("filter");
    auto* const table = find<QTableView>("findings");
    auto* const groups = table->parentWidget()->parentWidget()->findChild<QComboBox*>();
    const std::pair<const char*, std::function<void()>> steps[] = {
        {"a letter in the filter", [&] { filter->setText(QStringLiteral("f")); }},
        {"a second one", [&] { filter->setText(QStringLiteral("fi")); }},
        {"one that nothing has", [&] { filter->setText(QStringLiteral("fi?")); }},
        {"the filter cleared", [&] { filter->clear(); }},
        {"sorted by threat", [&] { table->horizontalHeader()->setSortIndicator(2, {}); }},
        {"sorted by evidence", [&] { table->horizontalHeader()->setSortIndicator(3, {}); }},
        {"sorted by name", [&] { table->horizontalHeader()->setSortIndicator(1, {}); }},
        {"not sorted", [&] { table->horizontalHeader()->setSortIndicator(-1, {}); }},
        {"grouped by threat", [&] { groups->setCurrentIndex(1); }},
        {"grouped by folder", [&] { groups->setCurrentIndex(2); }},
        {"not grouped", [&] { groups->setCurrentIndex(0); }},
        {"all unticked", [&] { button("selectAll")->click(); }},
        {"all ticked", [&] { button("selectAll")->click(); }},
        {"to the last row", [&] { table->scrollToBottom(); }},
        {"to the first row", [&] { table->scrollToTop(); }},
    };
    double longest = 0;
    for (const auto& [what, act] : steps) {
        QElapsedTimer since;
        since.start();
        act();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        const double held = static_cast<double>(since.nsecsElapsed()) / 1e6;
        std::printf("  %-22s %6.1f ms\n", what, held);
        longest = std::max(longest, held);
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }
    return longest;
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
    const int found = find<QTableView>("findings")->model()->rowCount();
    if (found < 10'000) {
        std::fprintf(stderr, "window_stall_bench: %d findings, not 10,000\n", found);
        return 2;
    }
    const double byHand = longestByHand();
    window.end();
    std::sort(gaps.begin(), gaps.end());
    const auto late =
        std::count_if(gaps.begin(), gaps.end(), [](double gap) { return gap > kAtMost; });
    std::printf("%d findings, %zu heartbeats in %.1f s, longest gap %.1f ms, 99.9 %% within %.1f "
                "ms, %td over 50 ms\n",
                found, gaps.size(), std::accumulate(gaps.begin(), gaps.end(), 0.0) / 1000,
                gaps.back(), gaps[gaps.size() * 999 / 1000], late);
    const std::string scale =
        qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")).toStdString() + "x";
    const bool scanned = row("a deep scan in the window at " + scale + ", longest hold of its loop",
                             gaps.back(), kAtMost, " ms");
    const bool handled = row("10,000 findings filtered, sorted, grouped, ticked at " + scale,
                             byHand, kAtMost, " ms");
    return scanned && handled ? 0 : 1;
}
