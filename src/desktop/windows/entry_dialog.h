// The small form in which one entry is changed.

#pragma once

#include <QDialog>
#include <QString>
#include <functional>

class QLineEdit;

namespace orvik {

class EntryDialog : public QDialog {
    Q_OBJECT
 public:
    // OK is asked first whether the entry may be so; if not, the form stays open. A half that is
    // longer than a field is shown shortened and stays as it is.
    EntryDialog(const QString& address,
                const QString& nickname,
                std::function<bool(const EntryDialog&)> may_be,
                QWidget* parent);

    [[nodiscard]] QString address() const;
    [[nodiscard]] QString nickname() const;

    void accept() override;

 private:
    std::function<bool(const EntryDialog&)> may_be_;
    // The whole of a half that stays as it is, empty for any other.
    QString long_address_;
    QString long_nickname_;
    QLineEdit* address_;
    QLineEdit* nickname_;
};

}  // namespace orvik
