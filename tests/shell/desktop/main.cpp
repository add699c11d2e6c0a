#include <QApplication>

#include <gtest/gtest.h>

// One application for all tests, drawing into memory.
int main(int argumentCount, char** arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argumentCount, arguments);
    const QApplication application(argumentCount, arguments);
    return RUN_ALL_TESTS();
}
