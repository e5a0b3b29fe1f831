// What is wrong with a plan, line by line.

#pragma once

#include <QWidget>

class QLabel;
class QPushButton;
class QStringListModel;

namespace orvik {

class PlanErrors : public QWidget {
    Q_OBJECT
 public:
    explicit PlanErrors(QWidget* parent);

    // The file is a name that can be shown.
    void show(const QString& file, const QStringList& errors);

 signals:
    // The user has seen enough.
    void closed();

 private:
    QLabel* heading_;
    QStringListModel* lines_;
    QPushButton* close_;
};

}  // namespace orvik
