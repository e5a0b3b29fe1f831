// The page of problems over a book that has one of each kind.

#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <memory>

#include <gmock/gmock.h>

#include "desktop/book/book_checks.h"
#include "desktop/book/problem_model.h"
#include "desktop/book/problems_page.h"
#include "desktop/book_fixture.h"
#include "desktop/views/link_button.h"

namespace orvik::test {

// A line outside of all records, an address that is bad and one that is odd, a value that is said
// to be base64 and is none, and a member who is no record.
inline constexpr const char* kOneOfEach =
    "version: 1\n\nnonsense\n\n"
    "dn: cn=Al\ncn: Al\nmail: <al@example.org>\n\n"
    "dn: cn=Bo\ncn: Bo\nmail: bo@localhost\ndescription:: ***\n\n"
    "dn: cn=Team\nobjectclass: groupofnames\ncn: Team\n"
    "member: cn=No,mail=no@example.org\n";

class BookProblemsTest : public testing::Test {
 protected:
    void open(const std::string& name, const std::string& bytes) {
        ReadInto(document, name, bytes);
        page = std::make_unique<ProblemsPage>(document, checks, nullptr);
        page->resize(450, 700);
        page->show();
    }
    [[nodiscard]] QTableView& table() const { return Find<QTableView>(*page, "problemTable"); }
    [[nodiscard]] std::string rows() const { return RowsOf(*table().model()); }
    [[nodiscard]] QPushButton& button(const char* name) const {
        return Find<QPushButton>(*page, name);
    }
    [[nodiscard]] std::string box(const char* name) const {
        return Find<QPlainTextEdit>(*page, name).toPlainText().toStdString();
    }
    int goTo(const char* text) const { return GoTo(table(), QString::fromUtf8(text)); }
    void click(const char* name) const {
        QTest::mouseClick(&Find<QAbstractButton>(*page, name), Qt::LeftButton);
    }
    // The text of the last step, and how many there are.
    [[nodiscard]] std::string lastStep() {
        return std::to_string(document.undoStack().count()) + " " +
               document.undoStack().undoText().toStdString();
    }
    void undo() { document.undoStack().undo(); }

    BookDocument document;
    BookChecks checks{document};
    std::unique_ptr<ProblemsPage> page;
};

}  // namespace orvik::test
