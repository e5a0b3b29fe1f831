#include "desktop/session/desktop.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QWindow>
#include <stdexcept>

#include <gmock/gmock.h>

#include "unit/mock_platform.h"

namespace orvik {
namespace {

class DesktopTest : public test::CommandTest {
 protected:
    // Waits in the queue until somebody processes events.
    static void PostClick(QWidget& widget) {
        const QPointF middle(widget.rect().center());
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QCoreApplication::postEvent(
                &widget,
                new QMouseEvent(type,
                                middle,
                                widget.mapToGlobal(middle),
                                Qt::LeftButton,
                                type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                                Qt::NoModifier));
        }
    }

    Desktop desktop;
};

class CountingView : public View {
 public:
    void sync() override { ++syncs; }
    QWidget& window() override { return widget; }

    int syncs = 0;
    QWidget widget;
};

TEST_F(DesktopTest, AtManyYieldsOnlySomeShowTheForms) {
    Desktop slow(std::chrono::hours(1));
    CountingView view;
    slow.add(form1, view);
    int taken = 0;
    const auto yield = [&] {
        QMetaObject::invokeMethod(
            &view.widget, [&] { ++taken; }, Qt::QueuedConnection);
        slow.yield();
    };
    EXPECT_FALSE(slow.hasYielded());
    for (const int event : {1, 2}) {
        SCOPED_TRACE(event);
        view.syncs = taken = 0;
        slow.run([&] {
            for (int i = 0; i < 100; ++i) {
                yield();
            }
            EXPECT_EQ(view.syncs, 1);
            EXPECT_TRUE(slow.hasYielded());
        });
        EXPECT_FALSE(slow.hasYielded());
        EXPECT_EQ(view.syncs, 2);
        EXPECT_EQ(taken, event == 1 ? 1 : 100);  // those that waited come first
    }
    Desktop fast(std::chrono::milliseconds(0));
    fast.add(form1, view);
    view.syncs = 0;
    fast.run([&] {
        fast.yield();
        fast.yield();
    });
    EXPECT_EQ(view.syncs, 3);
}

TEST_F(DesktopTest, EachEventEndsWithASync) {
    CountingView view;
    desktop.add(form1, view);
    bool was_running = false;
    EXPECT_TRUE(desktop.run([&] { was_running = desktop.isRunning(); }));
    EXPECT_TRUE(was_running);
    EXPECT_FALSE(desktop.isRunning());
    EXPECT_EQ(view.syncs, 1);
    desktop.nested([&] {
        EXPECT_EQ(view.syncs, 2);
        return 0;
    });
    desktop.repaint();
    EXPECT_EQ(view.syncs, 3);
}

TEST_F(DesktopTest, RepaintsOfOneCommand_AreShownNowAndThen) {
    CountingView view;
    Desktop slow(std::chrono::hours(1));
    slow.add(form1, view);
    for (int command = 1; command <= 2; ++command) {
        view.syncs = 0;
        slow.run([&] {
            slow.repaint();
            slow.repaint();
            EXPECT_EQ(view.syncs, 1);
        });
        EXPECT_EQ(view.syncs, 2);
    }
}

TEST_F(DesktopTest, TheEndPassesThroughNestedLoops) {
    bool went_on = false;
    desktop.run([&] {
        desktop.nested([&] {
            // An event of the user inside a box.
            desktop.run([] { throw ProgramEnded(); });
            return 0;
        });
        went_on = true;
    });
    EXPECT_FALSE(went_on);
    EXPECT_TRUE(desktop.hasEnded());
    EXPECT_THROW(desktop.rethrowEnd(), ProgramEnded);
    EXPECT_FALSE(desktop.run([] { FAIL() << "an event after the end"; }));
}

TEST_F(DesktopTest, AnythingElseThatIsThrownIsKept) {
    desktop.run([] { throw std::logic_error("a mistake"); });
    EXPECT_THROW(desktop.rethrowEnd(), std::logic_error);
}

TEST_F(DesktopTest, AYieldTakesOnlyWhatIsAccepted) {
    QPushButton ordinary;
    QPushButton cancel;
    int ordinary_clicks = 0;
    int cancel_clicks = 0;
    QObject::connect(&ordinary, &QPushButton::clicked, [&] { ++ordinary_clicks; });
    QObject::connect(&cancel, &QPushButton::clicked, [&] { ++cancel_clicks; });
    desktop.acceptAtYield(cancel);
    PostClick(ordinary);
    PostClick(cancel);
    desktop.run([&] { desktop.yield(); });
    EXPECT_EQ(ordinary_clicks, 0);
    EXPECT_EQ(cancel_clicks, 1);
    PostClick(ordinary);
    QCoreApplication::processEvents();
    EXPECT_EQ(ordinary_clicks, 1);
}

TEST_F(DesktopTest, AYieldRefusesCommandsOutsideOfNestedLoops) {
    QPushButton cancel;
    bool refused = false;
    bool taken = false;
    bool taken_in_box = false;
    QObject::connect(&cancel, &QPushButton::clicked, [&] {
        refused = !desktop.run([] {});
        taken =
            desktop.run([&] { taken_in_box = desktop.nested([&] { return desktop.run([] {}); }); },
                        AtYield::Taken);
    });
    desktop.acceptAtYield(cancel);
    PostClick(cancel);
    desktop.run([&] { desktop.yield(); });
    EXPECT_TRUE(refused);
    EXPECT_TRUE(taken);
    EXPECT_TRUE(taken_in_box);
}

TEST_F(DesktopTest, AWindowComesOntoTheScreenWithoutAnEventOfTheUser) {
    QWidget window;
    bool asked = false;
    bool refused = false;
    desktop.run([&] {
        window.show();
        // A screen reader's press comes as no input.
        QMetaObject::invokeMethod(
            &window,
            [&] {
                asked = true;
                refused = !desktop.run([] {}, AtYield::Taken);
            },
            Qt::QueuedConnection);
        desktop.waitUntilOnScreen(window);
    });
    EXPECT_TRUE(window.windowHandle()->isExposed());
    EXPECT_TRUE(asked);
    EXPECT_TRUE(refused);
    EXPECT_TRUE(desktop.run([] {}));
}

TEST_F(DesktopTest, TheEndPassesThroughAYield) {
    QPushButton cancel;
    QObject::connect(&cancel, &QPushButton::clicked, [&] {
        desktop.run([] { throw ProgramEnded(); }, AtYield::Taken);
    });
    desktop.acceptAtYield(cancel);
    PostClick(cancel);
    bool went_on = false;
    desktop.run([&] {
        desktop.yield();
        went_on = true;
    });
    EXPECT_FALSE(went_on);
    EXPECT_TRUE(desktop.hasEnded());
}

}  // namespace
}  // namespace orvik
