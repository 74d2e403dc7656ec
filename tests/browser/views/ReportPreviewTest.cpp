#include "browser/views/PreviewModule.h"
#include "browser/views/WindowFixture.h"

#include <QScrollBar>

namespace pryvane::test {
namespace {

using ReportPreviewTest = ReportWindowFixture;

TEST_F(ReportPreviewTest, ShowsThePagesAndScrollsByKeyboard)
{
    store(std::vector<std::string>(120, "/tmp/finding"));
    show();
    press("reportList", 0, Qt::Key_Return);
    host.print(); // the application's own print command
    ASSERT_TRUE(runUntil([&] { return isShown("pages"); }));
    auto* pages = find<QAbstractScrollArea>("pages");
    EXPECT_TRUE(pages->hasFocus());
    const QString first = pages->accessibleDescription();
    EXPECT_TRUE(first.startsWith("Page 1 of ")) << first.toStdString();
    const QImage page = pages->viewport()->grab().toImage();
    int ink = 0;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x)
            ink += qGray(page.pixel(x, y)) < 128 ? 1 : 0;
    EXPECT_GT(ink, 500) << "the page is not blank";
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
