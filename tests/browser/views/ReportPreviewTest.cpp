#include "browser/views/PreviewModule.h"
#include "browser/views/WindowFixture.h"

#include <QScrollBar>

namespace pryvane::test {
namespace {

class ReportPreviewTest : public ReportWindowFixture {
protected:
    QAbstractScrollArea* openPreview()
    {
        std::vector<std::string> paths;
        for (int i = 0; i < 120; ++i)
            paths.push_back("/tmp/finding" + std::to_string(i));
        store(paths);
        show();
        press("reportList", 0, Qt::Key_Return);
        host.print(); // the application's own print command
        EXPECT_TRUE(runUntil([&] { return isShown("pages"); }));
        return find<QAbstractScrollArea>("pages");
    }
};

TEST_F(ReportPreviewTest, ShowsThePagesAndScrollsByKeyboard)
{
    auto* pages = openPreview();
    ASSERT_TRUE(pages);
    EXPECT_TRUE(pages->hasFocus());
    EXPECT_TRUE(find("printPages")->isEnabled());
    const QString first = pages->accessibleDescription();
    EXPECT_TRUE(first.startsWith("Page 1 of ")) << first.toStdString();
    const QImage page = pages->viewport()->grab().toImage();
    int ink = 0;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x)
            ink += qGray(page.pixel(x, y)) < 128 ? 1 : 0;
    EXPECT_GT(ink, 500) << "the page is not blank";
    QTest::keyClick(pages, Qt::Key_PageDown);
    const int below = pages->verticalScrollBar()->value();
    EXPECT_GT(below, 0);
    QTest::keyClick(pages, Qt::Key_End);
    EXPECT_EQ(pages->verticalScrollBar()->value(), pages->verticalScrollBar()->maximum());
    EXPECT_NE(pages->accessibleDescription(), first);
    QTest::keyClick(pages, Qt::Key_Escape);
    runFor(std::chrono::milliseconds(20));
    EXPECT_FALSE(isShown("pages"));
}

TEST(PreviewModuleTest, SaysWhenADocumentIsDamaged)
{
    EXPECT_FALSE(openDocument("%PDF-1.7 and no more"));
    EXPECT_FALSE(openDocument(""));
}

} // namespace
} // namespace pryvane::test
