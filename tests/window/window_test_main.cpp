// The window tests need one application on an X display for all of them.
#include <QApplication>
#include <clocale>
#include <gtest/gtest.h>

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
