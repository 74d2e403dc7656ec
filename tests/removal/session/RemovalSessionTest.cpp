#include "removal/session/RemovalSession.h"

#include "platform/Messages.h"
#include "removal/session/RemovalConsent.h"
#include "support/Fakes.h"

#include <gmock/gmock.h>

#include <new>

namespace pryvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kChrome = "/Users/al/Library/Application Support/Google/Chrome/x";
const std::string kFirefox = "/Users/al/Library/Application Support/Firefox/Profiles/x";

/// Answers, and lets things happen while its question stands.
struct Question final : Alerts {
    int answer = kAlertFirstButton;
    std::function<void()> meanwhile = [] {};
    std::vector<Alert> asked;
    int runModal(const Alert& alert) override
    {
        asked.push_back(alert);
        meanwhile();
        return answer;
    }
};

/// A screen's consent, with what it is about.
struct Asking {
    std::shared_ptr<const void> subject = std::make_shared<int>(1);
    std::vector<std::string> paths{kFirefox, kChrome};
    int carriedOn = 0;
    test::FakeWorkspace workspace;
    Question question;
    RemovalConsent consent{question,
                           workspace,
                           {"al", [this] { return subject; }, [this] { return paths; }, [] {},
                            [this] { ++carriedOn; }}};

    std::vector<std::string> names()
    {
        std::vector<std::string> names;
        for (const BrowserEntry& entry : consent.panel().browserListController())
            names.push_back(entry.NameBrowser);
        return names;
    }
};

TEST(RemovalConsent, GoesOnOnlyWithWhatWasAskedAboutAndNoBrowserInTheWay)
{
    const auto nothing = [](Asking&) {};
    const auto another = [](Asking& now) { now.subject = std::make_shared<int>(2); };
    const auto none = [](Asking& now) { now.subject.reset(); };
    const auto quit = [](Asking& now) { now.workspace.running.clear(); };
    const auto close = [](Asking& now) {
        now.consent.panel().closeWindowAction();
        now.workspace.running.clear();
    };
    const auto quitAndChange = [](Asking& now) {
        now.workspace.running.clear();
        now.subject = std::make_shared<int>(2);
    };
    using Step = std::function<void(Asking&)>;
    const struct {
        const char* what;
        int answer;
        std::vector<std::string> running;
        Step meanwhile, behindThePanel;
        bool goesOn, showsPanel, carriesOn, panelStays;
    } rows[] = {
        {"yes", 0, {}, nothing, nothing, true, false, false, false},
        {"no", 1, {"Firefox"}, nothing, nothing, false, false, false, false},
        {"of no concern", 0, {"Safari"}, nothing, nothing, true, false, false, false},
        {"another list while asked", 0, {}, another, nothing, false, false, false, false},
        {"none while asked", 0, {}, none, nothing, false, false, false, false},
        {"browser quit", 0, {"Firefox"}, nothing, quit, false, true, true, false},
        {"browser still runs", 0, {"Firefox"}, nothing, nothing, false, true, false, true},
        {"panel closed", 0, {"Firefox"}, nothing, close, false, true, false, false},
        {"another behind it", 0, {"Firefox"}, nothing, quitAndChange, false, true, false, false},
        {"over behind it", 0, {"Firefox"}, nothing, another, false, true, false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Asking now;
        now.workspace.running = row.running;
        RemovalConsent& consent = now.consent;
        now.question.answer = kAlertFirstButton + row.answer;
        now.question.meanwhile = [&] {
            EXPECT_TRUE(consent.isOpen());
            row.meanwhile(now);
        };
        EXPECT_EQ(consent.forceQuitBrowsers(), row.goesOn);
        const std::vector<Alert>& asked = now.question.asked;
        ASSERT_EQ(asked.size(), 1U);
        EXPECT_EQ(asked[0].messageText, "Alert");
        EXPECT_EQ(asked[0].informativeText, "Are you sure you want to delete selected threats?");
        EXPECT_EQ(consent.isOpen(), row.showsPanel);
        row.behindThePanel(now);
        consent.panel().retryCleaningAction();
        EXPECT_EQ(now.carriedOn, row.carriesOn ? 1 : 0);
        EXPECT_EQ(consent.panel().isPresented(), row.panelStays);
        consent.panel().retryCleaningAction(); // most panels are gone
        EXPECT_EQ(now.carriedOn, row.carriesOn ? 1 : 0);
    }
}

TEST(RemovalConsent, ThePanelFollowsTheBrowsersThatRun)
{
    Asking now;
    now.workspace.running = {"Safari", "Firefox"};
    RemovalConsent& consent = now.consent;
    EXPECT_FALSE(consent.forceQuitBrowsers());
    EXPECT_THAT(now.names(), ElementsAre("Firefox"));
    now.workspace.running = {"Firefox", "Google Chrome"};
    consent.panel().retryCleaningAction();
    EXPECT_THAT(consent.panel().availbleApp(), ElementsAre("Firefox", "Google Chrome"));
    EXPECT_THAT(now.names(), ElementsAre("Chrome", "Firefox"));
    now.paths = {kChrome}; // unticked behind it
    consent.panel().retryCleaningAction();
    EXPECT_THAT(now.names(), ElementsAre("Chrome"));
    EXPECT_EQ(now.carriedOn, 0);
}

RemovalResult removedOne()
{
    RemovalResult result;
    result.outcome = RemovalOutcome::Removed;
    return result;
}

class RemovalSessionTest : public testing::Test {
protected:
    /// Looks until it is let go or stopped, and makes a number.
    void plan(int number)
    {
        session->plan(
            [this, number](const StopFlag& stop) {
                ++looking;
                waitUntilOpen(stop);
                return number;
            },
            planned);
    }
    /// Removes the first of two items, then waits to be let go or stopped.
    void remove()
    {
        const auto removing = [this](const StopFlag& stop, const RemovalResults& tell) {
            ++removals;
            tell(0, removedOne());
            waitUntilOpen(stop);
            RemovalResult stopped;
            stopped.obstacle = RemovalObstacle::Stopped;
            tell(1, stop.requested() ? stopped : removedOne());
        };
        session->remove(2, removing, ended);
    }
    void waitUntilOpen(const StopFlag& stop) const
    {
        while (!open && !stop.requested())
            std::this_thread::yield();
    }
    void settle()
    {
        ASSERT_TRUE(
            queue.runUntil([&] { return !session->isPlanning() && !session->isRemoving(); }));
        queue.drain();
    }
    /// p: a plan, w: waits until it is looked for one, o: lets work go on, r: a removal, s: a stop;
    /// P and R run out of memory.
    void ask(char step, int& plans)
    {
        if (step == 'p')
            plan(++plans);
        else if (step == 'P')
            session->plan([](const StopFlag&) -> int { throw std::bad_alloc(); }, planned);
        else if (step == 'r')
            remove();
        else if (step == 'R')
            session->remove(
                2,
                [](const StopFlag&, const RemovalResults& tell) {
                    tell(0, removedOne());
                    throw std::bad_alloc();
                },
                ended);
        else if (step == 's')
            session->stop();
        open = open || step == 'o';
        while (step == 'w' && looking == 0)
            std::this_thread::yield();
        EXPECT_TRUE(step != 'r' || session->isRemoving());
    }

    std::atomic<bool> open{false};
    std::atomic<int> looking{0}, removals{0};
    std::vector<std::string> told;
    const std::function<void(int)> planned = [this](int number) {
        told.push_back("plan " + std::to_string(number));
    };
    const RemovalSession::Ended ended = [this](const std::vector<RemovalResult>& results) {
        told.emplace_back("removal");
        for (const RemovalResult& result : results)
            told.back() +=
                result.outcome == RemovalOutcome::Removed ? " removed" : " " + result.reason();
    };
    int progressed = 0;
    test::ManualMainQueue queue;
    std::unique_ptr<RemovalSession> session =
        std::make_unique<RemovalSession>(queue, [this] { ++progressed; });
};

TEST_F(RemovalSessionTest, DoesOneThingAndTellsOfWhatWasAskedForLast)
{
    const std::string stopped = "removal removed " + obstacleText(RemovalObstacle::Stopped);
    const std::string givenUp = "removal removed " + obstacleText(RemovalObstacle::GivenUp,
                                                                  exhaustionText(std::bad_alloc()));
    const struct {
        const char* what;
        std::string_view asked; ///< steps of ask()
        std::string told;
    } rows[] = {
        {"a plan", "p", "plan 1"},
        {"asked anew before it is there", "ppp", "plan 3"},
        {"a removal in its place", "pr", "removal removed removed"},
        {"nothing else beside a removal", "rpr", "removal removed removed"},
        {"a stopped plan holds nothing", "pws", "plan 0"},
        {"a stop once the plan is made, and not yet told", "opws", "plan 0"},
        {"a stopped removal", "rs", stopped},
        {"a removal is stopped before it has begun", "prs", stopped},
        {"a plan given up", "P", "plan 0"},
        {"a removal given up halfway", "R", givenUp},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        told.clear();
        open = false;
        looking = removals = 0;
        int plans = 0;
        for (const char step : row.asked) {
            ask(step, plans);
            EXPECT_FALSE(session->isPlanning() && session->isRemoving());
        }
        open = true;
        settle();
        EXPECT_THAT(told, ElementsAre(row.told));
        EXPECT_LE(removals, 1);
    }
    remove();
    settle();
    EXPECT_EQ(session->progress().done, 2U);
    EXPECT_EQ(session->progress().total, 2U);
    EXPECT_GT(progressed, 0);
}

TEST_F(RemovalSessionTest, EndsItsThreadAndTellsNothingMore)
{
    plan(1);
    session = std::make_unique<RemovalSession>(queue);
    remove();
    plan(1);
    session.reset();
    queue.drain();
    EXPECT_THAT(told, IsEmpty());

    // What is told may end it.
    open = true;
    session = std::make_unique<RemovalSession>(queue);
    session->remove(
        0, [](const StopFlag&, const RemovalResults&) {}, [this](const auto&) { session.reset(); });
    EXPECT_TRUE(queue.runUntil([&] { return !session; }));
}

} // namespace
} // namespace pryvane
