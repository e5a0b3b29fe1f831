// orvik-desktop-scenario: runs scenario files through the real windows, without a display.
//
//   orvik-desktop-scenario [--share PERCENT] FILE | - | --check FILE...
//
// It behaves as orvik-scenario does, and tells on standard error how many acts went through
// widgets. With --share it fails if they are fewer than that share.

#include <QApplication>
#include <iostream>
#include <memory>
#include <string_view>
#include <vector>

#include "desktop/desktop_actor.h"
#include "desktop/qt_messages.h"
#include "testkit/scenario_main.h"
#include "testkit/statement.h"

int main(int argc, char** argv) {
    using namespace orvik::testkit;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    orvik::test::WatchQtMessages(
        [](const QString& text) { std::cerr << text.toStdString() << '\n'; });
    int count = 1;
    QApplication app(count, argv);
    QApplication::setQuitOnLastWindowClosed(false);

    std::vector<char*> words(argv, argv + argc);
    std::size_t least = 0;
    if (words.size() > 2 && words[1] == std::string_view("--share")) {
        least = ParseCount(words[2]);
        words.erase(words.begin() + 1, words.begin() + 3);
    }
    Share share;
    const int status = ScenarioMain(
        static_cast<int>(words.size()), words.data(), [&share](ScenarioPlatform& platform) {
            return std::make_unique<DesktopActor>(platform, share);
        });
    std::cerr << share.ThroughWidgets << " of " << share.All() << " acts went through widgets ("
              << share.Percent() << " %)\n";
    if (status == 0 && share.Percent() < least) {
        std::cerr << "At least " << least << " % are wanted.\n";
        return 1;
    }
    return status;
}
