#include <gmock/gmock.h>

#include <QApplication>

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    // Run by hand as under ctest: no window may depend on a display or take the focus from the
    // user.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
