#include "desktop/session/qt_platform.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QProcess>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <array>
#include <vector>

#include "app/book_file.h"
#include "app/form.h"
#include "app/messages.h"
#include "app/run_time_error.h"
#include "desktop/session/autostart.h"
#include "desktop/session/choice_box.h"
#include "desktop/session/long_text.h"
#include "desktop/text/plain_text.h"
#include "desktop/text/system_clipboard.h"
#include "desktop/text/text_codec.h"
#include "desktop/views/control_views.h"

namespace orvik {
namespace {

// The program group of what starts with the session.
constexpr std::string_view kStartUp = "StartUp";

QMessageBox::StandardButtons ButtonsOf(Buttons choice) {
    switch (choice) {
        case Buttons::OK:
            return QMessageBox::Ok;
        case Buttons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case Buttons::YesNoCancel:
            break;
    }
    return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
}

// What closing a box or pressing Escape means.
QMessageBox::StandardButton EscapeOf(Buttons choice) {
    switch (choice) {
        case Buttons::OK:
            return QMessageBox::Ok;
        case Buttons::YesNo:
            return QMessageBox::No;
        case Buttons::YesNoCancel:
            break;
    }
    return QMessageBox::Cancel;
}

Answer AnswerOf(int button) {
    switch (button) {
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        case QMessageBox::Cancel:
            return Answer::Cancel;
        default:
            return Answer::OK;
    }
}

// What tells of a failure has a sign that its box does not ask for.
QMessageBox::Icon SignOf(const MessageBox& box) {
    if (box.Sign == Icon::Question) {
        return QMessageBox::Question;
    }
    return box.Cause || box.About != Matter::Other ? QMessageBox::Warning : QMessageBox::NoIcon;
}

QString ShownText(std::string_view text) {
    // By hand: QString::replace moves the rest of the text for each thousand of its line ends.
    const QString letters = ToLetters(text);
    QString shown;
    shown.reserve(letters.size());
    for (const QChar letter : letters) {
        if (letter == u'\n' && shown.endsWith(u'\r')) {
            shown.back() = letter;
        } else {
            shown.append(letter);
        }
    }
    return shown;
}

// A text with the name of a file in it, if that is not empty.
QString ShownText(std::string_view text, std::string_view name) {
    const std::size_t start = name.empty() ? std::string_view::npos : text.find(name);
    if (start == std::string_view::npos) {
        return ShownText(text);
    }
    return ShownText(text.substr(0, start)) + ShownName(name) +
           ShownText(text.substr(start + name.size()));
}

}  // namespace

QtPlatform::QtPlatform(Desktop& desktop, FileSystem& files, RecentBooks& books)
    : desktop_(desktop),
      books_(books),
      files_(files),
      settings_(
          files, SettingsStore::UserFile(), [this](const std::string& problem) { tell(problem); }) {
}

CopyAnswer QtPlatform::OfferCopy(const std::string& book, const std::string& copy) {
    constexpr std::array kAnswers{CopyAnswer::Restore, CopyAnswer::Keep, CopyAnswer::NotNow};
    const std::vector<Choice> choices = {
        {QObject::tr("&Restore"), QMessageBox::AcceptRole},
        {QObject::tr("&Keep as it is"), QMessageBox::DestructiveRole},
        {QObject::tr("&Not now"), QMessageBox::RejectRole},
    };
    const QString text = QObject::tr(
                             "A saving of %1 was interrupted. Its old contents stand in "
                             "%2.\nDo you want to restore them, or to keep the file as it is "
                             "and remove the copy?")
                             .arg(ShownName(book), ShownName(copy));
    return kAnswers.at(AskForChoice(desktop_, text, choices, kAnswers.size() - 1));
}

Answer QtPlatform::ShowBox(const MessageBox& box) {
    std::string text = box.Cause ? box.Text + nameOfUnsaved() : box.Text;
    if (!box.Detail.empty()) {
        text += "\r\n\r\n" + box.Detail;
    }
    return desktop_.nested([&] {
        QMessageBox shown(SignOf(box),
                          ShownText(box.Title),
                          ShownText(text, box.FileName),
                          ButtonsOf(box.Choice),
                          desktop_.frontWindow());
        shown.setTextFormat(Qt::PlainText);
        shown.setWindowModality(Qt::WindowModal);
        LetTextBeRead(shown);
        shown.setEscapeButton(EscapeOf(box.Choice));
        ShowWordsOnly(shown);
        return AnswerOf(shown.exec());
    });
}

std::string QtPlatform::ShowFileDialog(FileDialog& dialog) {
    std::string name =
        desktop_.nested([&] { return dialogs_.show(dialog, desktop_.frontWindow()); });
    if (!name.empty()) {
        target_.reset();
        if (dialog.Kind == DialogKind::Save) {
            target_ = {name, markOf(name), desktop_.event()};
        }
        desktop_.fileChosen(name);
    }
    return name;
}

bool QtPlatform::MayExport(const std::string& from, const std::string& to) {
    if (files_.IsSame(from, to)) {
        tell("The address book cannot be exported over itself. Please select another output file.");
        return false;
    }
    const QString name = QFile::decodeName(to.c_str());
    return markOf(to).Kind != FileKind::Regular || desktop_.nested([&] {
        return MayOverwrite(OverwriteQuestion(name, Saving::Replaces, false),
                            Saving::Replaces,
                            desktop_.frontWindow());
    });
}

std::string QtPlatform::ClipboardText() {
    return ClipboardBytes(desktop_.selectionEncoding().value_or(Encoding::Utf8));
}

void QtPlatform::SetClipboardText(std::string_view text) {
    SetClipboardBytes(text, desktop_.selectionEncoding());
}

std::optional<std::string> QtPlatform::GetSetting(std::string_view section, std::string_view key) {
    return settings_.Get(section, key);
}

void QtPlatform::SaveSetting(std::string_view section,
                             std::string_view key,
                             std::string_view value) {
    settings_.Save(section, key, value);
}

void QtPlatform::DeleteSettings() {
    settings_.Clear();
    books_.Clear();
    if (deletes_) {
        deletes_();
    }
}

bool QtPlatform::CreateShellLink(const ShellLink& link) {
    if (link.Folder != kStartUp) {
        return false;
    }
    // The target is this program, under a name that is not its file's.
    QStringList command = {QCoreApplication::applicationFilePath()};
    command += QProcess::splitCommand(ToLetters(link.Arguments));
    return CreateAutostart(files_, ToLetters(link.Name), command);
}

void QtPlatform::RemoveShellLink(std::string_view folder, std::string_view name) {
    if (folder == kStartUp) {
        RemoveAutostart(files_, ToLetters(name));
    }
}

void QtPlatform::ShowForm(Form& form, Showing showing) {
    View* const view = desktop_.viewOf(form);
    desktop_.syncAll();
    QWidget& window = view->window();
    const bool modal = showing == Showing::Modal;
    // It blocks the program's windows, which are all of one family; the help's are not.
    window.setWindowModality(modal ? Qt::WindowModal : Qt::NonModal);
    QWidget* const front = desktop_.frontWindow();
    if (!modal && window.parentWidget() == nullptr && !window.isVisible()) {
        placeInTurn(window, front);
    }
    if (modal && front != nullptr) {
        // It stays above the window that waits for it, which need not be its owner.
        window.winId();
        if (front != &window && front->windowHandle() != nullptr) {
            window.windowHandle()->setTransientParent(front->windowHandle());
        }
    }
    window.show();
    window.activateWindow();
    if (!modal) {
        desktop_.waitUntilOnScreen(window);
    } else {
        desktop_.nested([&] {
            while (form.Visible() && !desktop_.hasEnded()) {
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            }
            return true;
        });
    }
}

// Of two windows that take turns the second comes where the first is, and each comes back where it
// was; left alone, the window manager would put it anywhere.
void QtPlatform::placeInTurn(QWidget& window, const QWidget* front) {
    // What another window belongs to has a handle before it is shown itself, and no place yet.
    if (QWindow* const handle = window.windowHandle();
        handle != nullptr && window.testAttribute(Qt::WA_WState_ExplicitShowHide)) {
        // Only a place that is asked for is told to the window manager.
        handle->setPosition(handle->position());
    } else if (front != nullptr) {
        PlaceOver(window, *front->window());
    }
}

void QtPlatform::HideForm(Form& form) {
    desktop_.viewOf(form)->window().hide();
}

void QtPlatform::CloseForm(Form& form) {
    HideForm(form);
}

void QtPlatform::ReportFailure(const RunTimeError& failure) {
    ShowBox({.Text = "Run-time error '" + std::to_string(failure.Number()) + "':\r\n\r\n" +
                     failure.what(),
             .Title = std::string(kTitle),
             .Cause = failure.Cause(),
             .Detail = failure.Detail()});
}

QtPlatform::FileMark QtPlatform::markOf(const std::string& name) {
    FileStatus status;
    // What cannot be told of a file is told by what is done with it.
    static_cast<void>(Persist([&] { return files_.Status(name, status); }));
    return {status.Kind, status.Identity.Number, status.Length()};
}

std::string QtPlatform::nameOfUnsaved() {
    if (!target_ || target_->Event != desktop_.event() ||
        !(markOf(target_->Name) == target_->Before)) {
        return {};
    }
    const QString name = ShownName(target_->Name);
    target_.reset();
    desktop_.saveFailed();
    return "\r\n\r\n" + QObject::tr("%1 was not saved.").arg(name).toStdString();
}

std::string QtPlatform::ProgramFolder() {
    return QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
}

std::string QtPlatform::ProgramName() {
    return QFile::encodeName(QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName())
        .toStdString();
}

void QtPlatform::tell(const std::string& text) {
    ShowBox({.Text = text, .Title = std::string(kTitle), .About = Matter::Failed});
}

}  // namespace orvik
