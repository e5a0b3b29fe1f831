// Reading files into a Book window: those that are chosen, dropped on it, or handed over.

#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>
#include <QTabWidget>
#include <QUrl>
#include <memory>
#include <utility>

#include "app/printable.h"
#include "book_cli/inputs.h"
#include "desktop/book/book_table.h"
#include "desktop/book/book_window.h"
#include "desktop/book/problems_page.h"
#include "desktop/book/worker_console.h"
#include "desktop/session/window_place.h"
#include "desktop/text/plain_text.h"

namespace orvik {
namespace {

// So many lines are said quietly; all of them are among the problems.
constexpr qsizetype kMostTold = 3;

QStringList DraggedFiles(const QMimeData& data) {
    QStringList names;
    for (const QUrl& url : data.urls()) {
        if (const QString name = url.toLocalFile(); !name.isEmpty()) {
            names.append(name);
        }
    }
    return names;
}

// "/a/b/c.ldif: ..." -> "c.ldif: ..."
QString WithoutFolder(const QString& line, const std::string& name) {
    const QString whole = QString::fromStdString(Printable(name));
    return line.startsWith(whole + QStringLiteral(": ")) ? line.mid(whole.lastIndexOf(u'/') + 1)
                                                         : line;
}

}  // namespace

void BookWindow::open(std::vector<Input> inputs) {
    if (worker_.isBusy()) {
        tell(tr("Something else is being done: wait for it, or cancel it."));
        return;
    }
    if (inputs.empty()) {
        return;
    }
    table_->finishTyping();
    tell({});
    const BookDocument::Snapshot snapshot = document_.snapshot();
    auto read = std::make_shared<Read>();
    document_.setFrozen(true);
    // Not when its connection is gone: whoever asked is told once.
    auto* const ended = new QObject(this);
    connect(&worker_, &BookWorker::ended, ended, [this, ended](bool is_done, const QString& why) {
        ended->deleteLater();
        if (!is_done) {
            tell(why.isEmpty() ? tr("Opening was cancelled. Nothing has changed.")
                               : tr("Nothing was opened: %1.").arg(why));
        }
    });
    const auto asked = std::make_shared<std::vector<Input>>(std::move(inputs));
    worker_.run(
        tr("Reading"),
        [&files = files_, snapshot, read, asked](const BookWorker::Watch& watch) {
            *read = readAll(files, watch, *asked, *snapshot.Copy);
        },
        [this, snapshot, read] { takeRead(snapshot, *read); });
}

BookWindow::Read BookWindow::readAll(FileSystem& files,
                                     const BookWorker::Watch& watch,
                                     std::vector<Input>& inputs,
                                     book_cli::Loaded& loaded) {
    Read read;
    for (Input& one : inputs) {
        WorkerConsole around(files, watch);
        watch.Begin(Printable(book::FileNameOf(one.Name)));
        const std::size_t before = loaded.Inputs.size();
        if (one.Bytes) {
            book_cli::LoadBytes(
                around.console(), one.Name, std::move(*one.Bytes), loaded, one.Form);
        } else {
            book_cli::Load(around.console(), {&one.Name, 1}, {}, loaded, {});
        }
        for (const QString& line : around.told()) {
            read.Told.append(WithoutFolder(line, one.Name));
        }
        if (loaded.Inputs.size() > before) {
            read.Names.push_back(one.Name);
            read.IsUnsaved = read.IsUnsaved || one.IsUnsaved;
        }
        if (loaded.Inputs.size() > before && !one.Bytes) {
            read.Books.push_back(one.Name);
        }
        for (std::size_t i = before; i < loaded.Inputs.size(); ++i) {
            if (loaded.Inputs[i].CharsetIsDoubtful) {
                const QString line = QString::fromStdString(Printable(one.Name) + ": " +
                                                            Printable(loaded.Inputs[i].Charset));
                read.Told.append(WithoutFolder(line, one.Name));
            }
        }
    }
    return read;
}

void BookWindow::takeRead(const BookDocument::Snapshot& snapshot, const Read& read) {
    const std::size_t count = read.Names.size();
    document_.takeRead(snapshot,
                       count == 1
                           ? tr("Open %1").arg(ShortName(book::FileNameOf(read.Names.front())))
                           : tr("Open %1 files").arg(count));
    for (const std::string& one : read.Books) {
        books_.Add(one);
    }
    if (read.IsUnsaved) {
        document_.markUnsaved();
        emit unsavedRead();
    }
    sync();
    tellRead(read.Told);
}

void BookWindow::tellRead(const QStringList& told) {
    if (told.isEmpty()) {
        return;
    }
    QStringList lines = told.mid(0, kMostTold);
    for (QString& line : lines) {
        line = ShownName(line);
    }
    if (told.size() > kMostTold) {
        lines.append(tr("and %1 more").arg(told.size() - kMostTold));
    }
    if (document_.thereCount() == 0) {
        tell(lines.join(u'\n'));
        return;
    }
    tell(lines.join(u'\n'), tr("Show problems"), [this] {
        panel_->setCurrentWidget(problems_);
        problems_->setFocus();
    });
}

void BookWindow::chooseFiles() {
    QFileDialog dialog(this,
                       tr("Open address books"),
                       state_file_.isEmpty() ? QString() : KeptFolder(state_file_));
    dialog.setObjectName(QStringLiteral("openBooksDialog"));
    dialog.setFileMode(QFileDialog::ExistingFiles);
    // What a file is, its content says.
    dialog.setNameFilter(tr("All files (*)"));
    dialog.setWindowModality(Qt::WindowModal);
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    const QStringList names = dialog.selectedFiles();
    if (!state_file_.isEmpty() && !names.isEmpty()) {
        KeepFolder(QFileInfo(names.front()).absolutePath(), state_file_);
    }
    openFiles(names);
}

void BookWindow::openFiles(const QStringList& names) {
    std::vector<Input> inputs;
    for (const QString& name : names) {
        inputs.push_back({QFile::encodeName(QFileInfo(name).absoluteFilePath()).toStdString()});
    }
    open(std::move(inputs));
}

// The files are only read, so the other program must not take them for moved.
void BookWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!worker_.isBusy() && event->possibleActions().testFlag(Qt::CopyAction) &&
        !DraggedFiles(*event->mimeData()).isEmpty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

void BookWindow::dropEvent(QDropEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // The other program waits until the drop is over.
    dropped_ = DraggedFiles(*event->mimeData());
    drop_is_over_.start(0);
}

}  // namespace orvik
