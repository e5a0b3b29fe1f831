#include "desktop/book/move_work.h"

#include <QPointer>
#include <utility>
#include <vector>

namespace orvik {

MoveWork::MoveWork(BookDocument& document,
                   BookWorker& worker,
                   FileSystem& files,
                   BookDocument::Numbers records,
                   QObject* parent)
    : QObject(parent),
      document_(document),
      worker_(worker),
      files_(files),
      numbers_(std::move(records)) {
    connect(&worker_, &BookWorker::ended, this, &MoveWork::takeEnd);
    // What the worker's end begins comes first.
    connect(this, &MoveWork::workerIsFree, this, &MoveWork::tryToRun, Qt::QueuedConnection);
    connect(&worker_, &BookWorker::progressed, this, [this](const QString& step, int percent) {
        if (runs_ && !waiting_) {
            emit progressed(step, percent);
        }
    });
}

MoveWork::~MoveWork() {
    if (runs_) {
        worker_.cancel();
    }
}

std::shared_ptr<const book_cli::Loaded> MoveWork::records() {
    if (!records_ || revision_ != document_.revision()) {
        std::erase_if(numbers_, [this](auto number) { return !document_.isThere(number); });
        records_ = document_.snapshot(numbers_).Copy;
        revision_ = document_.revision();
    }
    return records_;
}

std::vector<std::string> MoveWork::sources() {
    const book::Book& book = records()->Book;
    std::vector<std::string> names;
    for (std::uint32_t i = 0; i < book.SourceCount(); ++i) {
        names.push_back(book.SourceAt(i).Name());
    }
    return names;
}

bool MoveWork::areAll() const {
    return revision_ == document_.revision() && numbers_.size() == document_.thereCount();
}

std::shared_ptr<const MovePreview> MoveWork::preview() const {
    return revision_ == document_.revision() ? preview_ : nullptr;
}

void MoveWork::prepare(const book_cli::Arguments& chosen) {
    auto made = std::make_shared<std::shared_ptr<const MovePreview>>();
    // The last one may be large, so it goes there, too.
    auto old = std::make_shared<std::shared_ptr<const MovePreview>>(std::exchange(preview_, {}));
    start(
        Job::Preparing,
        [&files = files_, records = records(), chosen, made, old](const BookWorker::Watch& watch) {
            old->reset();
            *made = PrepareMove(files, *records, chosen, watch);
        },
        [this, made] {
            preview_ = *made;
            job_ = Job::None;
            emit prepared(true, {});
        });
}

void MoveWork::save(const std::string& name, const std::string& may_replace) {
    write(Job::Saving,
          [&files = files_, preview = preview_, name, may_replace](const BookWorker::Watch& watch) {
              return SaveMove(files, *preview, name, may_replace, watch);
          });
}

void MoveWork::keep(const std::string& name, const std::string& may_replace) {
    write(Job::Keeping,
          [&files = files_, preview = preview_, saved = saved_, name, may_replace](
              const BookWorker::Watch& watch) {
              return KeepSummary(files, *preview, saved, name, may_replace, watch);
          });
}

void MoveWork::write(Job job, Act act) {
    auto end = std::make_shared<MoveEnd>();
    start(
        job,
        [act = std::move(act), end](const BookWorker::Watch& watch) { *end = act(watch); },
        [this, job, end] {
            if (job == Job::Saving && end->Status == cli::ExitStatus::Done) {
                saved_ = *end;
            }
            job_ = Job::None;
            emit wrote(job, *end);
        });
}

void MoveWork::cancel() {
    if (waiting_) {
        waiting_ = {};
        stop({});
    } else if (runs_) {
        worker_.cancel();
    }
}

void MoveWork::start(Job job, BookWorker::Work work, std::function<void()> done) {
    job_ = job;
    waiting_ = std::move(work);
    done_ = std::move(done);
    emit began(job);
    if (runs_) {
        worker_.cancel();
    }
    tryToRun();
}

void MoveWork::tryToRun() {
    if (!waiting_ || worker_.isBusy()) {
        return;
    }
    runs_ = true;
    const QString what = job_ == Job::Preparing ? tr("Looking at the new file") : tr("Saving");
    // What was cancelled may have been done before it heard of that, and is not wanted any more.
    worker_.run(what,
                std::exchange(waiting_, {}),
                [self = QPointer<MoveWork>(this), done = std::exchange(done_, {})] {
                    if (!self.isNull() && self->job_ != Job::None && !self->waiting_) {
                        done();
                    }
                });
}

// When the worker is free again: one that runs here may be over, and one that waits begins.
void MoveWork::takeEnd(bool is_done, const QString& why) {
    const bool ran = std::exchange(runs_, false);
    if (waiting_) {
        emit workerIsFree();
    } else if (ran && !is_done && job_ != Job::None) {
        stop(why);
    }
}

void MoveWork::stop(const QString& why) {
    const Job job = std::exchange(job_, Job::None);
    if (job == Job::Preparing) {
        emit prepared(false, why);
        return;
    }
    MoveEnd end;
    end.IsCancelled = why.isEmpty();
    end.Status = end.IsCancelled ? cli::ExitStatus::Problem : cli::ExitStatus::InputOutput;
    if (!end.IsCancelled) {
        end.Told.append(why);
    }
    emit wrote(job, end);
}

}  // namespace orvik
