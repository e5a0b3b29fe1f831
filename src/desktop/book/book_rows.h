// Which records the table of a Book window shows, in which order: the filter and the sorting, and
// who is in which list. What takes long is found out aside.

#pragma once

#include <QObject>
#include <QString>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "book/memberships.h"
#include "book/table_columns.h"
#include "book/value_filter.h"
#include "desktop/book/book_document.h"
#include "desktop/book/book_worker.h"

namespace orvik {

class BookRows : public QObject {
    Q_OBJECT
 public:
    // The document must outlive this.
    explicit BookRows(BookDocument& document);

    // The records that are shown, from above.
    [[nodiscard]] const BookDocument::Numbers& rows() const { return rows_; }
    // How many of all records are lists.
    [[nodiscard]] std::size_t listCount() const { return list_count_; }
    [[nodiscard]] const book::Memberships& memberships() const { return *memberships_; }

    // Shows the records that have these words in their values; all for none.
    void setFilter(const QString& typed);
    [[nodiscard]] bool isFiltering() const { return !words_.empty(); }
    // By a column, or in the order of the files. Records stay where they are when they are changed.
    void sortBy(std::optional<book::Column> column, bool is_descending);
    // Whether something is still being found out.
    [[nodiscard]] bool isBusy() const;

 signals:
    void aboutToChange();
    void changed();
    void listsFound();
    void busyChanged(bool is_busy);
    // Something could not be found out.
    void failed(const QString& why);

 private:
    enum class Job : std::uint8_t { None, Texts, Order, Lists };

    void takeChanged(const BookDocument::Numbers& records);
    void takeRecords();
    void startNext();
    void readTexts();
    void sort();
    void findLists();
    void takeEnd(bool is_done, const QString& why);
    void goOn();
    void catchUp();
    void applyFilter();
    void rebuild();
    [[nodiscard]] bool isWanted(Job job) const { return wanted_[static_cast<std::size_t>(job)]; }
    void want(Job job, bool is_wanted = true) {
        wanted_[static_cast<std::size_t>(job)] = is_wanted;
    }
    [[nodiscard]] BookDocument::Numbers everyNumber() const;

    BookDocument& document_;
    BookDocument::Numbers rows_;
    BookDocument::Numbers order_;  // none for that of the files
    std::size_t known_ = 0;        // how many records there were
    std::size_t list_count_ = 0;

    std::vector<std::string> words_;   // what is shown has them
    std::vector<std::string> wished_;  // what is to have them, once the texts are there
    std::shared_ptr<book::ValueFilter> texts_;
    book::ValueFilter::Found found_;
    BookDocument::Numbers stale_;  // changed while texts were read

    std::optional<book::Column> column_;
    bool is_descending_ = false;
    std::shared_ptr<const book::Memberships> memberships_;

    Job running_ = Job::None;
    std::array<bool, 4> wanted_{};
    // Last, so that its work ends before anything else goes.
    BookWorker worker_;
};

}  // namespace orvik
