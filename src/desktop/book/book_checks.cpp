#include "desktop/book/book_checks.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace orvik {
namespace {

constexpr std::size_t kStep = 1024;

void MakeDocumentNumbers(std::vector<book::ListLink>& links, const BookDocument::Numbers& numbers) {
    for (book::ListLink& one : links) {
        one.List = numbers[one.List];
        one.Record = one.Record == book::ListLink::kNobody ? one.Record : numbers[one.Record];
    }
}

}  // namespace

BookChecks::BookChecks(const BookDocument& document, std::size_t at_once)
    : document_(document), at_once_(at_once), origins_(document.book().Contacts) {
    connect(&worker_, &BookWorker::progressed, this, &BookChecks::progressed);
    connect(&worker_, &BookWorker::began, this, &BookChecks::stateChanged);
    connect(&worker_, &BookWorker::ended, this, [this](bool is_done, const QString&) {
        is_stopped_ = is_stopped_ || !is_done;
        is_behind_ = is_behind_ || is_stopped_;
        emit stateChanged();
    });
}

const book::RecordOrigins& BookChecks::origins() {
    origins_.Grow();
    return origins_;
}

void BookChecks::look() {
    lookAtAll(false);
}

void BookChecks::lookAgain() {
    is_stopped_ = false;
    lookAtAll(true);
}

void BookChecks::cancel() {
    is_stopped_ = true;
    worker_.cancel();
}

void BookChecks::lookAtAll(bool even_if_old) {
    if (worker_.isBusy()) {
        return;
    }
    const bool was_behind = std::exchange(is_behind_, false);
    const BookDocument::Numbers records = unseen();
    bool needs_work = records.size() > at_once_;
    if (!needs_work && !records.empty()) {
        std::vector<book::Problem> found;
        for (const Number one : records) {
            book::AddAddressProblems(document_.at(one), one, found);
        }
        takeAddresses(records, std::move(found));
        emit changed();
    }
    if (links_revision_ != document_.revision()) {
        if (!hasLists()) {
            takeLinks({});
        } else if (document_.thereCount() <= at_once_) {
            const BookDocument::Snapshot all = document_.snapshot();
            std::vector<book::ListLink> links = book::LinksOf(all.Copy->Book, {});
            MakeDocumentNumbers(links, all.Records);
            takeLinks(std::move(links));
            emit changed();
        } else {
            const bool is_new = links_files_ != document_.book().SourceCount();
            needs_work = needs_work || is_new || even_if_old;
            is_behind_ = !is_new;
        }
    }
    if (needs_work && !is_stopped_) {
        is_behind_ = false;
        begin(records);
    } else if ((is_behind_ = is_behind_ || needs_work) != was_behind) {
        emit stateChanged();
    }
}

bool BookChecks::isSeen(Number record) const {
    const book::Property* const before = record < seen_.size() ? seen_[record] : nullptr;
    return document_.at(record).Properties.data() == before;
}

BookDocument::Numbers BookChecks::unseen() const {
    BookDocument::Numbers records;
    for (Number i = 0; i < document_.count(); ++i) {
        if (document_.isThere(i) && !isSeen(i)) {
            records.push_back(i);
        }
    }
    return records;
}

std::vector<book::Problem> BookChecks::addresses() const {
    std::vector<book::Problem> found;
    std::copy_if(addresses_.begin(),
                 addresses_.end(),
                 std::back_inserter(found),
                 [this](const book::Problem& one) {
                     return document_.isThere(one.Record) && isSeen(one.Record);
                 });
    return found;
}

void BookChecks::takeAddresses(const BookDocument::Numbers& records,
                               std::vector<book::Problem> found) {
    seen_.resize(document_.count(), nullptr);
    for (const Number one : records) {
        seen_[one] = document_.at(one).Properties.data();
    }
    const auto is_old = [&records](const book::Problem& one) {
        return std::binary_search(records.begin(), records.end(), one.Record);
    };
    addresses_.erase(std::remove_if(addresses_.begin(), addresses_.end(), is_old),
                     addresses_.end());
    const auto middle = static_cast<std::ptrdiff_t>(addresses_.size());
    addresses_.insert(addresses_.end(), found.begin(), found.end());
    std::inplace_merge(addresses_.begin(),
                       addresses_.begin() + middle,
                       addresses_.end(),
                       [](const book::Problem& one, const book::Problem& other) {
                           return one.Record < other.Record;
                       });
}

void BookChecks::takeLinks(std::vector<book::ListLink> links) {
    by_record_ = links;
    std::sort(by_record_.begin(), by_record_.end(), [](const auto& one, const auto& other) {
        return std::pair(one.Record, one.List) < std::pair(other.Record, other.List);
    });
    by_place_ = std::move(links);
    std::sort(by_place_.begin(), by_place_.end(), [](const auto& one, const auto& other) {
        return std::less<>()(one.Where, other.Where);
    });
    links_revision_ = document_.revision();
    links_files_ = document_.book().SourceCount();
}

bool BookChecks::hasLists() {
    if (std::exchange(lists_revision_, document_.revision()) != document_.revision()) {
        has_lists_ = false;
        for (Number i = 0; i < document_.count() && !has_lists_; ++i) {
            has_lists_ = document_.isThere(i) && document_.at(i).Kind == book::ContactKind::List;
        }
    }
    return has_lists_;
}

std::vector<book::Problem> BookChecks::missing() const {
    std::vector<book::Problem> found;
    if (by_place_.empty()) {
        return found;
    }
    for (Number i = 0; i < document_.count(); ++i) {
        if (!document_.isThere(i) || document_.at(i).Kind != book::ContactKind::List) {
            continue;
        }
        const auto fields = document_.at(i).Properties;
        for (std::size_t k = 0; k < fields.size(); ++k) {
            const std::optional<Number> member = memberAt(fields[k].Value.data());
            if (member && (*member == kNobody || !document_.isThere(*member))) {
                found.push_back({i, static_cast<std::uint32_t>(k), book::ProblemKind::NoRecord});
            }
        }
    }
    return found;
}

std::optional<BookChecks::Number> BookChecks::memberAt(const char* where) const {
    const auto found = std::lower_bound(by_place_.begin(),
                                        by_place_.end(),
                                        where,
                                        [](const book::ListLink& one, const char* wanted) {
                                            return std::less<>()(one.Where, wanted);
                                        });
    return found == by_place_.end() || found->Where != where ? std::nullopt
                                                             : std::optional(found->Record);
}

std::vector<BookChecks::Number> BookChecks::listsOf(Number record) const {
    std::vector<Number> lists;
    const auto first = std::lower_bound(
        by_record_.begin(), by_record_.end(), record, [](const book::ListLink& one, Number wanted) {
            return one.Record < wanted;
        });
    for (auto one = first; one != by_record_.end() && one->Record == record; ++one) {
        if (!document_.isThere(one->List) || (!lists.empty() && lists.back() == one->List)) {
            continue;
        }
        const auto fields = document_.at(one->List).Properties;
        const bool still = std::any_of(fields.begin(), fields.end(), [&](const auto& field) {
            return field.Value.data() == one->Where;
        });
        if (still) {
            lists.push_back(one->List);
        }
    }
    return lists;
}

void BookChecks::begin(const BookDocument::Numbers& unseen) {
    const BookDocument::Snapshot all = document_.snapshot();
    auto found = std::make_shared<Found>();
    const std::uint64_t revision = document_.revision();
    worker_.run(
        tr("Checking the book"),
        [all, found, unseen](const BookWorker::Watch& watch) {
            const auto& contacts = all.Copy->Book.Contacts;
            watch.Begin(tr("checking the addresses").toStdString());
            // Both are in the order of the records.
            std::size_t next = 0;
            for (std::size_t i = 0; i < contacts.size(); ++i) {
                if (next < unseen.size() && unseen[next] == all.Records[i]) {
                    book::AddAddressProblems(contacts[i], all.Records[i], found->Addresses);
                    ++next;
                }
                if (i % kStep == 0) {
                    watch.Tell(i, contacts.size());
                }
            }
            watch.Begin(tr("looking for the members of lists").toStdString());
            found->Links = book::LinksOf(all.Copy->Book, watch.Progress());
            MakeDocumentNumbers(found->Links, all.Records);
        },
        [this, all, found, revision] {
            // A cancel may come when the work has just ended.
            if (!is_stopped_) {
                take(all, *found, revision);
            }
        });
}

// What has changed meanwhile is looked at again.
void BookChecks::take(const BookDocument::Snapshot& looked_at,
                      const Found& found,
                      std::uint64_t revision) {
    BookDocument::Numbers same;
    std::vector<bool> is_same(document_.count(), false);
    for (std::size_t i = 0; i < looked_at.Records.size(); ++i) {
        const Number record = looked_at.Records[i];
        const auto* const before = looked_at.Copy->Book.Contacts[i].Properties.data();
        if (document_.at(record).Properties.data() == before) {
            same.push_back(record);
            is_same[record] = true;
        }
    }
    std::vector<book::Problem> addresses;
    std::copy_if(found.Addresses.begin(),
                 found.Addresses.end(),
                 std::back_inserter(addresses),
                 [&](const book::Problem& one) { return is_same[one.Record]; });
    // Those that were seen before keep what was found of them.
    same.erase(std::remove_if(same.begin(), same.end(), [this](Number one) { return isSeen(one); }),
               same.end());
    takeAddresses(same, std::move(addresses));
    takeLinks(found.Links);
    links_revision_ = revision;
    emit changed();
    look();
}

}  // namespace orvik
