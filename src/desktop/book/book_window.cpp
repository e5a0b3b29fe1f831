#include "desktop/book/book_window.h"

#include <QTabWidget>
#include <memory>
#include <utility>

#include "book_cli/inputs.h"
#include "desktop/book/duplicates_page.h"
#include "desktop/book/person_page.h"
#include "desktop/book/problems_page.h"
#include "desktop/book/worker_console.h"

namespace orvik {

BookWindow::BookWindow(FileSystem& files, RecentBooks& books)
    : files_(files),
      books_(books),
      panel_(new QTabWidget(this)),
      person_(new PersonPage(document_, checks_, panel_)),
      problems_(new ProblemsPage(document_, checks_, panel_)),
      duplicates_(new DuplicatesPage(document_, worker_, files_, panel_)) {
    setObjectName(QStringLiteral("bookWindow"));
    panel_->addTab(person_, tr("Person"));
    panel_->addTab(problems_, tr("Problems"));
    panel_->addTab(duplicates_, tr("Duplicates"));
    setCentralWidget(panel_);
}

void BookWindow::open(std::vector<Input> inputs) {
    if (worker_.isBusy()) {
        return;
    }
    const BookDocument::Snapshot snapshot = document_.snapshot();
    auto told = std::make_shared<QStringList>();
    document_.setFrozen(true);
    worker_.run(
        tr("Reading"),
        [&files = files_, snapshot, told, inputs = std::move(inputs)](
            const BookWorker::Watch& watch) {
            WorkerConsole around(files, watch);
            for (const Input& one : inputs) {
                watch.Begin(one.Name);
                if (one.Bytes) {
                    book_cli::LoadBytes(around.console(), one.Name, *one.Bytes, *snapshot.Copy);
                } else {
                    book_cli::Load(around.console(), {&one.Name, 1}, {}, *snapshot.Copy, {});
                }
            }
            *told = around.told();
        },
        [this, snapshot, told] { takeRead(snapshot, *told); });
}

void BookWindow::takeRead(const BookDocument::Snapshot& read, const QStringList& /*told*/) {
    document_.setFrozen(false);
    const auto& contacts = read.Copy->Book.Contacts;
    const std::vector<book::Contact> added(
        contacts.begin() + static_cast<std::ptrdiff_t>(read.Records.size()), contacts.end());
    document_.takeOver(read, tr("Open"), {}, added);
}

}  // namespace orvik
