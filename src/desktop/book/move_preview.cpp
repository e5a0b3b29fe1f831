#include "desktop/book/move_preview.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <utility>

#include "app/printable.h"
#include "book_cli/outputs.h"
#include "book_cli/prepared.h"
#include "book_cli/told.h"
#include "book_cli/verbs.h"
#include "desktop/book/worker_console.h"
#include "platform/stoppable_files.h"

namespace orvik {
namespace {

using book_cli::Arguments;
using book_cli::Outputs;
using cli::ExitStatus;

// Nobody reads more names in a line.
constexpr std::size_t kMostSources = 20;

std::shared_ptr<book_cli::Loaded> CopyOf(const book_cli::Loaded& records) {
    std::vector<std::uint32_t> all(records.Book.Contacts.size());
    std::iota(all.begin(), all.end(), std::uint32_t{0});
    auto copy = std::make_shared<book_cli::Loaded>();
    copy->Book = std::move(*records.Book.Snapshot(all));
    copy->Inputs = records.Inputs;
    return copy;
}

// "from a.ldif, b.vcf".
std::string SourcesText(const book::Book& book) {
    std::string text;
    for (std::uint32_t i = 0; i < std::min(book.SourceCount(), kMostSources); ++i) {
        text += (text.empty() ? "from " : ", ") + Printable(book.SourceAt(i).Name());
    }
    if (book.SourceCount() > kMostSources) {
        text += " and " + std::to_string(book.SourceCount() - kMostSources) + " more";
    }
    return text.empty() ? text : text + "\n";
}

// One act of writing: what it asks and tells, and whether it was cancelled.
class Writing {
 public:
    // All must outlive this. all is how many bytes will be written.
    Writing(FileSystem& files,
            const BookWorker::Watch& watch,
            const std::string& may_replace,
            std::size_t all)
        : watch_(watch),
          all_(all),
          watched_(files, [this](std::size_t written) { return GoesOn(written); }),
          around_(watched_, watch, [this, &may_replace](const std::string& question) {
              end_.Question = question == may_replace ? std::string() : question;
              return end_.Question.empty();
          }) {}

    [[nodiscard]] book_cli::Console& console() { return around_.console(); }

    // What became of it.
    [[nodiscard]] MoveEnd End(ExitStatus status) {
        end_.Status = status;
        end_.IsCancelled = cancelled_ && status != ExitStatus::Done;
        end_.Told = around_.told();
        return std::move(end_);
    }

 private:
    // The files tell what is wrong by their errors, and an end that is thrown past them is none.
    bool GoesOn(std::size_t written) {
        done_ += written;
        try {
            SayWhatIsWaitedFor();
            watch_.Tell(std::min(done_, all_), all_);
        } catch (const book::WorkThread::Cancelled&) {
            cancelled_ = true;
        }
        return !cancelled_;
    }

    // What is told before anything is written is whom the save waits for. Errors: Cancelled.
    void SayWhatIsWaitedFor() {
        const QStringList told = done_ == 0 ? around_.told() : QStringList();
        const std::string waits = told.isEmpty() ? std::string() : told.back().toStdString();
        if (waits != said_) {
            said_ = waits;
            watch_.Begin(waits);
        }
    }

    const BookWorker::Watch& watch_;
    std::size_t all_;
    std::size_t done_ = 0;
    bool cancelled_ = false;
    std::string said_;
    MoveEnd end_;
    StoppableFiles watched_;
    WorkerConsole around_;
};

std::size_t LengthOf(const MovePreview& preview) {
    std::size_t length = preview.Contents.size();
    for (const book_cli::FilePart& one : preview.Parts) {
        length += one.Contents.size();
    }
    return length;
}

}  // namespace

std::shared_ptr<const MovePreview> PrepareMove(FileSystem& files,
                                               const book_cli::Loaded& records,
                                               const Arguments& chosen,
                                               const BookWorker::Watch& watch) {
    auto made = std::make_shared<MovePreview>();
    made->Chosen = chosen;
    made->Chosen.AllowLoss = true;
    WorkerConsole around(files, watch);
    const auto copy = CopyOf(records);
    book_cli::Prepared prepared = book_cli::Prepare(made->Chosen, *copy, around.console());
    copy->Book.HowFar = nullptr;
    watch.Tell(1, 1);
    made->TooMany = book_cli::TooManyRecords(made->Chosen, prepared.Whole.Records);
    made->Counts = book_cli::CountsText(around.console(), made->Chosen, *copy, prepared.Whole);
    for (std::string hint :
         {book_cli::ListHint(made->Chosen, copy->Book), std::move(prepared.TooMuch)}) {
        if (!hint.empty()) {
            made->Hints.push_back(std::move(hint));
        }
    }
    made->Groups = book::GroupRemarks(copy->Book.Told);
    made->Parts = std::move(prepared.Parts);
    if (made->Parts.empty()) {
        made->Contents = SharedText(std::exchange(prepared.Whole.Text, {}));
    }
    prepared.Whole.Text = {};
    prepared.Whole.Places = {};
    made->Whole = std::move(prepared.Whole);
    made->Book = copy;
    watch.Tell(1, 1);
    return made;
}

MoveEnd SaveMove(FileSystem& files,
                 const MovePreview& preview,
                 const std::string& name,
                 const std::string& may_replace,
                 const BookWorker::Watch& watch) {
    Arguments arguments = preview.Chosen;
    arguments.Output = name;
    std::vector<book_cli::FilePart> parts = preview.Parts;
    book_cli::NameParts(name, parts);
    Writing writing(files, watch, may_replace, LengthOf(preview));
    Outputs outputs(writing.console(), arguments);
    ExitStatus status = outputs.Check();
    if (status == ExitStatus::Done) {
        status = parts.empty() ? outputs.WriteBook(preview.Contents) : outputs.WriteParts(parts);
    }
    std::string summary;
    if (status == ExitStatus::Done) {
        summary = SourcesText(preview.Book->Book) +
                  book_cli::ConvertedText(
                      writing.console(), arguments, *preview.Book, preview.Whole, parts);
        for (const std::string& hint : preview.Hints) {
            summary += hint + "\n";
        }
    }
    MoveEnd end = writing.End(status);
    for (const book_cli::FilePart& part : parts) {
        end.Files.push_back(part.Name);
    }
    if (parts.empty()) {
        end.Files.push_back(name);
    }
    for (const QString& line : end.Told) {
        summary += summary.empty() ? "" : line.toStdString() + "\n";
    }
    end.Summary = std::move(summary);
    return end;
}

MoveEnd KeepSummary(FileSystem& files,
                    const MovePreview& preview,
                    const MoveEnd& saved,
                    const std::string& name,
                    const std::string& may_replace,
                    const BookWorker::Watch& watch) {
    std::vector<book_cli::FilePart> parts = preview.Parts;
    book_cli::NameParts(saved.Files.front(), parts);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        parts[i].Name = saved.Files[i];
    }
    const SharedText text(saved.Summary + "\n" + book_cli::ReportOf(*preview.Book) +
                          book_cli::ReportOf(parts));
    // A report beside a book that nobody writes now.
    Arguments arguments;
    arguments.What = book_cli::Verb::Show;
    arguments.Files = preview.Chosen.Files;
    arguments.Report = name;
    Writing writing(files, watch, may_replace, text.size());
    const bool is_book =
        std::any_of(saved.Files.begin(), saved.Files.end(), [&](const std::string& one) {
            return writing.console().Files().IsSame(one, name);
        });
    if (is_book) {
        writing.console().Tell("The summary and the book would be one file");
        return writing.End(ExitStatus::CannotCreate);
    }
    Outputs outputs(writing.console(), arguments);
    ExitStatus status = outputs.Check();
    if (status == ExitStatus::Done) {
        status = outputs.WriteReport(text);
    }
    return writing.End(status);
}

}  // namespace orvik
