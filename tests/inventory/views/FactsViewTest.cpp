// The page "Who May Watch" with its widgets: each state it can be in, and what is done with rows.
#include "inventory/views/FactsView.h"

#include "hosts/qt/QtMainLoop.h"
#include "inventory/FactsController.h"
#include "inventory/facts/FactFixtures.h"
#include "support/ContextMenu.h"
#include "support/Volumes.h"
#include "volume/VolumeFileSystem.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gmock/gmock.h>

#include <sys/stat.h>

namespace pryvane::test {

namespace {

using testing::HasSubstr;

const std::string kTcc = "/Library/Application Support/com.apple.TCC/TCC.db";

class FactsViewTest : public testing::Test {
protected:
    FactsViewTest() { volume.folder("/Users/alice/Library"); }

    /// Shows the page and waits until all of it is read.
    void show()
    {
        disk = volumeAt(volume, NameMatching::AsOnMac);
        controller = std::make_unique<FactsController>(*disk, queue);
        view = std::make_unique<FactsView>(*controller);
        QObject::connect(view.get(), &FactsView::revealWanted, view.get(),
                         [this](const FileURL& url) { revealed.push_back(url.absolutePath()); });
        view->resize(720, 560);
        view->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(view.get()));
        controller->viewWillAppear();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !controller->isGathering(); }, 30'000));
        QTest::qWait(20);
    }
    template <typename Widget>
    Widget* find(const char* name)
    {
        auto* widget = view->findChild<Widget*>(name);
        EXPECT_TRUE(widget) << name;
        return widget;
    }
    QAbstractItemView* table(const char* name) { return find<QAbstractItemView>(name); }
    /// The sentence in place of a list that is empty.
    std::string sentence(const char* of)
    {
        EXPECT_FALSE(table(of)->isVisible());
        std::string text;
        for (const QLabel* label : table(of)->parentWidget()->findChildren<QLabel*>())
            if (label->isVisible() && !label->text().isEmpty())
                text += label->text().toStdString();
        return text;
    }
    std::string troubles(const char* of)
    {
        const auto* label =
            table(of)->parentWidget()->parentWidget()->findChild<QLabel*>("unreadSources");
        return label && label->isVisible() ? label->text().toStdString() : "";
    }
    void open(const char* tab)
    {
        find<QPushButton>(tab)->click();
        QTest::qWait(20);
    }

    TemporaryFolder volume;
    QtMainQueue queue;
    std::unique_ptr<VolumeFileSystem> disk;
    std::unique_ptr<FactsController> controller;
    std::unique_ptr<FactsView> view;
    std::vector<std::string> revealed;
};

/// "Nothing" is said only of places that were read.
TEST_F(FactsViewTest, EmptyNotUnderstoodAndUnreadableAreSaidApart)
{
    show();
    EXPECT_THAT(sentence("permissions"), HasSubstr("The places were read, and nothing of this"));
    EXPECT_EQ(troubles("permissions"), "");
    open("tab-start-up");
    EXPECT_THAT(sentence("startUp"), HasSubstr("The places were read, and nothing of this"));

    volume.file(kTcc, "no database");
    volume.folder("/Users/alice/Library/Application Support/com.apple.TCC");
    mkfifo(volume.hostPath("/Users/alice" + kTcc).c_str(), 0600);
    for (const char* broken : {"a", "b", "c"})
        volume.file("/Library/LaunchAgents/" + std::string(broken) + ".plist", "<plist>");
    show();
    EXPECT_THAT(sentence("permissions"),
                HasSubstr("Nothing could be listed: not all places could be read."));
    EXPECT_THAT(
        troubles("permissions"),
        testing::AllOf(HasSubstr(kTcc + ": not understood, "),
                       HasSubstr("/Users/alice" + kTcc + ": not read, not a regular file")));
    open("tab-start-up");
    EXPECT_THAT(troubles("startUp"), HasSubstr("and 1 more places that could not be read"));
}

TEST_F(FactsViewTest, RowsAreFilteredCopiedAndRevealed)
{
    volume.file(kTcc, permissionsOf("('kTCCServiceListenEvent','/opt/.rec/rec\x1b[31m',1,2,2),"
                                    "('kTCCServiceCamera','/opt/gone',1,2,2)"));
    volume.file("/Users/alice" + kTcc, permissionsOf("('kTCCServicePhotos','/opt/hers',1,2,2)"));
    volume.file("/opt/.rec/rec\x1b[31m");
    show();
    auto* const list = table("permissions");
    find<QComboBox>("factsWhose")->setCurrentText("alice");
    EXPECT_EQ(list->model()->rowCount(), 2) << "her row and its heading";
    find<QComboBox>("factsWhose")->setCurrentIndex(0);
    QTest::keyClicks(find<QLineEdit>("factsFilter"), "hidden folder no such");
    EXPECT_THAT(sentence("permissions"), HasSubstr("Nothing fits what was chosen above."));
    find<QLineEdit>("factsFilter")->clear();

    list->setCurrentIndex(list->model()->index(1, 1));
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_THAT(revealed, testing::ElementsAre("/opt/.rec/rec\x1b[31m")) << "as bytes";
    chooseFromMenu(list, "Copy All of It");
    EXPECT_THAT(QGuiApplication::clipboard()->text().toStdString(),
                testing::AllOf(HasSubstr("rec\\x1b[31m"), HasSubstr("in a hidden folder"),
                               HasSubstr(kTcc)));
}

/// Each form is offered, and what is written is the whole list, not what the filter leaves.
TEST_F(FactsViewTest, ExportsThroughTheDialog)
{
    volume.file(kTcc, permissionsOf("('kTCCServiceCamera','/opt/one',1,2,2),"
                                    "('kTCCServiceCamera','/opt/two',1,0,2)"));
    show();
    find<QLineEdit>("factsFilter")->setText("one");
    const TemporaryFolder folder;
    for (const auto& [filter, file, holds] :
         {std::tuple{"Text (*.txt)", "permissions.txt", "    two\n      Decision: denied"},
          std::tuple{"JSON (*.json)", "permissions.json", "\"decision\": \"denied\""},
          std::tuple{"CSV (*.csv)", "permissions.csv", "Listens or watches,two,denied,"}}) {
        QTimer::singleShot(0, view.get(), [&, chosen = filter] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            dialog->setDirectory(QString::fromStdString(folder.path()));
            dialog->selectNameFilter(chosen);
            Q_EMIT dialog->filterSelected(chosen);
            static_cast<QDialog*>(dialog)->accept();
        });
        find<QPushButton>("factsExport")->click();
        ASSERT_TRUE(QTest::qWaitFor([&, name = file] { return folder.contains(name); }, 30'000));
        EXPECT_THAT(contentOf(folder.hostPath(file)),
                    testing::AllOf(HasSubstr(holds), HasSubstr("one")));
    }
}

} // namespace

} // namespace pryvane::test
