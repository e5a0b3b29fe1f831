#include "desktop/session/application.h"

#include <QEvent>
#include <QMessageBox>
#include <QTemporaryDir>
#include <functional>
#include <new>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "app/run_time_error.h"
#include "desktop/modal_user.h"
#include "desktop/session/qt_platform.h"
#include "platform/system_files.h"

namespace orvik {
namespace {

// An object that lacks memory for every event of its own.
class Starved : public QObject {
 public:
    explicit Starved(std::function<void()> fail) : fail_(std::move(fail)) {}
    bool event(QEvent* event) override {
        if (event->type() == QEvent::User) {
            fail_();
        }
        return QObject::event(event);
    }

 private:
    std::function<void()> fail_;
};

class ApplicationTest : public testing::Test {
 protected:
    ~ApplicationTest() override { app.onOutOfMemory({}); }

    // Sends an event as Qt does; returns what was told on standard error.
    static std::string Send(QObject& receiver) {
        testing::internal::CaptureStderr();
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(&receiver, &event);
        return testing::internal::GetCapturedStderr();
    }

    Application& app = dynamic_cast<Application&>(*QCoreApplication::instance());
};

TEST_F(ApplicationTest, ALackOfMemoryIsToldAndTheProgramGoesOn) {
    Starved memory([] { throw std::bad_alloc(); });
    Starved length([] { throw std::length_error("a string"); });
    int told = 0;
    app.onOutOfMemory([&] {
        ++told;
        return true;
    });
    EXPECT_EQ(Send(memory), "");
    EXPECT_EQ(Send(length), "");
    EXPECT_EQ(told, 2);
}

TEST_F(ApplicationTest, WhereNoBoxCanBeShownTheTerminalTells) {
    Starved memory([] { throw std::bad_alloc(); });
    EXPECT_EQ(Send(memory), "orvik: Out of memory\n");
    app.onOutOfMemory([] { return false; });
    EXPECT_EQ(Send(memory), "orvik: Out of memory\n");
    app.onOutOfMemory([]() -> bool { throw std::bad_alloc(); });
    EXPECT_EQ(Send(memory), "orvik: Out of memory\n");
}

TEST_F(ApplicationTest, ALackInTheMiddleOfTellingBringsNoSecondBox) {
    Starved memory([] { throw std::bad_alloc(); });
    int told = 0;
    app.onOutOfMemory([&] {
        ++told;
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(&memory, &event);
        return true;
    });
    EXPECT_EQ(Send(memory), "orvik: Out of memory\n");
    EXPECT_EQ(told, 1);
}

TEST_F(ApplicationTest, AnEventOfTheUserThatLacksMemoryBringsABox) {
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    Desktop desktop;
    SystemFiles files{false};
    RecentBooks books;
    QtPlatform platform{desktop, files, books};
    app.onOutOfMemory([&] {
        return desktop.run([&] { platform.ReportFailure(RunTimeError(Failure::OutOfMemory)); });
    });
    QString said;
    const test::ModalUser user({[&] {
        said = test::ModalUser::box().text();
        test::ModalUser::box().close();
    }});
    Starved memory([&] { desktop.run([] { throw std::bad_alloc(); }); });
    EXPECT_EQ(Send(memory), "");
    EXPECT_EQ(said, QStringLiteral("Run-time error '7':\n\nOut of memory"));
    EXPECT_FALSE(desktop.hasEnded());
    EXPECT_FALSE(desktop.isRunning());
    bool ran = false;
    EXPECT_TRUE(desktop.run([&] { ran = true; }));
    EXPECT_TRUE(ran);
}

}  // namespace
}  // namespace orvik
