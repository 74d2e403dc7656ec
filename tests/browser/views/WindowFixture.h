#pragma once

#include "browser/BrowserFixture.h"
#include "browser/views/ReportBrowserView.h"
#include "hosts/qt/EventLoop.h"
#include "hosts/qt/QtMainLoop.h"
#include "store/SqliteUserDefaults.h"
#include "ui/RowTable.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

namespace pryvane::test {

/// The report screen in a window, over a volume of real files and a store of its own.
class ReportWindowFixture : public ReportsFixture {
protected:
    ReportWindowFixture()
    {
        auto opened = SqliteUserDefaults::open(data.path(), log);
        if (!opened)
            throw std::runtime_error(opened.error().message);
        kept = std::move(opened->defaults);
        clock.setNow(std::chrono::time_point_cast<std::chrono::milliseconds>(
            std::chrono::system_clock::now()));
    }

    UserDefaults& shelf() override { return *kept; }

    /// Opens the screen at the size it has in the smallest window.
    void show()
    {
        browser = std::make_unique<ReportViewController>(
            PlatformServices{*disk, *kept, notifications, queue, clock, alerts, folderPicker,
                             workspace, userNotifier, log},
            ReportViewController::Parts{host, host, printing, remover, "alice"});
        view = new ReportBrowserView(*browser, {queue, otherPdf, "alice", {}});
        window = std::make_unique<QWidget>();
        auto* column = new QVBoxLayout(window.get());
        column->setContentsMargins(0, 0, 0, 0);
        column->addWidget(view);
        window->resize(716, 552);
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get(), 60'000));
        browser->viewWillAppear();
        settle();
    }

    /// Runs events until nothing is under way.
    void settle()
    {
        ASSERT_TRUE(runUntil([&] {
            return !browser->isBusy() && !browser->isPrinting() && !browser->removal().isRemoving();
        }));
        runFor(std::chrono::milliseconds(20));
    }

    template <typename Widget = QWidget>
    Widget* find(const char* name)
    {
        auto* found = window->findChild<Widget*>(name);
        if (!found)
            ADD_FAILURE() << "there is no " << name;
        return found;
    }
    bool isShown(const char* name)
    {
        auto* found = window->findChild<QWidget*>(name);
        return found && found->isVisible();
    }
    void click(const char* name)
    {
        auto* button = find<QAbstractButton>(name);
        ASSERT_TRUE(button && button->isVisible() && button->isEnabled()) << name;
        QTest::mouseClick(button, Qt::LeftButton);
        settle();
    }
    std::string textOf(const char* name) { return find<QLabel>(name)->text().toStdString(); }

    ui::RowTable* table(const char* name) { return find<ui::RowTable>(name); }
    /// What a row of a table says, its texts joined.
    std::string rowText(const char* name, int row)
    {
        const auto* model = table(name)->model();
        QStringList texts;
        for (int column = 1; column < model->columnCount(); ++column)
            texts += model->index(row, column).data().toString();
        return texts.join(" | ").toStdString();
    }
    void press(const char* name, int row, Qt::Key key)
    {
        auto* rows = table(name);
        rows->setFocus();
        rows->setCurrentIndex(rows->model()->index(row, 1));
        QTest::keyClick(rows, key);
        settle();
    }

    /// Gives that path to the dialog for a file or folder, as soon as it is shown.
    static void saveTo(const std::string& path)
    {
        QTimer::singleShot(50, qApp, [path] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return saveTo(path);
            dialog->findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(path));
            QMetaObject::invokeMethod(dialog, "accept");
        });
    }

    TemporaryFolder data, exports;
    QtMainQueue queue;
    std::unique_ptr<UserDefaults> kept;
    PDFGenerate otherPdf{factsIn(caches.path()), *disk, machine};
    std::unique_ptr<ReportViewController> browser;
    std::unique_ptr<QWidget> window; // before what its view looks at
    ReportBrowserView* view = nullptr;
};

} // namespace pryvane::test
