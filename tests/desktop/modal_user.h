// A user who answers dialogs and boxes, one inside the other if need be.

#pragma once

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace orvik::test {

// While it lives, each dialog or box that comes to the front is acted on in turn; then what is
// still open is closed.
class ModalUser {
 public:
    explicit ModalUser(std::vector<std::function<void()>> acts) : acts_(std::move(acts)) { wait(); }

    // How many acts were done.
    [[nodiscard]] std::size_t done() const { return done_; }

    static QMessageBox& box() {
        return *qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    }
    static QFileDialog& dialog() {
        return *qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    }
    static void answer(QMessageBox::StandardButton button) { box().button(button)->click(); }
    static void type(const QString& name) {
        QFileDialog& shown = dialog();
        shown.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
        shown.findChild<QDialogButtonBox*>()
            ->button(shown.acceptMode() == QFileDialog::AcceptSave ? QDialogButtonBox::Save
                                                                   : QDialogButtonBox::Open)
            ->click();
    }

 private:
    // An act may open a box and end with it, so the next one is on its way before it begins.
    void wait() {
        QTimer::singleShot(0, &timers_, [this] {
            wait();
            QWidget* const modal = QApplication::activeModalWidget();
            if (modal == nullptr) {
                return;
            }
            if (done_ < acts_.size()) {
                acts_[done_++]();
            } else {
                modal->close();
            }
        });
    }

    std::vector<std::function<void()>> acts_;
    std::size_t done_ = 0;
    QObject timers_;
};

}  // namespace orvik::test
