// The bar under the lists in which the user says what to find.

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

    // next and previous are also the bar's buttons.
    FindBar(QAction& next, QAction& previous, QWidget* parent);

    // Shows the bar; what is typed takes the place of what was wanted before.
    void open();
    [[nodiscard]] QString wanted() const;
    // What became of the search, empty if there is nothing to say.
    void tell(const QString& notice);

 signals:
    void stepped(orvik::FindBar::Step step);
    // Escape or the close button.
    void left();

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    QLineEdit* wanted_;
    QLabel* notice_;
};

}  // namespace orvik
