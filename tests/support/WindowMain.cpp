#include "ui/Theme.h"

#include <QApplication>
#include <gtest/gtest.h>

/// Runs tests with widgets, which look as in the program; dialogs can be reached by the tests.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    application.setAttribute(Qt::AA_DontUseNativeDialogs);
    pryvane::ui::applyTheme(application);
    return RUN_ALL_TESTS();
}
