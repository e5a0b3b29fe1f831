// What Qt has to say while tests run.

#pragma once

#include <QString>
#include <QtGlobal>

namespace orvik::test {

// Gives each of Qt's warnings to report, less those that only tell where the tests run: without a
// window manager and without a session.
inline void WatchQtMessages(void (*report)(const QString& text)) {
    static void (*reporting)(const QString&) = nullptr;
    reporting = report;
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
        if (!text.startsWith(QStringLiteral("QStandardPaths: XDG_RUNTIME_DIR")) &&
            !text.startsWith(QStringLiteral("This plugin does not support"))) {
            reporting(text);
        }
    });
}

}  // namespace orvik::test
