// The bar in which the user says what to find, at the foot of a window.

#pragma once

#include <QString>
#include <QWidget>

class QAction;
class QLabel;
class QLineEdit;

namespace orvik {

class FindBar : public QWidget {
    Q_OBJECT
 public:
    enum class Step {
        Typed,  // the letters changed: what is found may stay
        Next,
        Previous,
    };

    // The window gets the actions "find", "findNext" and "findPrevious" with their keys.
    FindBar(QWidget& window, QWidget* parent);

    [[nodiscard]] QAction& findAction() const { return *find_; }

    // Shows the bar; what is typed takes the place of what was wanted before.
    void open();
    [[nodiscard]] QString wanted() const;
    // Says what became of the search, nothing where it is empty.
    void tell(const QString& notice);
    // What to tell of a search that came to its end, wrapped around or not.
    [[nodiscard]] static QString notice(bool found, bool wrapped, Step step);

 signals:
    // The user wants to type what to find.
    void asked();
    void stepped(orvik::FindBar::Step step);
    // Escape or the close button.
    void left();

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    // The label gives way where the bar is too narrow for all of it.
    void showLabel();

    QAction* find_;
    QLabel* label_;
    QLineEdit* wanted_;
    QLabel* notice_;
};

}  // namespace orvik
