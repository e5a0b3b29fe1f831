#include <QTemporaryDir>
#include <QTimer>

#include <gmock/gmock.h>

#include "desktop/qt_messages.h"
#include "desktop/session/application.h"

namespace {

// A test in which the program ended has told all event loops to return, later ones included. Only
// the main loop takes that back.
class LoopsGoOn : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo& /*test*/) override {
        QTimer::singleShot(0, [] { QCoreApplication::exit(); });
        QApplication::exec();
    }
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    orvik::test::WatchQtMessages(
        [](const QString& text) { ADD_FAILURE() << "Qt says: " << text.toStdString(); });
    // Nothing of the user's is read or written.
    const QTemporaryDir own;
    for (const char* const folder : {"XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"}) {
        qputenv(folder, own.path().toLocal8Bit());
    }
    const orvik::Application app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QCoreApplication::setApplicationVersion(QStringLiteral("7.8.9"));
    testing::UnitTest::GetInstance()->listeners().Append(new LoopsGoOn);
    return RUN_ALL_TESTS();
}
