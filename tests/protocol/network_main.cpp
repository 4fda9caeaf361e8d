#include <QCoreApplication>

#include <gtest/gtest.h>

// Sockets and their waits need an application object and its event loop.
int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
