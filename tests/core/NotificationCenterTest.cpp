#include "core/NotificationCenter.h"

#include "core/Signal.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace pryvane {
namespace {

TEST(NotificationCenter, DeliversInOrderUntilTheObservationEnds)
{
    NotificationCenter center;
    std::vector<std::string> seen;
    auto first = center.observe(NotificationName::ScanStatusChange, [&](const Notification& note) {
        seen.push_back(std::get<bool>(note.object) ? "first yes" : "first no");
    });
    {
        auto second = center.observe(NotificationName::ScanStatusChange,
                                     [&](const Notification&) { seen.push_back("second"); });
        center.post(NotificationName::ScanStatusChange, true);
        center.post(NotificationName::StopScan);
    }
    center.post(NotificationName::ScanStatusChange, false);
    EXPECT_EQ(seen, (std::vector<std::string>{"first yes", "second", "first no"}));
    first.end();
    EXPECT_FALSE(center.hasObservers(NotificationName::ScanStatusChange));
}

TEST(NotificationCenter, HandlersMayObservePostAndEndObservations)
{
    NotificationCenter center;
    int late = 0;
    NotificationCenter::Observation self, added;
    self = center.observe(NotificationName::UpdateThreat, [&](const Notification&) {
        self.end();
        added =
            center.observe(NotificationName::UpdateThreat, [&](const Notification&) { ++late; });
        center.post(NotificationName::UpdateThreat);
    });
    center.post(NotificationName::UpdateThreat);
    center.post(NotificationName::UpdateThreat);
    EXPECT_EQ(late, 2);
}

TEST(NotificationCenter, ThreadsPostWhileOthersComeAndGo)
{
    NotificationCenter center;
    std::atomic<int> delivered{0};
    const auto keep = center.observe(NotificationName::ScanningProgressURL,
                                     [&](const Notification&) { ++delivered; });
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([&] {
            for (int n = 0; n < 2000; ++n) {
                center.post(NotificationName::ScanningProgressURL, std::string_view("/x"));
                auto passing = center.observe(NotificationName::ScanningProgressURL,
                                              [](const Notification&) {});
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(delivered, 6000);
}

TEST(SignalTest, ListenersComeAndGoWhileTheyAreTold)
{
    Signal changed;
    std::string told;
    Signal::Listening second, late;
    const auto first = changed.listen([&] {
        told += "1";
        second.reset();
        late = changed.listen([&] { told += "L"; });
    });
    second = changed.listen([&] { told += "2"; });
    Signal::Listening own;
    own = changed.listen([&] {
        told += "3";
        own.reset();
    });
    changed();
    EXPECT_EQ(told, "13"); // the second went before its turn, the late one came after
    late.reset();
    second = changed.listen([&] { told += "4"; });
    changed();
    EXPECT_EQ(told, "131"); // "4" went in the same way
}

TEST(SignalTest, NobodyIsToldOnceTheOwnerHasGone)
{
    auto owner = std::make_unique<Signal>();
    int told = 0;
    const auto first = owner->listen([&] {
        ++told;
        owner.reset();
    });
    const auto second = owner->listen([&] { ++told; });
    (*owner)();
    EXPECT_EQ(told, 1);
}

} // namespace
} // namespace pryvane
