#include "desktop/book/source_text.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "desktop/book/panel_table.h"
#include "desktop/book/shown_text.h"
#include "desktop/views/link_button.h"

namespace orvik {
namespace {

constexpr int kLinesSeen = 8;

}  // namespace

SourceText::SourceText(BookDocument& document,
                       BookChecks& checks,
                       const QString& name,
                       QWidget* parent)
    : QWidget(parent),
      document_(document),
      checks_(checks),
      link_(new LinkButton(name + QStringLiteral("Link"), QString(), this)),
      text_(new QPlainTextEdit(this)) {
    setObjectName(name);
    text_->setObjectName(name + QStringLiteral("Lines"));
    text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    MakeReader(*text_, tr("Lines of the file"), kLinesSeen);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(link_, 0, Qt::AlignLeft);
    column->addWidget(text_);
    connect(link_, &QAbstractButton::clicked, this, [this] { setOpen(!isOpen()); });
    setOpen(false);
    setPlace(std::nullopt);
}

void SourceText::setPlace(const std::optional<book::ExcerptPlace>& place) {
    place_ = place;
    link_->setEnabled(place_.has_value());
    if (isOpen()) {
        fill();
    }
}

bool SourceText::isOpen() const {
    return !text_->isHidden();
}

void SourceText::setOpen(bool open) {
    const QString words = open ? tr("Hide the text") : tr("Show as text");
    link_->setText(words);
    link_->setAccessibleName(words);
    text_->setVisible(open);
    if (open) {
        fill();
    }
}

void SourceText::fill() {
    text_->setPlainText(text());
}

QString SourceText::text() const {
    if (!place_) {
        return {};
    }
    // Files that were read are numbered as their inputs are.
    const auto& inputs = document_.loaded().Inputs;
    const std::string other =
        place_->File < inputs.size() ? inputs[place_->File].OtherSet : std::string();
    const book::Excerpt excerpt =
        book::ExcerptOf(document_.book(), checks_.origins(), *place_, other);
    const int width = excerpt.Lines.empty()
                          ? 0
                          : static_cast<int>(QString::number(excerpt.Lines.back().Number).size());
    QString text;
    for (const book::ExcerptLine& one : excerpt.Lines) {
        text += QStringLiteral("%1  ").arg(one.Number, width) + ShownLines(one.Text) +
                (one.IsCut ? QStringLiteral("\u2026") : QString()) + QLatin1Char('\n');
    }
    text += excerpt.IsCut ? tr("There are more lines.") : QString();
    return text.isEmpty() ? tr("The file has no such line.") : text;
}

}  // namespace orvik
