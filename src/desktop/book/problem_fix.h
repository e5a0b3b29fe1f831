// Another text for a value that looks wrong: a line to type in, what is to be said of what was
// typed, and what was surely meant.

#pragma once

#include <QString>
#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;

namespace orvik {

class LinkButton;

class ProblemFix : public QWidget {
    Q_OBJECT
 public:
    explicit ProblemFix(QWidget* parent);

    // Begins with a text; an address is checked as it is typed.
    void begin(const QString& text, bool is_address);

 signals:
    void done(const QString& text);
    void left();

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void check();
    void finish();

    bool is_address_ = false;
    QString before_;
    QString meant_;
    QLabel* label_;
    QLineEdit* text_;
    QLabel* verdict_;
    LinkButton* offer_;
    QPushButton* change_;
};

}  // namespace orvik
