#include "desktop/book/book_keeper.h"

#include <QFile>
#include <algorithm>
#include <ctime>
#include <string>
#include <utility>

#include "app/scope.h"
#include "book/write_vcard.h"
#include "desktop/text/text_codec.h"

namespace orvik {
namespace {

constexpr const char* kCards = "vCard";
// Stands in no file's name.
constexpr char kBetweenNames = '\0';
// Behind the name of a file whose lines are not those of the book.
constexpr std::string_view kRestored = " (restored)";

// While a copy cannot be written it is tried again, less often.
constexpr int kSeldom = 10;
// The first change is kept soon, with those that follow at once.
constexpr int kSoon = 8;

std::string NamesOf(const book::Book& book) {
    std::string names;
    for (std::uint32_t i = 0; i < book.SourceCount(); ++i) {
        std::string_view name = book.SourceAt(i).Name();
        if (name.ends_with(kRestored)) {
            name.remove_suffix(kRestored.size());
        }
        names.append(names.empty() ? "" : std::string(1, kBetweenNames)).append(name);
    }
    return names;
}

}  // namespace

BookKeeper::BookKeeper(BookDocument& document,
                       FileSystem& files,
                       std::chrono::milliseconds interval)
    : document_(document),
      store_(files, kFolder),
      interval_(interval),
      maker_([this] { emit made(); }) {
    // It is told of by the other thread.
    connect(this, &BookKeeper::made, this, &BookKeeper::takeMade, Qt::QueuedConnection);
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &BookKeeper::look);
    // Each change is a step, and has been done when the stack tells of it.
    connect(&document_.undoStack(), &QUndoStack::indexChanged, this, &BookKeeper::see);
    connect(&document_.undoStack(), &QUndoStack::cleanChanged, this, &BookKeeper::see);
}

void BookKeeper::see() {
    if (!document_.isUnsaved()) {
        forget();
        return;
    }
    // Of a book without records the last copy stays: undoing brings them back.
    if (document_.thereCount() == 0 || given_ == document_.revision() || timer_.isActive()) {
        return;
    }
    const std::chrono::milliseconds soon = interval_ / kSoon;
    const std::chrono::milliseconds passed(since_made_.isValid() ? since_made_.elapsed() : 0);
    timer_.start(since_made_.isValid() ? std::max(soon, interval_ - passed) : soon);
}

// What the threads have done is looked at later.
void BookKeeper::look() {
    const QString problem = ToLetters(writer_.IsBusy() ? std::string() : writer_.Problem());
    if (!problem.isEmpty()) {
        tell(problem);
        given_.reset();
    }
    const bool needs = document_.isUnsaved() && document_.thereCount() > 0;
    if (needs && given_ != document_.revision() && !making_) {
        make();
    }
    if (needs && (making_ || writer_.IsBusy() || !problem.isEmpty())) {
        timer_.start(problem.isEmpty() ? interval_ : interval_ * kSeldom);
    }
}

void BookKeeper::make() {
    since_made_.start();
    making_ = std::make_shared<Making>(Making{document_.snapshot(), document_.revision()});
    making_->Copy = {.Mode = kCards,
                     .File = NamesOf(document_.book()),
                     .Entries = making_->Of.Records.size(),
                     .Seconds = std::time(nullptr)};
    maker_.Start([making = making_](const book::WorkThread::Watch& watch) {
        // To free many records takes time as well.
        const OnExit gone([&making] { making->Of = {}; });
        book::Book& book = making->Of.Copy->Book;
        book.HowFar = watch.Progress();
        making->Copy.Text = SharedText(book::WriteVCard(book, book::Dialect::VCard40));
    });
}

void BookKeeper::takeMade() {
    const book::WorkThread::State state = maker_.Look();
    if (!making_ || state.How == book::WorkThread::End::None) {
        return;
    }
    const std::shared_ptr<Making> made = std::exchange(making_, {});
    if (!made->IsWanted) {
        see();
        return;
    }
    if (state.How == book::WorkThread::End::Done) {
        given_ = made->Revision;
        writer_.Keep(std::move(made->Copy), std::exchange(adopted_, {}));
    } else if (state.How == book::WorkThread::End::Failed) {
        tell(QString::fromStdString(state.Why));
    }
    if (!timer_.isActive()) {
        timer_.start(interval_);
    }
}

void BookKeeper::forget() {
    timer_.stop();
    if (making_) {
        making_->IsWanted = false;
        maker_.Cancel();
    }
    if (given_ || !adopted_.empty()) {
        given_.reset();
        writer_.Forget(std::exchange(adopted_, {}));
    }
}

void BookKeeper::keepNow() {
    timer_.stop();
    const auto finish_making = [this] {
        maker_.Wait();
        takeMade();
    };
    if (making_) {
        finish_making();
    }
    if (document_.isUnsaved() && document_.thereCount() > 0 && given_ != document_.revision()) {
        make();
        finish_making();
    }
    writer_.Finish();
}

QStringList BookKeeper::filesOf(const RecoveryCopy& copy) {
    QStringList names;
    for (const QByteArray& name : QByteArray::fromStdString(copy.File).split(kBetweenNames)) {
        if (!name.isEmpty()) {
            names << QFile::decodeName(name);
        }
    }
    return names;
}

std::string BookKeeper::nameOf(const RecoveryCopy& copy) {
    std::string name = copy.File.substr(0, copy.File.find(kBetweenNames));
    const QStringList names = filesOf(copy);
    for (qsizetype i = 1; i < names.size(); ++i) {
        name.append(", ").append(QFile::encodeName(names[i].section(u'/', -1)).toStdString());
    }
    return name.append(kRestored);
}

void BookKeeper::adopt(RecoveryStore::Left left) {
    adopted_.push_back(std::move(left));
    // It stands on the disk under another's name only.
    timer_.start(0);
}

void BookKeeper::tell(const QString& problem) {
    if (!std::exchange(told_, true)) {
        emit failed(problem);
    }
}

}  // namespace orvik
