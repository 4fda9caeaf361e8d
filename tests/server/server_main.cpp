#include <QCoreApplication>

#include <gtest/gtest.h>

// The store and the sockets need a Qt application object.
int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
