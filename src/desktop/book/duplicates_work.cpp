// What Duplicates has the worker do.

#include <QFile>
#include <QFileInfo>
#include <QUndoStack>
#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "app/run_time_error.h"
#include "book/field_words.h"
#include "book/match/merge_records.h"
#include "book/match/plan.h"
#include "book_cli/told.h"
#include "cli/exit_status.h"
#include "desktop/book/duplicates.h"
#include "desktop/book/shown_text.h"
#include "desktop/book/worker_console.h"
#include "desktop/text/plain_text.h"
#include "desktop/text/short_text.h"

namespace orvik {
namespace {

using book::Book;

// So many carried values are named, and so many lines of a plan that are wrong.
constexpr std::size_t kMostCarried = 3;
constexpr std::size_t kMostErrors = 1000;
// In letters: of what a record is called, in the name of a step.
constexpr qsizetype kMostOfName = 60;

QString Counted(std::size_t count, const char* one, const char* many) {
    return QString::fromStdString(book_cli::GroupedCount(count, one, many));
}

// What becomes a failure of the work, in the user's words.
[[noreturn]] void Fail(const QString& text) {
    throw std::runtime_error(text.toStdString());
}

// The values that gave way to others, some of them by name.
QString CarriedText(const Book& book, const std::vector<book::MergeNote>& notes) {
    std::size_t count = 0;
    QStringList named;
    for (const book::MergeNote& note : notes) {
        if (NamesTheRecord(note)) {
            continue;
        }
        if (++count <= kMostCarried) {
            book::Property one;
            one.Name = book.Names.Find(note.Field);
            named << ShownLine(book::FieldWords(book, one, {})) + QStringLiteral(" \u201C") +
                         ShortName(note.Value) + QStringLiteral("\u201D");
        }
    }
    if (count == 0) {
        return {};
    }
    const QString more =
        count > kMostCarried ? Duplicates::tr(" and %1 more").arg(count - kMostCarried) : QString();
    return Duplicates::tr(" Carried along: %1%2.").arg(named.join(QStringLiteral(", ")), more);
}

// What the tools read of a file, or a failure.
std::string BytesOf(FileSystem& files, const BookWorker::Watch& watch, const std::string& name) {
    WorkerConsole around(files, watch);
    cli::ExitStatus status = cli::ExitStatus::Done;
    std::optional<std::string> bytes = book_cli::ReadBytes(around.console(), name, status);
    if (!bytes) {
        Fail(around.told().join(u'\n'));
    }
    return std::move(*bytes);
}

}  // namespace

struct Duplicates::Merging {
    book::ChosenGroups Chosen;
    std::size_t Old = 0;
    BookDocument::Changes Changes;
    QString Name;
    QString Carried;
    std::size_t Gone = 0;
    std::size_t Lost = 0;
};

struct Duplicates::Plan {
    std::vector<book::PlanError> Errors;
    std::optional<Found> Looked;
    book::DecidedLines Lines;
    std::size_t LeftOut = 0;
};

std::function<Duplicates::Found(const BookWorker::Watch&)> Duplicates::lookLater() const {
    return [snapshot = document_.snapshot(),
            lines = std::shared_ptr<const book::DecidedLines>(lines_),
            standing = standings(),
            count = document_.count()](const BookWorker::Watch& watch) {
        watch.Begin(tr("comparing the records").toStdString());
        Book& book = snapshot.Copy->Book;
        book.HowFar = watch.Progress();
        Found found;
        found.Compared.resize(count);
        for (std::size_t i = 0; i < snapshot.Records.size(); ++i) {
            found.Compared[snapshot.Records[i]] = book.Contacts[i].Properties.data();
        }
        book::Matches matches = book::FindMatches(book, false, book::TakesPart::All);
        found.Lines = book::WithFound(matches, book, snapshot.Records, *lines, standing);
        found.Notes = std::move(matches.Notes);
        book.HowFar = nullptr;
        return found;
    };
}

void Duplicates::look() {
    if (!canWork()) {
        return;
    }
    auto found = std::make_shared<Found>();
    start(
        tr("Looking for duplicates"),
        [look = lookLater(), found](const BookWorker::Watch& watch) { *found = look(watch); },
        [this, found] {
            takeFound(*found);
            emit told({});
        });
}

void Duplicates::takeFound(Found& found) {
    lines_ = std::make_shared<book::DecidedLines>(std::move(found.Lines));
    notes_ = std::move(found.Notes);
    compared_ = std::move(found.Compared);
    has_looked_ = true;
    judge();
    emit linesChanged();
}

void Duplicates::merge(const Lines& chosen) {
    auto merging = std::make_shared<Merging>();
    Lines held;
    for (const Line line : chosen) {
        if (standing_[line] == book::Standing::Holds) {
            held.push_back(line);
        }
        merging->Old += standing_[line] == book::Standing::Old ? 1 : 0;
    }
    if (held.empty() || !canWork()) {
        if (merging->Old > 0) {
            emit told(tr("Nothing is merged: the book has changed. Look again."));
        }
        return;
    }
    const BookDocument::Snapshot snapshot = document_.snapshot();
    has_frozen_ = true;
    start(
        tr("Merging"),
        [snapshot, merging, lines = lines_, held, count = document_.count()](
            const BookWorker::Watch& watch) {
            watch.Begin(tr("merging the records").toStdString());
            Book& book = snapshot.Copy->Book;
            book.HowFar = watch.Progress();
            merging->Chosen = book::GroupsOfChosen(*lines, held, count);
            const BookDocument::Numbers& numbers = snapshot.Records;
            book::MergeGroups groups = merging->Chosen.Groups;
            for (auto& group : groups) {
                for (std::uint32_t& record : group) {
                    record = static_cast<std::uint32_t>(
                        std::lower_bound(numbers.begin(), numbers.end(), record) - numbers.begin());
                }
            }
            const book::Merged merged = book::MergeRecords(book, groups);
            for (const book::MergedAway& gone : merged.Gone) {
                merging->Changes.push_back({numbers[gone.Record], {}, false});
            }
            for (const book::Renumbered& one : merged.Changed) {
                merging->Changes.push_back({numbers[one.Before], book.Contacts[one.After], true});
            }
            merging->Carried = CarriedText(book, merged.Notes);
            merging->Gone = merged.Gone.size();
            merging->Lost = merged.Lost;
            book.HowFar = nullptr;
        },
        [this, snapshot, merging] { takeMerged(snapshot, *merging); });
}

void Duplicates::takeMerged(const BookDocument::Snapshot& snapshot, Merging& merging) {
    const book::MergeGroups& groups = merging.Chosen.Groups;
    QString text;
    if (!groups.empty()) {
        for (BookDocument::Change& change : merging.Changes) {
            change.After = change.IsThere ? change.After : document_.at(change.Record);
        }
        const BookDocument::Number kept = groups.front().front();
        const QString what = groups.size() == 1
                                 ? tr("%1 of %2")
                                       .arg(Counted(groups.front().size(), "record", "records"),
                                            WithoutMiddle(RecordName(document_, kept), kMostOfName))
                                 : Counted(merging.Chosen.Lines.size(), "group", "groups");
        document_.takeOver(snapshot, tr("Merge %1").arg(what), std::move(merging.Changes), {});
        const QUndoStack& steps = document_.undoStack();
        merges_.push_back({steps.index(), steps.command(steps.index() - 1)});
        for (const Line line : merging.Chosen.Lines) {
            (*lines_)[line].MergedIn = static_cast<std::uint32_t>(merges_.size());
            (*lines_)[line].Said = book::Decision::Open;
        }
        refresh();
        text = tr("Merged %1: %2 now.%3")
                   .arg(what,
                        Counted(merging.Gone,
                                "record is part of another one",
                                "records are part of others"),
                        merging.Carried);
    }
    if (merging.Lost > 0) {
        text += tr(" %1 could not be kept.").arg(Counted(merging.Lost, "value", "values"));
    }
    if (merging.Chosen.KeptApart > 0) {
        text += tr(" %1 not merged, as others keep their records apart.")
                    .arg(Counted(merging.Chosen.KeptApart, "group is", "groups are"));
    }
    if (merging.Old > 0) {
        text += tr(" %1 not merged, as the book has changed: look again.")
                    .arg(Counted(merging.Old, "group is", "groups are"));
    }
    emit told(text.trimmed());
}

void Duplicates::savePlan(const QString& file) {
    if (!canWork()) {
        return;
    }
    const BookDocument::Snapshot all = everybody();
    const std::string name = QFile::encodeName(file).toStdString();
    auto left_out = std::make_shared<std::size_t>();
    auto notices = std::make_shared<QStringList>();
    start(
        tr("Saving the plan"),
        [all,
         name,
         left_out,
         notices,
         lines = lines_,
         notes = notes_,
         standing = standings(),
         &files = files_](const BookWorker::Watch& watch) {
            watch.Begin(tr("making the plan").toStdString());
            Book& book = all.Copy->Book;
            for (std::uint32_t i = 0; i < book.SourceCount(); ++i) {
                if (files.IsSame(book.SourceAt(i).Name(), name)) {
                    Fail(tr("The plan was not saved: this file is one of the address books."));
                }
            }
            book.HowFar = watch.Progress();
            book::DecidedPlan plan = book::PlanOf(book, *lines, notes, standing);
            book.HowFar = nullptr;
            *left_out = plan.LeftOut;
            WorkerConsole around(files, watch);
            TrapFailure(
                [&] { around.console().Slot().Replace(name, SharedText(std::move(plan.Text))); },
                [](const RunTimeError& failure) {
                    PassLackOfMemory(failure);
                    Fail(tr("The plan was not saved: %1")
                             .arg(QString::fromStdString(
                                 cli::WithDetail(failure.what(), failure.Detail()))));
                });
            *notices = around.told();
        },
        [this, name, left_out, notices] {
            QString text = tr("The plan is saved as %1.").arg(ShortName(name));
            if (*left_out > 0) {
                text += tr(" %1 left out: the files do not hold these records as they are here.")
                            .arg(Counted(*left_out, "group is", "groups are"));
            }
            emit told((QStringList(text) + *notices).join(u'\n'));
        });
}

void Duplicates::loadPlan(const QString& file) {
    if (!canWork()) {
        return;
    }
    const bool looks = !has_looked_ || not_compared_ > 0;
    std::vector<bool> is_there(document_.count());
    for (BookDocument::Number i = 0; i < is_there.size(); ++i) {
        is_there[i] = document_.isThere(i);
    }
    const std::string name = QFile::encodeName(file).toStdString();
    auto loaded = std::make_shared<Plan>();
    start(
        tr("Loading the plan"),
        [loaded,
         name,
         is_there,
         all = everybody(),
         lines = lines_,
         look = looks ? lookLater() : nullptr,
         &files = files_](const BookWorker::Watch& watch) {
            watch.Begin(tr("reading the plan").toStdString());
            book::Plan plan = book::ParsePlan(BytesOf(files, watch, name));
            loaded->Errors = plan.Errors;
            const Book& book = all.Copy->Book;
            book::CheckedPlan checked;
            if (!plan.LacksSource) {
                book::FindSources(plan, book);
                checked = book::CheckPlan(plan, book);
                loaded->Errors = checked.Errors;
            }
            if (!loaded->Errors.empty()) {
                return;
            }
            if (look) {
                loaded->Looked = look(watch);
            }
            loaded->Lines = look ? std::move(loaded->Looked->Lines) : *lines;
            watch.Tell(1, 1);
            loaded->LeftOut = book::TakePlan(checked, book, is_there, loaded->Lines);
        },
        [this, file, loaded] { takePlan(file, *loaded); });
}

void Duplicates::takePlan(const QString& file, Plan& plan) {
    const QString name = ShownName(QFileInfo(file).fileName());
    if (!plan.Errors.empty()) {
        QStringList lines;
        const std::size_t shown = std::min(plan.Errors.size(), kMostErrors);
        for (std::size_t i = 0; i < shown; ++i) {
            lines << tr("line %1: %2").arg(plan.Errors[i].Line).arg(ShownName(plan.Errors[i].Text));
        }
        if (shown < plan.Errors.size()) {
            lines << tr("and %1 more").arg(plan.Errors.size() - shown);
        }
        emit planRefused(name, lines);
        return;
    }
    if (plan.Looked) {
        plan.Looked->Lines = std::move(plan.Lines);
        takeFound(*plan.Looked);
    } else {
        lines_ = std::make_shared<book::DecidedLines>(std::move(plan.Lines));
        judge();
        emit linesChanged();
    }
    QString text = tr("%1 to be merged, as %2 says.")
                       .arg(Counted(ticked_count_, "group is", "groups are"), name);
    if (plan.LeftOut > 0) {
        text += tr(" %1 left out: their records are not as the files have them any more.")
                    .arg(Counted(plan.LeftOut, "line is", "lines are"));
    }
    emit told(text);
}

}  // namespace orvik
