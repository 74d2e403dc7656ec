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

/// A screen's consent, with what it is about.
struct Asking {
    std::shared_ptr<const void> subject = std::make_shared<int>(1);
    std::vector<std::string> paths{kFirefox, kChrome};
    int carriedOn = 0;
    test::FakeWorkspace workspace;
    RemovalConsent* consent = nullptr;

    std::vector<std::string> names() const
    {
        std::vector<std::string> names;
        for (const BrowserEntry& entry : consent->panel().browserListController())
            names.push_back(entry.NameBrowser);
        return names;
    }
};

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

TEST(RemovalConsent, GoesOnOnlyWithWhatWasAskedAboutAndNoBrowserInTheWay)
{
    const auto nothing = [](Asking&) {};
    const auto another = [](Asking& now) { now.subject = std::make_shared<int>(2); };
    const auto none = [](Asking& now) { now.subject.reset(); };
    const auto quit = [](Asking& now) { now.workspace.running.clear(); };
    const auto close = [](Asking& now) {
        now.consent->panel().closeWindowAction();
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
        Question question;
        question.answer = kAlertFirstButton + row.answer;
        RemovalConsent consent(question, now.workspace,
                               {"al", [&] { return now.subject; }, [&] { return now.paths; }, [] {},
                                [&] { ++now.carriedOn; }});
        now.consent = &consent;
        question.meanwhile = [&] {
            EXPECT_TRUE(consent.isOpen());
            row.meanwhile(now);
        };
        EXPECT_EQ(consent.forceQuitBrowsers(), row.goesOn);
        ASSERT_EQ(question.asked.size(), 1U);
        EXPECT_EQ(question.asked[0].messageText, "Alert");
        EXPECT_EQ(question.asked[0].informativeText,
                  "Are you sure you want to delete selected threats?");
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
    Question question;
    RemovalConsent consent(question, now.workspace,
                           {"al", [&] { return now.subject; }, [&] { return now.paths; }, [] {},
                            [&] { ++now.carriedOn; }});
    now.consent = &consent;
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

class RemovalSessionTest : public testing::Test {
protected:
    /// A look that waits to be let go or stopped, and makes a number.
    auto look(int number)
    {
        return [this, number](const StopFlag& stop) {
            ++looking;
            while (!open && !stop.requested())
                std::this_thread::yield();
            return number;
        };
    }
    auto planned()
    {
        return [this](int number) { told.push_back("plan " + std::to_string(number)); };
    }
    /// Removes the first of two items, then waits to be let go or stopped.
    RemovalSession::Removing removing()
    {
        return [this](const StopFlag& stop, const RemovalResults& tell) {
            ++removals;
            RemovalResult result;
            result.outcome = RemovalOutcome::Removed;
            tell(0, result);
            while (!open && !stop.requested())
                std::this_thread::yield();
            if (stop.requested()) {
                result = {};
                result.obstacle = RemovalObstacle::Stopped;
            }
            tell(1, result);
        };
    }
    RemovalSession::Ended ended()
    {
        return [this](const std::vector<RemovalResult>& results) {
            std::string text = "removal";
            for (const RemovalResult& result : results)
                text +=
                    result.outcome == RemovalOutcome::Removed ? " removed" : " " + result.reason();
            told.push_back(text);
        };
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
        const auto looksInVain = [](const StopFlag&) -> int { throw std::bad_alloc(); };
        const auto removesOne = [](const StopFlag&, const RemovalResults& tell) {
            RemovalResult result;
            result.outcome = RemovalOutcome::Removed;
            tell(0, result);
            throw std::bad_alloc();
        };
        switch (step) {
        case 'p':
            return session->plan(look(++plans), planned());
        case 'P':
            return session->plan(looksInVain, planned());
        case 'r':
            session->remove(2, removing(), ended());
            EXPECT_TRUE(session->isRemoving());
            return;
        case 'R':
            return session->remove(2, removesOne, ended());
        case 's':
            return session->stop();
        case 'o':
            open = true;
            return;
        default:
            while (looking == 0)
                std::this_thread::yield();
        }
    }

    std::atomic<bool> open{false};
    std::atomic<int> looking{0}, removals{0};
    std::vector<std::string> told;
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
    session->remove(2, removing(), ended());
    settle();
    EXPECT_EQ(session->progress().done, 2U);
    EXPECT_EQ(session->progress().total, 2U);
    EXPECT_GT(progressed, 0);
}

TEST_F(RemovalSessionTest, EndsItsThreadAndTellsNothingMore)
{
    session->plan(look(1), planned());
    session = std::make_unique<RemovalSession>(queue);
    session->remove(2, removing(), ended());
    session->plan(look(1), planned());
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
