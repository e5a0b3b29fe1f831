#include "desktop/book/book_rows.h"

#include <QLocale>
#include <algorithm>
#include <numeric>
#include <utility>

#include "book/order.h"

namespace orvik {
namespace {

using book::Column;

// So many records are looked at at once; of more the texts are made anew, aside.
constexpr std::size_t kFew = 2000;
// Nobody reads more names of lists to find a place; in bytes.
constexpr std::size_t kMostSorted = 1000;

book::SortBy KeyOf(Column column) {
    switch (column) {
        case Column::Name:
            return book::SortBy::Name;
        case Column::Nickname:
            return book::SortBy::Nickname;
        case Column::Addresses:
            return book::SortBy::Address;
        case Column::Phones:
            return book::SortBy::Phone;
        case Column::Notes:
            return book::SortBy::Note;
        case Column::Source:
            return book::SortBy::Source;
        case Column::Lists:
            break;
    }
    return book::SortBy::None;
}

}  // namespace

BookRows::BookRows(BookDocument& document)
    : document_(document), memberships_(std::make_shared<book::Memberships>()) {
    connect(&document_, &BookDocument::changed, this, &BookRows::takeChanged);
    connect(&document_, &BookDocument::recordsChanged, this, &BookRows::takeRecords);
    connect(&worker_, &BookWorker::ended, this, &BookRows::takeEnd);
    // What is done with the result comes first.
    connect(&worker_, &BookWorker::ended, this, &BookRows::goOn, Qt::QueuedConnection);
    takeRecords();
}

void BookRows::setFilter(const QString& typed) {
    std::vector<std::string> words = book::FilterWords(typed.toStdString());
    if (words.empty()) {
        const bool was_filtering = isFiltering();
        words_.clear();
        wished_.clear();
        want(Job::Texts, false);
        if (was_filtering) {
            rebuild();
        }
        return;
    }
    wished_ = std::move(words);
    if (texts_ == nullptr) {
        want(Job::Texts);
        startNext();
    } else {
        applyFilter();
    }
}

void BookRows::sortBy(std::optional<Column> column, bool is_descending) {
    if (column == column_ && is_descending == is_descending_) {
        return;
    }
    column_ = column;
    is_descending_ = is_descending;
    want(Job::Order, column.has_value());
    if (running_ == Job::Order) {
        worker_.cancel();
    }
    if (!column) {
        order_.clear();
        rebuild();
    } else {
        startNext();
    }
}

bool BookRows::isBusy() const {
    const auto is_true = [](bool wanted) { return wanted; };
    return worker_.isBusy() || std::any_of(wanted_.begin(), wanted_.end(), is_true);
}

void BookRows::takeChanged(const BookDocument::Numbers& records) {
    if (running_ == Job::Texts) {
        stale_.insert(stale_.end(), records.begin(), records.end());
    }
    const bool few = records.size() <= kFew;
    if (texts_ != nullptr && few) {
        for (const BookDocument::Number one : records) {
            texts_->Set(document_.book(), one, document_.at(one));
        }
    } else if (texts_ != nullptr) {
        texts_.reset();
        want(Job::Texts, isFiltering());
    }
    const bool any_list = std::any_of(records.begin(), records.end(), [this](auto one) {
        return document_.at(one).Kind == book::ContactKind::List;
    });
    if (any_list) {
        want(Job::Lists);
    }
    startNext();
}

void BookRows::takeRecords() {
    const std::size_t all = document_.count();
    const std::size_t came = all - std::exchange(known_, all);
    list_count_ = 0;
    for (std::size_t i = 0; i < all; ++i) {
        const auto number = static_cast<BookDocument::Number>(i);
        const bool is_list = document_.at(number).Kind == book::ContactKind::List;
        list_count_ += document_.isThere(number) && is_list ? 1U : 0U;
    }
    for (std::size_t i = order_.size(); !order_.empty() && i < all; ++i) {
        order_.push_back(static_cast<BookDocument::Number>(i));
    }
    // Whoever is added by hand is seen, and stands at the end.
    found_.resize(all, came == 1);
    if (came > 1 && column_) {
        want(Job::Order);
    }
    if (texts_ != nullptr) {
        catchUp();
    }
    if (came > 1 && isFiltering()) {
        if (texts_ != nullptr) {
            found_ = texts_->Find(words_);
        } else {
            want(Job::Texts);
        }
    }
    want(Job::Lists, list_count_ > 0);
    if (list_count_ == 0) {
        memberships_ = std::make_shared<book::Memberships>();
    }
    rebuild();
    startNext();
}

void BookRows::startNext() {
    if (worker_.isBusy()) {
        return;
    }
    const bool sorts_by_lists = column_ == Column::Lists;
    if (isWanted(Job::Texts)) {
        readTexts();
    } else if (isWanted(Job::Order) && !(sorts_by_lists && isWanted(Job::Lists))) {
        sort();
    } else if (isWanted(Job::Lists)) {
        findLists();
    } else {
        return;
    }
    emit busyChanged(true);
}

void BookRows::readTexts() {
    running_ = Job::Texts;
    want(Job::Texts, false);
    stale_.clear();
    auto made = std::make_shared<book::ValueFilter>();
    worker_.run(
        tr("Reading all values"),
        [snapshot = document_.snapshot(everyNumber()), made](const BookWorker::Watch& watch) {
            *made = book::ValueFilter(snapshot.Copy->Book, watch.Progress());
        },
        [this, made] {
            texts_ = made;
            for (const BookDocument::Number one : std::exchange(stale_, {})) {
                if (one < texts_->Count()) {
                    texts_->Set(document_.book(), one, document_.at(one));
                }
            }
            catchUp();
            if (texts_ == nullptr) {
                want(Job::Texts);
            } else if (!wished_.empty()) {
                applyFilter();
            }
        });
}

void BookRows::sort() {
    running_ = Job::Order;
    want(Job::Order, false);
    auto order = std::make_shared<BookDocument::Numbers>();
    worker_.run(
        tr("Sorting"),
        [snapshot = document_.snapshot(everyNumber()),
         lists = memberships_,
         order,
         column = *column_,
         is_descending = is_descending_](const BookWorker::Watch& watch) {
            const book::Book& book = snapshot.Copy->Book;
            const book::Sorting how{
                QLocale::system().name().toStdString(), is_descending, watch.Progress()};
            const auto lists_text = [&](std::uint32_t record, std::string& text) {
                text = lists->TextOf(book, record, kMostSorted);
            };
            *order = column == Column::Lists ? book::OrderOf(book, lists_text, how)
                                             : book::OrderOf(book, KeyOf(column), how);
        },
        [this, order] {
            // One that was asked for meanwhile takes its place.
            if (column_ && !isWanted(Job::Order)) {
                order_ = std::move(*order);
                for (std::size_t i = order_.size(); i < document_.count(); ++i) {
                    order_.push_back(static_cast<BookDocument::Number>(i));
                }
                rebuild();
            }
        });
}

void BookRows::findLists() {
    running_ = Job::Lists;
    want(Job::Lists, false);
    auto found = std::make_shared<book::Memberships>();
    worker_.run(
        tr("Looking for members"),
        [snapshot = document_.snapshot(), found](const BookWorker::Watch& watch) {
            *found = book::Memberships(snapshot.Copy->Book, snapshot.Records, watch.Progress());
        },
        [this, found] {
            memberships_ = found;
            emit listsFound();
        });
}

void BookRows::takeEnd(bool /*is_done*/, const QString& why) {
    running_ = Job::None;
    if (!why.isEmpty()) {
        emit failed(why);
    }
}

void BookRows::goOn() {
    startNext();
    if (!worker_.isBusy()) {
        emit busyChanged(false);
    }
}

void BookRows::catchUp() {
    const std::size_t all = document_.count();
    if (all - texts_->Count() > kFew) {
        texts_.reset();
        return;
    }
    for (std::size_t i = texts_->Count(); i < all; ++i) {
        const auto number = static_cast<BookDocument::Number>(i);
        texts_->Set(document_.book(), number, document_.at(number));
    }
}

void BookRows::applyFilter() {
    if (isFiltering() && book::IsNarrower(wished_, words_) && found_.size() == texts_->Count()) {
        texts_->Narrow(wished_, found_);
    } else {
        found_ = texts_->Find(wished_);
    }
    words_ = wished_;
    rebuild();
}

void BookRows::rebuild() {
    emit aboutToChange();
    rows_.clear();
    const auto take = [this](BookDocument::Number number) {
        if (document_.isThere(number) && (!isFiltering() || found_[number])) {
            rows_.push_back(number);
        }
    };
    if (order_.empty()) {
        for (std::size_t i = 0; i < document_.count(); ++i) {
            take(static_cast<BookDocument::Number>(i));
        }
    } else {
        std::for_each(order_.begin(), order_.end(), take);
    }
    emit changed();
}

BookDocument::Numbers BookRows::everyNumber() const {
    BookDocument::Numbers all(document_.count());
    std::iota(all.begin(), all.end(), BookDocument::Number{0});
    return all;
}

}  // namespace orvik
