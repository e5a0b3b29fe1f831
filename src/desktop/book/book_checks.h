// What is found out about a book of itself, without anybody asking: which addresses are wrong, and
// who is in which list. Of a small book at once, of a large one on a thread of its own, beside the
// work that the user asks for.

#pragma once

#include <QObject>
#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

#include "book/list_links.h"
#include "book/problems.h"
#include "book/record_origins.h"
#include "desktop/book/book_document.h"
#include "desktop/book/book_worker.h"

namespace orvik {

class BookChecks : public QObject {
    Q_OBJECT
 public:
    using Number = BookDocument::Number;

    // So many records are looked at on the thread of the window: less than a key takes.
    static constexpr std::size_t kAtOnce = 4000;
    static constexpr Number kNobody = book::ListLink::kNobody;

    // The document must outlive this.
    explicit BookChecks(const BookDocument& document, std::size_t at_once = kAtOnce);

    // Brings all up to date that takes no time, and begins what takes some for what was never
    // looked at. What comes of that is told by changed().
    void look();
    // Also what has changed since, and what was cancelled.
    void lookAgain();
    void cancel();
    [[nodiscard]] bool isBusy() const { return worker_.isBusy(); }
    // Whether lookAgain() would find something to do.
    [[nodiscard]] bool isBehind() const { return is_behind_; }

    // Those that are bad or odd, by record and property, of records that were looked at as they
    // are now.
    [[nodiscard]] std::vector<book::Problem> addresses() const;
    // Members of lists that are no record of the book.
    [[nodiscard]] std::vector<book::Problem> missing() const;
    // The record that the member is whose name a list has in this place; kNobody for none, nothing
    // for a list that was not looked at.
    [[nodiscard]] std::optional<Number> memberAt(const char* where) const;
    // The lists that a record is in, without those that are gone.
    [[nodiscard]] std::vector<Number> listsOf(Number record) const;

    // Where the records stand in their files.
    [[nodiscard]] const book::RecordOrigins& origins();

 signals:
    void changed();
    void progressed(const QString& step, int percent);
    // Work began or ended, or there is something that nobody has looked at.
    void stateChanged();

 private:
    struct Found {
        std::vector<book::Problem> Addresses;
        std::vector<book::ListLink> Links;
    };

    void lookAtAll(bool even_if_old);
    [[nodiscard]] bool isSeen(Number record) const;
    [[nodiscard]] BookDocument::Numbers unseen() const;
    void takeAddresses(const BookDocument::Numbers& records, std::vector<book::Problem> found);
    void takeLinks(std::vector<book::ListLink> links);
    [[nodiscard]] bool hasLists();
    void begin(const BookDocument::Numbers& unseen);
    void take(const BookDocument::Snapshot& looked_at, const Found& found, std::uint64_t revision);

    const BookDocument& document_;
    const std::size_t at_once_;
    book::RecordOrigins origins_;

    // The fields of each record when it was looked at: others have another place.
    std::vector<const book::Property*> seen_;
    std::vector<book::Problem> addresses_;

    // By place, and by record.
    std::vector<book::ListLink> by_place_;
    std::vector<book::ListLink> by_record_;
    std::uint64_t links_revision_ = 0;
    std::size_t links_files_ = 0;
    std::uint64_t lists_revision_ = 0;
    bool has_lists_ = false;

    bool is_stopped_ = false;
    bool is_behind_ = false;
    BookWorker worker_;
};

}  // namespace orvik
