#include "desktop/session/long_text.h"

#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>

#include "desktop/text/short_text.h"

namespace orvik {
namespace {

// In lines and letters; the longest of our questions has far less.
constexpr qsizetype kShortLines = 15;
constexpr qsizetype kShortText = 1500;

bool IsLong(const QString& text) {
    return text.size() > kShortText || text.count(u'\n') >= kShortLines;
}

// The lines of a text, each as far as a field takes it: a longer one would not be read, but
// measured.
QString WithShortLines(const QString& text) {
    QStringList lines = text.split(u'\n');
    for (QString& line : lines) {
        line = Shortened(line, kMostTyped);
    }
    return lines.join(u'\n');
}

// As wide as the line with the most letters and as high as the lines that a box may have, on a
// small screen less.
QSize SizeFor(const QPlainTextEdit& edit, const QSize& screen) {
    QString longest;
    for (const QString& line : edit.toPlainText().split(u'\n')) {
        if (line.size() > longest.size()) {
            longest = line;
        }
    }
    const QFontMetrics letters = edit.fontMetrics();
    const int frame = 2 * (edit.frameWidth() + static_cast<int>(edit.document()->documentMargin()));
    const QSize size(letters.horizontalAdvance(longest) + letters.averageCharWidth() + frame +
                         edit.verticalScrollBar()->sizeHint().width(),
                     static_cast<int>(kShortLines) * letters.lineSpacing() + frame);
    return size.boundedTo(screen / 2);
}

}  // namespace

void LetTextBeRead(QMessageBox& box) {
    const QString text = box.text();
    if (text.size() > kMostTyped) {
        // The label measures what it has, also where it is hidden.
        box.setText(Shortened(text));
    }
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    if (!IsLong(text)) {
        return;
    }
    auto* const label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    auto* const grid = qobject_cast<QGridLayout*>(box.layout());
    if (label == nullptr || grid == nullptr) {
        return;
    }
    auto* const edit = new QPlainTextEdit(WithShortLines(text), &box);
    edit->setObjectName(QStringLiteral("longText"));
    edit->setAccessibleName(QObject::tr("Text of the message"));
    edit->setReadOnly(true);
    edit->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    edit->setTabChangesFocus(true);
    edit->setLineWrapMode(QPlainTextEdit::NoWrap);
    edit->setFixedSize(SizeFor(*edit, box.screen()->availableSize()));
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid->getItemPosition(grid->indexOf(label), &row, &column, &rows, &columns);
    // A hidden widget takes no room in its layout.
    label->hide();
    grid->addWidget(edit, row, column, rows, columns);
}

}  // namespace orvik
