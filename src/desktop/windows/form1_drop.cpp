// Opening the file that the command line names, or that is dropped on the main window.

#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <memory>

#include "app/book_file.h"
#include "desktop/text/plain_text.h"
#include "desktop/windows/form1_window.h"

namespace orvik {
namespace {

// The one file that a drag carries, empty if it carries anything else.
QString DraggedFile(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    const QString name = urls.size() == 1 ? urls.front().toLocalFile() : QString();
    return QFileInfo(name).isDir() ? QString() : name;
}

// Why a file cannot be opened, empty if it can.
QString WhyNotOpened(FileSystem& files, const QString& name) {
    const std::string path = QFile::encodeName(name).toStdString();
    FileStatus status;
    std::error_code error = Persist([&] { return files.Status(path, status); });
    if (!error && status.Kind == FileKind::Folder) {
        return QObject::tr("It is a folder.");
    }
    // Opening a pipe would wait for whoever writes to it.
    if (!error && status.Kind != FileKind::Missing && status.Kind != FileKind::Regular) {
        return QObject::tr("It is no ordinary file.");
    }
    std::unique_ptr<InputFile> file;
    if (!error) {
        error = Persist([&] { return files.OpenToRead(path, file); });
    }
    // One byte tells of a disk that fails.
    std::string bytes;
    if (!error) {
        error = ReadBytes(*file, 1, bytes);
    }
    return error ? QString::fromLocal8Bit(QByteArray::fromStdString(error.message())) : QString();
}

}  // namespace

void Form1Window::addDrop() {
    setAcceptDrops(true);
    drop_is_over_.setSingleShot(true);
    connect(&drop_is_over_, &QTimer::timeout, this, [this] {
        if (!desktop_.isRunning()) {
            openBooks({dropped_file_});
        }
    });
}

void Form1Window::openBooks(const QStringList& names) {
    if (names.isEmpty()) {
        return;
    }
    const bool one = names.size() == 1;
    const QString problem = one ? WhyNotOpened(module_.files, names.front())
                                : tr("Only one book can be open at a time.");
    if (problem.isEmpty()) {
        openBook(names.front());
        return;
    }
    const QString what =
        one ? ShownName(names.front())
            : tr("%1 and %2 more").arg(ShownName(names.front()), QString::number(names.size() - 1));
    events_.run([&] {
        module_.TellFailed(tr("%1 cannot be opened.").arg(what).toStdString() + "\r\n" +
                           problem.toStdString());
    });
}

void Form1Window::openBook(const QString& name) {
    const std::string book = QFile::encodeName(name).toStdString();
    events_.run([&] {
        fileChosen(book);
        module_.history.Run(Form::CommandOf(form_.ControlNamed("mnuOpen")).Title,
                            [&] { form_.OpenBook(book); });
    });
}

// The file is only read, so the other program must not take it for moved.
void Form1Window::dragEnterEvent(QDragEnterEvent* event) {
    if (!desktop_.isRunning() && event->possibleActions().testFlag(Qt::CopyAction) &&
        !DraggedFile(*event->mimeData()).isEmpty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

void Form1Window::dropEvent(QDropEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // The other program waits until the drop is over, and opening may ask a question.
    dropped_file_ = DraggedFile(*event->mimeData());
    drop_is_over_.start(0);
}

}  // namespace orvik
