#include "core/Signal.h"

#include <gtest/gtest.h>

namespace pryvane {
namespace {

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
