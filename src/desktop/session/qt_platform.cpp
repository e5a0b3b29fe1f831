#include "desktop/session/qt_platform.h"

#include <sys/stat.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QWidget>
#include <QWindow>
#include <algorithm>

#include "app/form.h"
#include "app/messages.h"
#include "app/run_time_error.h"
#include "desktop/session/autostart.h"
#include "desktop/text/system_clipboard.h"
#include "desktop/text/text_codec.h"
#include "platform/system_files.h"

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

QString ShownText(std::string_view text) {
    return ToLetters(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

}  // namespace

QtPlatform::QtPlatform(Desktop& desktop)
    : desktop_(desktop),
      settings_(SettingsStore::UserFile(), [this](const std::string& problem) { tell(problem); }) {}

CopyAnswer QtPlatform::OfferCopy(const std::string& book, const std::string& copy) {
    const QString name = QFile::decodeName(book.c_str());
    const QString copy_name = QFile::decodeName(copy.c_str());
    return desktop_.nested([&] {
        QMessageBox box(
            QMessageBox::Question,
            ToLetters(kTitle),
            QObject::tr("A saving of %1 was interrupted. Its old contents stand in "
                        "%2.\nDo you want to restore them, or to keep the file as it is "
                        "and remove the copy?")
                .arg(name, copy_name),
            QMessageBox::NoButton,
            desktop_.frontWindow());
        box.setTextFormat(Qt::PlainText);
        box.setWindowModality(Qt::WindowModal);
        const QPushButton* const restore =
            box.addButton(QObject::tr("&Restore"), QMessageBox::AcceptRole);
        const QPushButton* const keep =
            box.addButton(QObject::tr("&Keep as it is"), QMessageBox::DestructiveRole);
        QPushButton* const later = box.addButton(QObject::tr("&Not now"), QMessageBox::RejectRole);
        box.setDefaultButton(later);
        box.setEscapeButton(later);
        box.exec();
        return box.clickedButton() == restore ? CopyAnswer::Restore
               : box.clickedButton() == keep  ? CopyAnswer::Keep
                                              : CopyAnswer::NotNow;
    });
}

Answer QtPlatform::ShowBox(const MessageBox& box) {
    std::string text = box.Cause ? box.Text + nameOfUnsaved() : box.Text;
    if (!box.Detail.empty()) {
        text += "\r\n\r\n" + box.Detail;
    }
    return desktop_.nested([&] {
        QMessageBox shown(box.Sign == Icon::Question ? QMessageBox::Question : QMessageBox::NoIcon,
                          ShownText(box.Title),
                          ShownText(text),
                          ButtonsOf(box.Choice),
                          desktop_.frontWindow());
        shown.setTextFormat(Qt::PlainText);
        shown.setWindowModality(Qt::WindowModal);
        shown.setEscapeButton(EscapeOf(box.Choice));
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
    if (SystemFiles().IsSame(from, to)) {
        tell("The address book cannot be exported over itself. Please select another output file.");
        return false;
    }
    const QFileInfo file(QFile::decodeName(to.c_str()));
    return !file.isFile() || ShowBox({QFile::encodeName(file.fileName()).toStdString() +
                                          " already exists.\r\nDo you want to replace it?",
                                      std::string(kTitle),
                                      Buttons::YesNo,
                                      Icon::Question}) == Answer::Yes;
}

std::string QtPlatform::ClipboardText() {
    return ClipboardBytes(desktop_.selectionEncoding().value_or(Encoding::Utf8));
}

void QtPlatform::SetClipboardText(std::string_view text) {
    SetClipboardBytes(text, desktop_.selectionEncoding().value_or(EncodingOf(text)));
}

std::optional<std::string> QtPlatform::GetSetting(std::string_view section, std::string_view key) {
    return settings_.Get(section, key);
}

void QtPlatform::SaveSetting(std::string_view section,
                             std::string_view key,
                             std::string_view value) {
    settings_.Save(section, key, value);
}

bool QtPlatform::CreateShellLink(const ShellLink& link) {
    if (link.Folder != kStartUp) {
        return false;
    }
    // The target is this program, under a name that is not its file's.
    QStringList command = {QCoreApplication::applicationFilePath()};
    command += QProcess::splitCommand(ToLetters(link.Arguments));
    return CreateAutostart(ToLetters(link.Name), command);
}

void QtPlatform::RemoveShellLink(std::string_view folder, std::string_view name) {
    if (folder == kStartUp) {
        RemoveAutostart(ToLetters(name));
    }
}

void QtPlatform::ShowForm(Form& form, Showing showing) {
    View* const view = desktop_.viewOf(form);
    desktop_.syncAll();
    QWidget& window = view->window();
    const bool modal = showing == Showing::Modal;
    // It blocks the program's windows, which are all of one family; the help's are not.
    window.setWindowModality(modal ? Qt::WindowModal : Qt::NonModal);
    if (QWidget* const front = desktop_.frontWindow(); modal && front != nullptr) {
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
    struct stat status {};
    return stat(name.c_str(), &status) == 0 ? FileMark{status.st_ino, status.st_size} : FileMark{};
}

std::string QtPlatform::nameOfUnsaved() {
    if (!target_ || target_->Event != desktop_.event() ||
        !(markOf(target_->Name) == target_->Before)) {
        return {};
    }
    const QString name = QFile::decodeName(target_->Name.c_str());
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
    ShowBox({text, std::string(kTitle), Buttons::OK, Icon::None});
}

}  // namespace orvik
