// What looks wrong in the book of a window, but for what the user has settled: each settling is a
// step that can be undone.

#pragma once

#include <QObject>
#include <QString>
#include <array>
#include <cstdint>
#include <optional>
#include <tuple>
#include <vector>

#include "book/problems.h"
#include "desktop/book/book_checks.h"
#include "desktop/book/book_document.h"

namespace orvik {

class ProblemList : public QObject {
    Q_OBJECT
 public:
    static constexpr std::size_t kKinds = static_cast<std::size_t>(book::ProblemKind::kCount);
    using Problems = std::vector<book::Problem>;

    // Both must outlive the list.
    ProblemList(BookDocument& document, BookChecks& checks, QObject* parent);

    // Makes the list anew of what there is now, which takes a pass over numbers; an empty one as
    // long as nobody sees it.
    void refresh();
    void setSeen(bool seen) { is_seen_ = seen; }
    [[nodiscard]] const Problems& of(book::ProblemKind kind) const {
        return problems_[static_cast<std::size_t>(kind)];
    }
    [[nodiscard]] std::size_t count() const;

    // The field of the record that a problem is about; nothing where it is about none.
    [[nodiscard]] std::optional<std::size_t> fieldOf(const book::Problem& one) const;
    // What is said of it, and where it is.
    [[nodiscard]] QString words(const book::Problem& one) const;
    // The same at full length, with what is known of its file.
    [[nodiscard]] QString wholeWords(const book::Problem& one) const;
    struct Place {
        std::uint32_t File = 0;
        std::uint32_t Line = 0;  // 0 for none
    };
    [[nodiscard]] Place placeOf(const book::Problem& one) const;

    // The text that fix() would change, if there is one, and whether it is an address.
    [[nodiscard]] std::optional<QString> textOf(const book::Problem& one) const;
    [[nodiscard]] bool isAddress(const book::Problem& one) const;

    // Takes problems from the list; the book stays.
    void keep(const Problems& ones);
    // Gives the field that a problem is about another text.
    void fix(const book::Problem& one, const QString& text);
    // Takes away the fields or, where problems are about none, the records that they are about.
    void leaveOut(const Problems& ones);
    [[nodiscard]] static bool canLeaveOut(const book::Problem& one);

 signals:
    void changed();

 private:
    class Settling;
    // By number, or by the place of a value.
    using Key = std::tuple<book::ProblemKind, std::uint32_t, const char*>;

    [[nodiscard]] Key keyOf(const book::Problem& one) const;
    [[nodiscard]] bool isSettled(const Key& key) const;
    void settle(const std::vector<Key>& keys, bool settled);
    void pushSettled(const QString& name, const Problems& ones);
    void growRemarks();
    void refreshFiles();
    void refreshRemarks();
    void add(const Problems& ones);
    [[nodiscard]] QString fileWords(std::uint32_t file, const QString& between) const;
    [[nodiscard]] const book::Remark& remarkOf(const book::Problem& one) const;
    [[nodiscard]] static bool isAboutRemark(const book::Problem& one);

    BookDocument& document_;
    BookChecks& checks_;
    bool is_seen_ = false;
    // The record of each remark.
    std::vector<std::uint32_t> remark_records_;
    // Whether records of a file are there, or it never had any.
    std::vector<bool> file_is_there_;
    std::vector<Key> settled_;  // sorted
    std::array<Problems, kKinds> problems_;
};

}  // namespace orvik
