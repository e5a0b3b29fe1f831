#include "desktop/session/recovery_offer.h"

#include <QDateTime>
#include <QLocale>
#include <QMessageBox>
#include <array>
#include <vector>

#include "desktop/session/choice_box.h"
#include "desktop/text/plain_text.h"

namespace orvik {

LeftAnswer AskAboutLeft(Desktop& desktop, const RecoveryCopy& copy) {
    const QLocale locale;
    const QDateTime when = QDateTime::fromSecsSinceEpoch(copy.Seconds);
    const QString time = locale.toString(when, QLocale::ShortFormat);
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
    const QString text = QObject::tr(
                             "The program ended before %1 was saved. It was kept on %2, "
                             "with %3.\nDo you want to restore it, to save it under a "
                             "name, or to discard it?")
                             .arg(book, time, entries);
    return kAnswers.at(AskForChoice(desktop, text, choices, 0));
}

}  // namespace orvik
