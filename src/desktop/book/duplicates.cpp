#include "desktop/book/duplicates.h"

#include <QUndoStack>
#include <algorithm>
#include <utility>

namespace orvik {

using book::Decision;
using book::Standing;

Duplicates::Duplicates(BookDocument& document,
                       BookWorker& worker,
                       FileSystem& files,
                       QObject* parent)
    : QObject(parent), document_(document), worker_(worker), files_(files) {
    connect(&document_.undoStack(), &QUndoStack::indexChanged, this, [this] { refresh(); });
    connect(&document_, &BookDocument::frozenChanged, this, &Duplicates::workChanged);
    connect(&worker_, &BookWorker::began, this, &Duplicates::workChanged);
    connect(&worker_, &BookWorker::ended, this, &Duplicates::end);
}

Duplicates::State Duplicates::stateOf(Line line) const {
    switch (standing_[line]) {
        case Standing::Done:
            return State::Merged;
        case Standing::Old:
            return State::Old;
        case Standing::Holds:
            break;
    }
    switch ((*lines_)[line].Said) {
        case Decision::Merge:
            return State::Ticked;
        case Decision::Keep:
            return State::Kept;
        case Decision::Later:
            return State::Later;
        case Decision::Open:
            break;
    }
    return State::Open;
}

std::size_t Duplicates::countOf(book::Tier tier) const {
    return static_cast<std::size_t>(
        std::count_if(lines_->begin(), lines_->end(), [tier](const book::DecidedLine& line) {
            return line.Match.Why == tier;
        }));
}

bool Duplicates::isSure(Line line) const {
    return standing_[line] == Standing::Holds && book::IsSure((*lines_)[line]);
}

void Duplicates::count(Line line, bool is_in) {
    const std::size_t sure = isSure(line) ? 1 : 0;
    const std::size_t ticked = stateOf(line) == State::Ticked ? 1 : 0;
    sure_count_ = is_in ? sure_count_ + sure : sure_count_ - sure;
    ticked_count_ = is_in ? ticked_count_ + ticked : ticked_count_ - ticked;
}

Duplicates::Lines Duplicates::sure() const {
    Lines lines;
    lines.reserve(sure_count_);
    for (Line i = 0; i < lines_->size(); ++i) {
        if (isSure(i)) {
            lines.push_back(i);
        }
    }
    return lines;
}

Duplicates::Lines Duplicates::ticked() const {
    Lines lines;
    lines.reserve(ticked_count_);
    for (Line i = 0; i < lines_->size(); ++i) {
        if (stateOf(i) == State::Ticked) {
            lines.push_back(i);
        }
    }
    return lines;
}

bool Duplicates::canDecide() const {
    return !is_working_ && !document_.isFrozen();
}

bool Duplicates::canWork() const {
    return canDecide() && !worker_.isBusy();
}

void Duplicates::say(const Lines& lines, Decision decision) {
    if (!canDecide()) {
        return;
    }
    for (const Line line : lines) {
        if (standing_[line] == Standing::Holds) {
            count(line, false);
            (*lines_)[line].Said = decision;
            count(line, true);
        }
    }
    emit statesChanged();
}

void Duplicates::start(const QString& what, BookWorker::Work work, std::function<void()> done) {
    is_working_ = true;
    if (has_frozen_) {
        document_.setFrozen(true);
    }
    worker_.run(what, std::move(work), std::move(done));
}

void Duplicates::end(bool is_done, const QString& why) {
    if (std::exchange(has_frozen_, false)) {
        document_.setFrozen(false);
    }
    const bool was_mine = std::exchange(is_working_, false);
    emit workChanged();
    if (was_mine && !is_done) {
        emit told(why.isEmpty() ? tr("Cancelled: nothing was changed.") : why);
    }
}

bool Duplicates::isAsCompared(BookDocument::Number record) const {
    return record < compared_.size() && document_.isThere(record) &&
           compared_[record] == document_.at(record).Properties.data();
}

void Duplicates::refresh() {
    judge();
    emit statesChanged();
}

void Duplicates::judge() {
    const QUndoStack& steps = document_.undoStack();
    for (Merge& merge : merges_) {
        // What was undone is gone for good once something else is done.
        if (merge.Index > steps.count() || steps.command(merge.Index - 1) != merge.Step) {
            merge.Step = nullptr;
        }
    }
    standing_.resize(lines_->size());
    sure_count_ = 0;
    ticked_count_ = 0;
    for (Line i = 0; i < lines_->size(); ++i) {
        const book::DecidedLine& line = (*lines_)[i];
        const Merge merge = line.MergedIn == 0 ? Merge() : merges_[line.MergedIn - 1];
        const bool is_done = merge.Step != nullptr && merge.Index <= steps.index();
        const bool holds = !is_done && std::all_of(line.Match.Records.begin(),
                                                   line.Match.Records.end(),
                                                   [this](auto one) { return isAsCompared(one); });
        standing_[i] = is_done ? Standing::Done : holds ? Standing::Holds : Standing::Old;
        count(i, true);
    }
    not_compared_ = 0;
    for (BookDocument::Number i = 0; has_looked_ && i < document_.count(); ++i) {
        not_compared_ += document_.isThere(i) && !isAsCompared(i) ? 1 : 0;
    }
}

std::function<Standing(Duplicates::Line)> Duplicates::standings() const {
    return [standing = standing_](Line line) { return standing[line]; };
}

BookDocument::Snapshot Duplicates::everybody() const {
    BookDocument::Numbers all(document_.count());
    for (BookDocument::Number i = 0; i < all.size(); ++i) {
        all[i] = i;
    }
    return document_.snapshot(all);
}

}  // namespace orvik
