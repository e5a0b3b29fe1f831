// The work behind Move, one piece at a time, in the worker of the Book window.

#pragma once

#include <QObject>
#include <QString>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/book/book_document.h"
#include "desktop/book/book_worker.h"
#include "desktop/book/move_preview.h"
#include "platform/file_system.h"

namespace orvik {

class MoveWork : public QObject {
    Q_OBJECT
 public:
    enum class Job { None, Preparing, Saving, Keeping };

    // All must outlive this. The records are written in this order.
    MoveWork(BookDocument& document,
             BookWorker& worker,
             FileSystem& files,
             BookDocument::Numbers records,
             QObject* parent);
    // Cancels what runs.
    ~MoveWork() override;
    MoveWork(const MoveWork&) = delete;
    MoveWork& operator=(const MoveWork&) = delete;
    MoveWork(MoveWork&&) = delete;
    MoveWork& operator=(MoveWork&&) = delete;

    // The records as they stand now, and where they came from.
    [[nodiscard]] std::shared_ptr<const book_cli::Loaded> records();
    [[nodiscard]] std::vector<std::string> sources();
    // Whether these are all of the document's.
    [[nodiscard]] bool areAll() const;

    // Makes the preview anew, in place of one that is being made.
    void prepare(const book_cli::Arguments& chosen);
    // Null until it is made, and when the document was changed since.
    [[nodiscard]] std::shared_ptr<const MovePreview> preview() const;
    // Saves what was prepared, and then its summary. may_replace is the question that the user has
    // said yes to.
    void save(const std::string& name, const std::string& may_replace);
    void keep(const std::string& name, const std::string& may_replace);
    // What was saved last.
    [[nodiscard]] const MoveEnd& lastSaved() const { return saved_; }

    void cancel();
    // What runs, or waits for the worker.
    [[nodiscard]] Job job() const { return job_; }

 signals:
    void began(MoveWork::Job job);
    // step is empty, or what the job waits for.
    void progressed(const QString& step, int percent);
    // Preparing has ended; why is empty but for a failure.
    void prepared(bool is_done, const QString& why);
    // Saving or keeping has ended, this one with an end that says how.
    void wrote(MoveWork::Job job, const MoveEnd& end);
    // A job that waits may begin.
    void workerIsFree();

 private:
    void start(Job job, BookWorker::Work work, std::function<void()> done);
    void tryToRun();
    void takeEnd(bool is_done, const QString& why);
    void stop(const QString& why);
    // Of what writes.
    using Act = std::function<MoveEnd(const BookWorker::Watch& watch)>;
    void write(Job job, Act act);

    BookDocument& document_;
    BookWorker& worker_;
    FileSystem& files_;
    BookDocument::Numbers numbers_;
    // A copy of the document's, and of which revision.
    std::shared_ptr<const book_cli::Loaded> records_;
    std::uint64_t revision_ = 0;
    std::shared_ptr<const MovePreview> preview_;
    MoveEnd saved_;
    Job job_ = Job::None;
    // Of the job while it waits for the worker.
    BookWorker::Work waiting_;
    std::function<void()> done_;
    // The worker runs one of this one's, though not always the job.
    bool runs_ = false;
};

}  // namespace orvik
