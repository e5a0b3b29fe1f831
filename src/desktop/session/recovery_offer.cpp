#include "desktop/session/recovery_offer.h"

#include <QDateTime>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>

#include "app/messages.h"
#include "desktop/text/plain_text.h"
#include "desktop/text/text_codec.h"

namespace orvik {

LeftAnswer AskAboutLeft(Desktop& desktop, const RecoveryCopy& copy) {
    const QLocale locale;
    const QDateTime when = QDateTime::fromSecsSinceEpoch(copy.Seconds);
    const QString time = locale.toString(when, QLocale::ShortFormat);
    const QString entries =
        copy.Entries == 1 ? QObject::tr("1 entry") : QObject::tr("%1 entries").arg(copy.Entries);
    const QString book = copy.File.empty() ? QObject::tr("a new book") : ShownName(copy.File);
    return desktop.nested([&] {
        QMessageBox box(QMessageBox::Question,
                        ToLetters(kTitle),
                        QObject::tr("The program ended before %1 was saved. It was kept on %2, "
                                    "with %3.\nDo you want to restore it, to save it under a "
                                    "name, or to discard it?")
                            .arg(book, time, entries),
                        QMessageBox::NoButton,
                        desktop.frontWindow());
        box.setTextFormat(Qt::PlainText);
        box.setWindowModality(Qt::WindowModal);
        const QPushButton* const save =
            box.addButton(QObject::tr("&Save as..."), QMessageBox::ActionRole);
        const QPushButton* const discard =
            box.addButton(QObject::tr("&Discard"), QMessageBox::DestructiveRole);
        QPushButton* const later = box.addButton(QObject::tr("&Not now"), QMessageBox::RejectRole);
        QPushButton* const restore =
            box.addButton(QObject::tr("&Restore"), QMessageBox::AcceptRole);
        box.setDefaultButton(restore);
        box.setEscapeButton(later);
        box.exec();
        return box.clickedButton() == restore   ? LeftAnswer::Restore
               : box.clickedButton() == save    ? LeftAnswer::SaveAs
               : box.clickedButton() == discard ? LeftAnswer::Discard
                                                : LeftAnswer::NotNow;
    });
}

}  // namespace orvik
