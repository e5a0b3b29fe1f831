#include "desktop/windows/entry_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <algorithm>

#include "desktop/help/help_key.h"
#include "desktop/text/short_text.h"
#include "desktop/views/control_views.h"

namespace orvik {
namespace {

// As wide as this many letters, and wider only for an entry that needs it.
constexpr qsizetype kNarrowestField = 30;
constexpr qsizetype kWidestField = 60;

QLineEdit* MakeField(const char* name, const QString& text, QWidget* parent) {
    auto* const field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(name));
    LimitLength(*field, kMostTyped);
    if (text.size() > kMostTyped) {
        // It stays as it is.
        const QString why = EntryDialog::tr("This is too long to be changed here.");
        field->setReadOnly(true);
        field->setToolTip(why);
        field->setAccessibleDescription(why);
    }
    field->setText(Shortened(text, kMostTyped));
    field->setMinimumWidth(
        field->fontMetrics().averageCharWidth() *
        static_cast<int>(std::clamp(text.size() + 2, kNarrowestField, kWidestField)));
    return field;
}

QString TextOf(const QLineEdit& field, const QString& too_long) {
    return too_long.isEmpty() ? field.text() : too_long;
}

}  // namespace

EntryDialog::EntryDialog(const QString& address,
                         const QString& nickname,
                         std::function<bool(const EntryDialog&)> may_be,
                         QWidget* parent)
    : QDialog(parent),
      may_be_(std::move(may_be)),
      long_address_(address.size() > kMostTyped ? address : QString()),
      long_nickname_(nickname.size() > kMostTyped ? nickname : QString()),
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
    return TextOf(*address_, long_address_);
}

QString EntryDialog::nickname() const {
    return TextOf(*nickname_, long_nickname_);
}

void EntryDialog::accept() {
    if (may_be_(*this)) {
        QDialog::accept();
    }
}

}  // namespace orvik
