#include "desktop/windows/form1_window.h"

#include <QCloseEvent>

#include "desktop/text/text_box_view.h"
#include "desktop/text/text_codec.h"
#include "desktop/views/control_views.h"
#include "desktop/views/list_box_view.h"
#include "desktop/views/status_bar_view.h"
#include "desktop/windows/tool_bar.h"

namespace orvik {

Form1Window::Form1Window(Module1& module, Desktop& desktop, RecentBooks& books)
    : form_(module.form1),
      desktop_(desktop),
      module_(module),
      books_(books),
      events_(module, module.form1, desktop) {
    setObjectName(QStringLiteral("Form1"));
    setCentralWidget(new QWidget(this));
    addMenus();
    addFind();
    addText();
    // In the order in which Tab goes through them.
    addHeadings();
    addEmptyNote();
    addLists();
    addButtons();
    addBar();
    addNotes();
    status_bar_ = new StatusBarView(form_.StatusBar1, form_.ProgressBar1, this);
    status_bar_->setObjectName(QStringLiteral("StatusBar1"));
    status_bar_->setAccessibleName(tr("Status bar"));
    setStatusBar(status_bar_);
    addDrop();
    desktop_.add(form_, *this);
    resize(startSize());
    Form1Window::sync();
    lists_.front().second->setFocus();
}

Form1Window::~Form1Window() {
    module_.saved.Follow({});
    // The text goes before the tool bar, and what it says then is not heard.
    disconnect(text1_, nullptr, tool_bar_, nullptr);
    desktop_.remove(form_);
}

void Form1Window::sync() {
    SyncTitle(*this, title(), TitleMark::Shown);
    syncMenus();
    syncControls();
    status_bar_->sync(desktop_.hasYielded()  ? StatusBarView::Running::Extraction
                      : desktop_.isRunning() ? StatusBarView::Running::Command
                                             : StatusBarView::Running::Nothing);
    syncHeadings();
    tool_bar_->sync();
    syncNotes();
    syncRecovery();
    if (!desktop_.isRunning()) {
        module_.saved.SetFate(SavedBook::Fate::Unknown);
    }
    status_bar_->setNote(note());
    place();
}

std::optional<Encoding> Form1Window::selectionEncoding() const {
    return on_selection_ ? std::optional(text1_->encoding()) : std::nullopt;
}

const std::string& Form1Window::title() const {
    return form_.Caption == failed_caption_ ? title_kept_ : form_.Caption;
}

void Form1Window::fileChosen(const std::string& name) {
    title_before_ = title();
    file_note_.clear();
    // The book under this name is about to be another one.
    if (failed_caption_.ends_with(name)) {
        failed_caption_.clear();
    }
}

void Form1Window::fileNoted(const std::string& text) {
    file_note_ = text;
    status_bar_->setNote(note());
}

void Form1Window::waits(const std::string& text) {
    status_bar_->showForNow(ToLetters(text));
}

QString Form1Window::note() const {
    const QString of_book = ToLetters(module_.Note.Text());
    const QString of_file = ToLetters(file_note_);
    return of_book.isEmpty() || of_file.isEmpty() ? of_book + of_file : of_book + u'\n' + of_file;
}

void Form1Window::saveFailed() {
    failed_caption_ = form_.Caption;
    title_kept_ = title_before_;
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

}  // namespace orvik
