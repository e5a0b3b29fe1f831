// What Move shows when the book is saved: a summary that can be kept.

#pragma once

#include <QString>
#include <QWidget>

class QPlainTextEdit;
class QPushButton;

namespace orvik {

class MoveSummary : public QWidget {
    Q_OBJECT
 public:
    explicit MoveSummary(QWidget* parent);

    void showText(const QString& text);
    // While something is written nothing else can be.
    void setBusy(bool busy);

 signals:
    void keepAsked();
    void folderAsked();
    // Another program is to get the book, too.
    void backAsked();

 private:
    QPlainTextEdit* text_;
    QPushButton* keep_;
    QPushButton* copy_;
    QPushButton* folder_;
    QPushButton* back_;
};

}  // namespace orvik
