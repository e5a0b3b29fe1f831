#include "desktop/session/recovery_offer.h"

#include <QDateTime>
#include <QLocale>
#include <QMessageBox>
#include <array>
#include <vector>

#include "desktop/session/choice_box.h"
#include "desktop/text/plain_text.h"

namespace orvik {

QString WhatWasLeft(const QString& book, std::int64_t seconds, const QString& amount) {
    const QDateTime when = QDateTime::fromSecsSinceEpoch(seconds);
    const QString time = QLocale().toString(when, QLocale::ShortFormat);
    return QObject::tr("The program ended before %1 was saved. It was kept on %2, with %3.")
        .arg(book, time, amount);
}

LeftAnswer AskAboutLeft(Desktop& desktop, const RecoveryCopy& copy) {
    const QString entries =
        copy.Entries == 1 ? QObject::tr("1 entry") : QObject::tr("%1 entries").arg(copy.Entries);
    const QString book = copy.File.empty() ? QObject::tr("a new book") : ShortName(copy.File);
    constexpr std::array kAnswers{
        LeftAnswer::Restore, LeftAnswer::SaveAs, LeftAnswer::Discard, LeftAnswer::NotNow};
    const std::vector<Choice> choices = {
        {QObject::tr("&Restore"), QMessageBox::AcceptRole},
        {QObject::tr("&Save as..."), QMessageBox::ActionRole},
        {QObject::tr("&Discard"), QMessageBox::DestructiveRole},
        {QObject::tr("&Not now"), QMessageBox::RejectRole},
    };
    const QString text =
        WhatWasLeft(book, copy.Seconds, entries) + u'\n' +
        QObject::tr("Do you want to restore it, to save it under a name, or to discard it?");
    return kAnswers.at(AskForChoice(desktop, text, choices, 0));
}

}  // namespace orvik
