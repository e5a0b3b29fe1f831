// A book read from bytes into the document of a Book window, and what tests ask of its pages.

#pragma once

#include <QAbstractItemModel>
#include <QApplication>
#include <QTableView>
#include <QTest>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "book/typed_views.h"
#include "book_cli/inputs.h"
#include "desktop/book/book_document.h"
#include "desktop/book/book_worker.h"
#include "desktop/book/worker_console.h"
#include "platform/system_files.h"

namespace orvik::test {

// Reads a file of this name as the window does.
inline void ReadInto(BookDocument& document, const std::string& name, const std::string& bytes) {
    SystemFiles files{false};
    BookWorker worker;
    const BookDocument::Snapshot read = document.snapshot();
    ASSERT_TRUE(worker.run(
        QStringLiteral("Reading"),
        [&](const BookWorker::Watch& watch) {
            WorkerConsole around(files, watch);
            book_cli::LoadBytes(around.console(), name, bytes, *read.Copy);
        },
        [] {}));
    ASSERT_TRUE(QTest::qWaitFor([&worker] { return !worker.isBusy(); }));
    const auto& contacts = read.Copy->Book.Contacts;
    const std::vector<book::Contact> added(
        contacts.begin() + static_cast<std::ptrdiff_t>(read.Records.size()), contacts.end());
    document.takeOver(read, QStringLiteral("Open"), {}, added);
}

// The cells of a table, "a | b | c" for each row.
inline std::string RowsOf(const QAbstractItemModel& model) {
    std::string text;
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int column = 0; column < model.columnCount(); ++column) {
            text += (column == 0 ? "" : " | ") +
                    model.index(row, column).data().toString().toStdString();
        }
        text += '\n';
    }
    return text;
}

template <class Widget>
Widget& Find(QWidget& parent, const char* name) {
    auto* const found = parent.findChild<Widget*>(QLatin1String(name));
    if (found == nullptr) {
        throw std::runtime_error(std::string("nothing is called ") + name);
    }
    return *found;
}

// Makes the first row with this text in any column the one that is looked at; its number.
inline int GoTo(QTableView& table, const QString& text) {
    const QAbstractItemModel& model = *table.model();
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int column = 0; column < model.columnCount(); ++column) {
            if (model.index(row, column).data().toString().contains(text)) {
                table.setCurrentIndex(model.index(row, 0));
                return row;
            }
        }
    }
    ADD_FAILURE() << "no row has " << text.toStdString();
    return -1;
}

inline std::string NamesIn(const BookDocument& document) {
    std::string names;
    for (const BookDocument::Number record : document.records()) {
        names += book::NameOf(document.book(), document.at(record)).Shown + " ";
    }
    return names;
}

// The names of what Tab reaches from a widget on, until it comes back to it.
inline std::vector<std::string> ReachedByTab(QWidget& from) {
    std::vector<std::string> names;
    from.setFocus();
    for (int i = 0; i < 50; ++i) {
        QWidget* const now = QApplication::focusWidget();
        if (now == nullptr || (now == &from && i > 0)) {
            break;
        }
        names.push_back(now->objectName().toStdString());
        QTest::keyClick(now, Qt::Key_Tab);
    }
    return names;
}

}  // namespace orvik::test
