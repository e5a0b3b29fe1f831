#include "desktop/windows/entry_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <algorithm>
#include <limits>

#include "desktop/help/help_key.h"
#include "desktop/views/control_views.h"

namespace orvik {
namespace {

// As wide as this many letters, and wider only for an entry that needs it.
constexpr qsizetype kNarrowestField = 30;
constexpr qsizetype kWidestField = 60;

QLineEdit* MakeField(const char* name, const QString& text, QWidget* parent) {
    auto* const field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(name));
    // Qt would cut a longer one off.
    field->setMaxLength(std::numeric_limits<int>::max());
    field->setText(text);
    field->setMinimumWidth(
        field->fontMetrics().averageCharWidth() *
        static_cast<int>(std::clamp(text.size() + 2, kNarrowestField, kWidestField)));
    return field;
}

}  // namespace

EntryDialog::EntryDialog(const QString& address,
                         const QString& nickname,
                         std::function<bool(const EntryDialog&)> may_be,
                         QWidget* parent)
    : QDialog(parent),
      may_be_(std::move(may_be)),
      address_(MakeField("entryAddress", address, this)),
      nickname_(MakeField("entryNickname", nickname, this)) {
    setObjectName(QStringLiteral("entryDialog"));
    setWindowTitle(tr("Edit entry"));
    setWindowModality(Qt::WindowModal);
    auto* const rows = new QFormLayout(this);
    rows->addRow(tr("&Address:"), address_);
    rows->addRow(tr("&Nickname:"), nickname_);
    auto* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    rows->addRow(buttons);
    ShowWordsOnly(*this);
    address_->setAccessibleName(tr("Address"));
    nickname_->setAccessibleName(tr("Nickname"));
    connect(buttons, &QDialogButtonBox::accepted, this, &EntryDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &EntryDialog::reject);
    address_->setFocus();
    address_->selectAll();
    SetHelpTopic(*this, "edit.html#entry");
}

QString EntryDialog::address() const {
    return address_->text();
}

QString EntryDialog::nickname() const {
    return nickname_->text();
}

void EntryDialog::accept() {
    if (may_be_(*this)) {
        QDialog::accept();
    }
}

}  // namespace orvik
