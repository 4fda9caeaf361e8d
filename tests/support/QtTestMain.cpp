#include <QApplication>

#include <gtest/gtest.h>

// Widgets need an application object. The tests never need a screen, and
// test discovery runs the program without the tests' environment, so the
// offscreen platform is the default here.
int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
