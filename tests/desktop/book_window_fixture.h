// A Book window over files of a folder of its own.

#pragma once

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/book/book_table.h"
#include "desktop/book/book_window.h"
#include "desktop/views/quiet_line.h"
#include "platform/system_files.h"

namespace orvik::test {

// Files that can be held back until somebody lets them go.
class HeldFiles : public SystemFiles {
 public:
    HeldFiles() : SystemFiles(false) {}

    std::error_code OpenToRead(const Path& path, std::unique_ptr<InputFile>& file) override {
        if (path.filename() == "held.vcf") {
            reached.release();
            goes_on.acquire();
        }
        return SystemFiles::OpenToRead(path, file);
    }

    QSemaphore reached;
    QSemaphore goes_on;
};

class BookWindowTest : public testing::Test {
 protected:
    void Write(const char* name, const std::string& text) {
        std::ofstream(Path(name), std::ios::binary) << text;
    }
    [[nodiscard]] std::string Path(const char* name) const {
        return folder.filePath(QString::fromLatin1(name)).toStdString();
    }
    static std::string Card(const std::string& name, const std::string& more = {}) {
        return "BEGIN:VCARD\nVERSION:3.0\nFN:" + name + "\n" + more + "END:VCARD\n";
    }
    // Opens files and waits until they are read, and all that follows is found out.
    void Open(const std::vector<const char*>& names) {
        std::vector<BookWindow::Input> inputs;
        for (const char* const name : names) {
            inputs.push_back({Path(name)});
        }
        window.open(std::move(inputs));
        Wait();
    }
    void OpenText(const std::string& text) {
        Write("book.vcf", text);
        Open({"book.vcf"});
    }
    void Show() {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    // Until nobody works.
    void Wait() {
        ASSERT_TRUE(QTest::qWaitFor(
            [this] { return !window.worker().isBusy() && !window.rows().isBusy(); }));
        QCoreApplication::processEvents();
    }
    template <class Kind>
    [[nodiscard]] Kind& Find(const char* name) const {
        auto* const found = window.findChild<Kind*>(QString::fromLatin1(name));
        if (found == nullptr) {
            throw std::runtime_error(std::string("no such object: ") + name);
        }
        return *found;
    }
    [[nodiscard]] std::string TextOf(const char* action) const {
        return Find<QAction>(action).text().toStdString();
    }
    void Do(const char* action) {
        QAction& found = Find<QAction>(action);
        EXPECT_TRUE(found.isEnabled()) << action;
        found.trigger();
    }
    [[nodiscard]] BookTable& Table() const { return Find<BookTable>("bookTable"); }
    [[nodiscard]] std::string Counts() const {
        return Find<QLabel>("bookCounts").text().toStdString();
    }
    [[nodiscard]] std::string Told() const {
        return Find<QuietLine>("bookQuietLine").text().toStdString();
    }
    [[nodiscard]] std::string Title() const { return window.windowTitle().toStdString(); }
    [[nodiscard]] QModelIndex Place(int row, book::Column column) const {
        return Table().model()->index(row, static_cast<int>(column));
    }
    [[nodiscard]] std::string Cell(int row, book::Column column) const {
        return Place(row, column).data().toString().toStdString();
    }
    [[nodiscard]] std::string Names() const {
        std::string names;
        for (int row = 0; row < Table().model()->rowCount(); ++row) {
            names += (row == 0 ? "" : " ") + Cell(row, book::Column::Name);
        }
        return names;
    }
    // As somebody types in a cell, and ends with this key.
    void Type(int row, book::Column column, const char* text, Qt::Key end = Qt::Key_Return) {
        EXPECT_FALSE(IsTyping());
        Table().setCurrentIndex(Place(row, column));
        Do("bookChange");
        QLineEdit& field = Find<QLineEdit>("cellEditor");
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, QString::fromUtf8(text));
        End(field, end);
    }
    // The field gives what was typed away with the next events.
    static void End(QLineEdit& field, Qt::Key key = Qt::Key_Return) {
        QTest::keyClick(&field, key);
        QCoreApplication::processEvents();
    }
    // Fields that were typed in go with the next events.
    [[nodiscard]] bool IsTyping() const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return window.findChild<QLineEdit*>(QStringLiteral("cellEditor")) != nullptr;
    }
    void Filter(const char* text) {
        Find<QLineEdit>("filterText").setText(QString::fromUtf8(text));
        Wait();
    }

    QTemporaryDir folder;
    HeldFiles files;
    RecentBooks books;
    BookWindow window{files, books};
};

}  // namespace orvik::test
