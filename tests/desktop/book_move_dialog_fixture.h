// The dialog that moves a book, and a user of it.

#pragma once

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeView>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "desktop/book/move_dialog.h"
#include "desktop/book_move_fixture.h"

namespace orvik::test {

class MoveDialogFixture : public MoveFixture {
 protected:
    template <class Kind>
    Kind& Find(const char* name) {
        auto* const found = dialog->findChild<Kind*>(QString::fromLatin1(name));
        if (found == nullptr) {
            throw std::runtime_error("no such object: " + std::string(name));
        }
        return *found;
    }

    // Opens the dialog with all records, or with some, and waits for its preview.
    void Open() { Open(document.records()); }
    void Open(const BookDocument::Numbers& records) { Open(records, system); }
    void Open(const BookDocument::Numbers& records, FileSystem& files) {
        dialog = std::make_unique<MoveDialog>(document, worker, files, records, nullptr);
        ShowDialog();
    }
    void ShowDialog() {
        dialog->show();
        AwaitPreview();
    }
    // What is chosen was looked at.
    void AwaitPreview() {
        const auto is_known = [&] {
            return Text("moveCounts").find("not known") == std::string::npos;
        };
        ASSERT_TRUE(Eventually([&] { return is_known() && !worker.isBusy(); }));
    }
    void Choose(int row) {
        Find<QListWidget>("movePrograms").setCurrentRow(row);
        AwaitPreview();
    }
    void Choose(const char* program) {
        auto& programs = Find<QListWidget>("movePrograms");
        const auto items = programs.findItems(QString::fromLatin1(program), Qt::MatchExactly);
        ASSERT_EQ(items.size(), 1) << program;
        programs.setCurrentItem(items.front());
        AwaitPreview();
    }

    [[nodiscard]] QString Path(const std::string& file) const {
        return QFile::decodeName(folder.Name(file).c_str());
    }
    // Saves into a file that is not there; returns the summary.
    std::string Save(const std::string& file) {
        const BoxUser user({[&] { ModalUser::type(Path(file)); }});
        Find<QPushButton>("moveSave").click();
        EXPECT_TRUE(Eventually([&] { return Find<QWidget>("moveSummary").isVisible(); }));
        return Find<QPlainTextEdit>("moveSummaryText").toPlainText().toStdString();
    }

    // What a label, a button or the quiet line says.
    std::string Text(const char* name) {
        return Find<QWidget>(name).property("text").toString().toStdString();
    }
    static std::vector<std::string> Items(const QComboBox& box) {
        std::vector<std::string> items;
        for (int i = 0; i < box.count(); ++i) {
            items.push_back(box.itemText(i).toStdString());
        }
        return items;
    }
    // The rows that can be scrolled to, from the top.
    std::vector<std::string> LossRows() {
        const auto& tree = Find<QTreeView>("moveLosses");
        std::vector<std::string> rows;
        for (QModelIndex at = tree.model()->index(0, 0); at.isValid(); at = tree.indexBelow(at)) {
            rows.push_back(at.data().toString().toStdString());
        }
        return rows;
    }

    std::unique_ptr<MoveDialog> dialog;
};

}  // namespace orvik::test
