// The help's windows, with pages and a cache of their own.

#pragma once

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMainWindow>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <string>

#include <gtest/gtest.h>

#include "desktop/help/help_viewer.h"

namespace orvik::test {

// Where the tests run there are compiled pages, as there are where the program is built.
inline std::string HelpFile() {
    return QCoreApplication::applicationDirPath().toStdString() + "\\help.chm";
}

inline QList<QMainWindow*> HelpWindows() {
    QList<QMainWindow*> found;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        auto* const main = qobject_cast<QMainWindow*>(window);
        if (main != nullptr && main->isVisible() && main->findChild<QTextBrowser*>() != nullptr) {
            found.append(main);
        }
    }
    return found;
}

class HelpViewerTest : public testing::Test {
 protected:
    void Topic(const std::string& window, const std::string& topic) {
        viewer.show(HelpCommand::Topic, HelpFile() + ">" + window, topic);
    }
    // The only help window, which must be this one.
    QMainWindow& Window(const char* name) {
        const QList<QMainWindow*> all = HelpWindows();
        EXPECT_EQ(all.size(), 1);
        EXPECT_EQ(all.front()->objectName(), QString::fromLatin1(name));
        return *all.front();
    }
    static QTextBrowser& Page(const QMainWindow& window) {
        return *window.findChild<QTextBrowser*>();
    }
    static std::string Text(const QMainWindow& window) {
        return Page(window).toPlainText().toStdString();
    }
    template <class Kind>
    Kind& Find(const char* name) {
        return *Window("secWin").findChild<Kind*>(QString::fromLatin1(name));
    }
    [[nodiscard]] QString Collection() const {
        return folder.filePath(QStringLiteral("cache/orvik/orvik.qhc"));
    }
    static void Write(const QString& name, const QByteArray& bytes) {
        QDir().mkpath(QFileInfo(name).path());
        QFile file(name);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
    }

    QTemporaryDir folder;
    HelpViewer viewer{folder.filePath(QStringLiteral("cache/orvik"))};
};

}  // namespace orvik::test
