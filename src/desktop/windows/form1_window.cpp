#include "desktop/windows/form1_window.h"

#include <QCloseEvent>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QUrl>

#include "desktop/text/text_box_view.h"
#include "desktop/text/text_codec.h"
#include "desktop/views/control_views.h"
#include "desktop/views/status_bar_view.h"

namespace orvik {
namespace {

// The one file that a drag carries, empty if it carries anything else.
QString DraggedFile(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

}  // namespace

Form1Window::Form1Window(Module1& module, Desktop& desktop)
    : form_(module.form1),
      desktop_(desktop),
      module_(module),
      events_(module, module.form1, desktop) {
    setObjectName(QStringLiteral("Form1"));
    setAcceptDrops(true);
    setCentralWidget(new QWidget(this));
    addMenus();
    addFind();
    addText();
    addLists();
    addButtons();
    status_bar_ = new StatusBarView(form_.StatusBar1, form_.ProgressBar1, this);
    status_bar_->setObjectName(QStringLiteral("StatusBar1"));
    status_bar_->setAccessibleName(tr("Status bar"));
    setStatusBar(status_bar_);
    drop_is_over_.setSingleShot(true);
    connect(&drop_is_over_, &QTimer::timeout, this, [this] {
        if (!desktop_.isRunning()) {
            openBook(dropped_file_);
        }
    });
    desktop_.add(form_, *this);
    resize(startSize());
    Form1Window::sync();
}

Form1Window::~Form1Window() {
    desktop_.remove(form_);
}

void Form1Window::sync() {
    SyncTitle(*this, form_.Caption);
    syncMenus();
    syncControls();
    status_bar_->sync();
    status_bar_->setNote(ToLetters(module_.Note.Text()));
    place();
}

std::optional<Encoding> Form1Window::selectionEncoding() const {
    return on_selection_ ? std::optional(text1_->encoding()) : std::nullopt;
}

void Form1Window::openBook(const QString& name) {
    events_.run([&] {
        module_.history.Run(Form::CommandOf(form_.ControlNamed("mnuOpen")).Title,
                            [&] { form_.OpenBook(QFile::encodeName(name).toStdString()); });
    });
}

bool Form1Window::endForLogOut() {
    events_.run([this] { form_.Unload(); }, AtYield::Taken);
    return desktop_.hasEnded();
}

// The window goes when the program ends, not before.
void Form1Window::closeEvent(QCloseEvent* event) {
    events_.close(*event);
}

void Form1Window::keyReleaseEvent(QKeyEvent* event) {
    if (!events_.releaseKey(*event)) {
        QMainWindow::keyReleaseEvent(event);
    }
}

void Form1Window::dragEnterEvent(QDragEnterEvent* event) {
    if (!desktop_.isRunning() && !DraggedFile(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void Form1Window::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    // The other program waits until the drop is over, and opening may ask a question.
    dropped_file_ = DraggedFile(*event->mimeData());
    drop_is_over_.start(0);
}

}  // namespace orvik
