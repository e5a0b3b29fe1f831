// What the main window shows while addresses are extracted.

#include <QProgressBar>
#include <QPushButton>
#include <fstream>
#include <functional>
#include <vector>

#include "desktop/form1_window_fixture.h"

namespace orvik {
namespace {

using testing::_;
using testing::Return;

class ExtractionViewTest : public test::CommandTest {
 protected:
    ExtractionViewTest() {
        std::ofstream file(name_);
        // Several pieces, the last one with many yields of its own.
        for (int i = 0; i < 2000; ++i) {
            file << "and a line, mary" << i << "@mail.example said\r\n";
        }
        window.show();
        window.activateWindow();
    }
    ~ExtractionViewTest() override { std::remove(name_.c_str()); }
    ExtractionViewTest(const ExtractionViewTest&) = delete;
    ExtractionViewTest& operator=(const ExtractionViewTest&) = delete;
    ExtractionViewTest(ExtractionViewTest&&) = delete;
    ExtractionViewTest& operator=(ExtractionViewTest&&) = delete;

    template <class Kind>
    Kind& Find(const char* name) {
        return *window.findChild<Kind*>(QString::fromLatin1(name));
    }
    // Runs the command; look is called after each yield that shows a frame.
    void Extract(const std::function<void(int frame)>& look) {
        EXPECT_CALL(platform, ShowFileDialog(_)).WillOnce(Return(name_));
        EXPECT_CALL(platform, ShowBox(_)).WillRepeatedly(Return(Answer::Yes));
        int frame = 0;
        EXPECT_CALL(platform, Yield()).WillRepeatedly([&] {
            desktop.yield();
            look(frame++);
        });
        Find<QAction>("mnuExtract").trigger();
        EXPECT_GT(frame, 50);
    }

    const std::string name_ = testing::TempDir() + "orvik-extracted.txt";
    // Each yield is shown.
    Desktop desktop{std::chrono::milliseconds(0)};
    RecentBooks books;
    Form1Window window{module1, desktop, books};
};

TEST_F(ExtractionViewTest, PanelsAndBarKeepTheirPlacesInEveryFrame) {
    std::vector<QRect> first;
    Extract([&](int frame) {
        const std::vector<QRect> places = {Find<QLabel>("Panel1").geometry(),
                                           Find<QLabel>("Panel2").geometry(),
                                           Find<QProgressBar>("ProgressBar1").geometry()};
        if (frame == 0) {
            first = places;
        }
        ASSERT_EQ(places, first) << frame;
        ASSERT_TRUE(Find<QProgressBar>("ProgressBar1").isVisible()) << frame;
        for (const char* const panel : {"Panel1", "Panel2"}) {
            const auto& label = Find<QLabel>(panel);
            ASSERT_GE(label.width(), label.sizeHint().width()) << label.text().toStdString();
        }
    });
    EXPECT_FALSE(Find<QProgressBar>("ProgressBar1").isVisible());
    EXPECT_NE(Find<QLabel>("Panel1").geometry(), first.front());
}

TEST_F(ExtractionViewTest, CancelStaysInTheMiddleOfAResizedWindow) {
    const auto& cancel = Find<QPushButton>("cmdCancel");
    Extract([&](int frame) {
        if (frame == 0) {
            return;
        }
        ASSERT_TRUE(cancel.isVisible());
        const QPoint off = cancel.geometry().center() - window.centralWidget()->rect().center();
        ASSERT_LE(off.manhattanLength(), 2) << frame;
        if (frame == 10 || frame == 20) {
            window.resize(window.width() + 70, window.height() + 50);
        }
        if (frame == 30) {
            window.resize(300, 250);
        }
    });
    EXPECT_EQ(window.width(), 300);
    EXPECT_FALSE(cancel.isVisible());
}

TEST_F(ExtractionViewTest, CancelCanBePressedAtAYield) {
    int asked = 0;
    Extract([&](int frame) {
        if (frame == 52) {
            EXPECT_CALL(platform,
                        ShowBox(test::BoxIs("Are you sure you want to stop the extraction "
                                            "process?",
                                            "Really cancel?",
                                            Buttons::YesNo,
                                            Icon::Question)))
                .WillOnce([&](const MessageBox&) {
                    ++asked;
                    return Answer::Yes;
                });
            QMetaObject::invokeMethod(
                &window,
                [this] { QTest::keyClick(window.windowHandle(), Qt::Key_Escape); },
                Qt::QueuedConnection);
        }
    });
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(module1.WorkText, "");
}

}  // namespace
}  // namespace orvik
