#include "shell/desktop/guarded_application.h"
#include "shell/desktop/visible_boxes_style.h"

#include <gtest/gtest.h>

// One application for all tests, drawing into memory.
int main(int argumentCount, char** arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argumentCount, arguments);
    const veldrane::GuardedApplication application(argumentCount, arguments);
    QApplication::setStyle(new veldrane::VisibleBoxesStyle);
    return RUN_ALL_TESTS();
}
