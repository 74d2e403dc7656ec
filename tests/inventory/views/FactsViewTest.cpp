// The page "Who May Watch" with its widgets: each state it can be in, and what is done with rows.
#include "inventory/views/FactsView.h"

#include "hosts/qt/QtMainLoop.h"
#include "inventory/FactsController.h"
#include "inventory/facts/FactFixtures.h"
#include "support/Volumes.h"
#include "volume/VolumeFileSystem.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
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

    void permissions(const std::string& path, const std::string& rows) const
    {
        volume.file(path, permissionsOf(rows));
    }
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
    /// The names that are listed, without headings.
    std::vector<std::string> names(const char* of)
    {
        std::vector<std::string> list;
        const auto* model = table(of)->model();
        for (int row = 0; row < model->rowCount(); ++row)
            if (!model->index(row, 2).data().toString().isEmpty())
                list.push_back(model->index(row, 1).data().toString().toStdString());
        return list;
    }
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
    permissions(kTcc, "VALUES ('kTCCServiceListenEvent','/opt/.rec/rec\x1b[31m',1,2,2),"
                      "('kTCCServiceCamera','/opt/denied',1,0,2),"
                      "('kTCCServiceCamera','/opt/gone',1,2,2)");
    permissions("/Users/alice" + kTcc, "VALUES ('kTCCServicePhotos','/opt/hers',1,2,2)");
    volume.file("/opt/.rec/rec\x1b[31m");
    volume.file("/opt/hers");
    show();
    using testing::ElementsAre;
    find<QComboBox>("factsWhose")->setCurrentText("alice");
    EXPECT_THAT(names("permissions"), ElementsAre("hers"));
    find<QComboBox>("factsWhose")->setCurrentIndex(0);
    QTest::keyClicks(find<QLineEdit>("factsFilter"), "hidden folder");
    EXPECT_THAT(names("permissions"), ElementsAre("rec\\x1b[31m"));
    QTest::keyClicks(find<QLineEdit>("factsFilter"), " no such");
    EXPECT_THAT(sentence("permissions"), HasSubstr("Nothing fits what was chosen above."));
    find<QLineEdit>("factsFilter")->clear();

    auto* const list = table("permissions");
    list->setCurrentIndex(list->model()->index(1, 1));
    const auto* page = list->parentWidget()->parentWidget();
    EXPECT_THAT(page->findChild<QLabel*>("meaning")->text().toStdString(),
                HasSubstr("can notice every key you press"));
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_THAT(revealed, ElementsAre("/opt/.rec/rec\x1b[31m")) << "as bytes";
    QTimer::singleShot(0, view.get(), [] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        menu->actions().last()->trigger();
        menu->close();
    });
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(list->viewport(), &byKey);
    EXPECT_THAT(QGuiApplication::clipboard()->text().toStdString(),
                testing::AllOf(HasSubstr("rec\\x1b[31m"), HasSubstr("in a hidden folder"),
                               HasSubstr(kTcc)));
}

/// Each form is offered, and what is written is the whole list, not what the filter leaves.
TEST_F(FactsViewTest, ExportsThroughTheDialog)
{
    permissions(kTcc, "VALUES ('kTCCServiceCamera','/opt/one',1,2,2),"
                      "('kTCCServiceCamera','/opt/two',1,0,2)");
    show();
    find<QLineEdit>("factsFilter")->setText("one");
    const TemporaryFolder folder;
    const struct {
        const char* filter;
        const char* file;
        const char* holds;
    } forms[] = {{"Text (*.txt)", "permissions.txt", "    two\n      Decision: denied"},
                 {"JSON (*.json)", "permissions.json", "\"decision\": \"denied\""},
                 {"CSV (*.csv)", "permissions.csv", "Listens or watches,two,denied,"}};
    for (const auto& form : forms) {
        QTimer::singleShot(0, view.get(), [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            dialog->setDirectory(QString::fromStdString(folder.path()));
            dialog->selectNameFilter(form.filter);
            Q_EMIT dialog->filterSelected(form.filter);
            static_cast<QDialog*>(dialog)->accept();
        });
        find<QPushButton>("factsExport")->click();
        const auto isWritten = [&] { return folder.contains(form.file); };
        ASSERT_TRUE(QTest::qWaitFor(isWritten, 30'000)) << form.file;
        EXPECT_THAT(contentOf(folder.hostPath(form.file)),
                    testing::AllOf(HasSubstr(form.holds), HasSubstr("one")));
    }
}

} // namespace

} // namespace pryvane::test
