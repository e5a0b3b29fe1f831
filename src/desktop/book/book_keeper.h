// Keeps the book of a Book window while it is other than what was read or saved last, so that no
// end of the program loses it.
//
// Its records are kept as cards, which are made on a thread of their own from a snapshot: neither
// the window nor its worker waits. The copies stand apart from those of the main window, whose
// books are texts.

#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "book/work_thread.h"
#include "desktop/book/book_document.h"
#include "store/recovery_store.h"
#include "store/recovery_writer.h"

namespace orvik {

class BookKeeper : public QObject {
    Q_OBJECT
 public:
    static constexpr std::string_view kFolder = "book-recovery";
    // From the beginning of one copy to that of the next.
    static constexpr std::chrono::milliseconds kInterval{2000};

    // Both must outlive the keeper.
    BookKeeper(BookDocument& document,
               FileSystem& files,
               std::chrono::milliseconds interval = kInterval);
    BookKeeper(const BookKeeper&) = delete;
    BookKeeper& operator=(const BookKeeper&) = delete;
    BookKeeper(BookKeeper&&) = delete;
    BookKeeper& operator=(BookKeeper&&) = delete;
    ~BookKeeper() override = default;

    // Waits until the book as it stands is on the disk, or cannot be written.
    void keepNow();

    // What programs that have ended left, the newest first.
    [[nodiscard]] std::vector<RecoveryStore::Left> leftBooks() const { return store_.LeftBooks(); }
    void discard(const RecoveryStore::Left& left) const { store_.Remove(left); }
    void removeLeft() const { store_.RemoveLeft(); }
    // The names of the files that such a copy was made of.
    [[nodiscard]] static QStringList filesOf(const RecoveryCopy& copy);
    // The name under which such a copy is read.
    [[nodiscard]] static std::string nameOf(const RecoveryCopy& copy);

    // The book holds what this copy does: it goes as soon as the book is kept here, or saved.
    void adopt(RecoveryStore::Left left);

 signals:
    // Said once: the book cannot be kept, and why.
    void failed(const QString& why);
    // There is something to look at, for this object alone.
    void made();

 private:
    // A copy in the making.
    struct Making {
        BookDocument::Snapshot Of;
        std::uint64_t Revision = 0;
        RecoveryCopy Copy = {};
        bool IsWanted = true;
    };

    void see();
    void look();
    void make();
    void takeMade();
    void forget();
    void tell(const QString& problem);

    BookDocument& document_;
    RecoveryStore store_;
    RecoveryWriter writer_{store_};
    std::chrono::milliseconds interval_;
    QTimer timer_;
    QElapsedTimer since_made_;
    std::shared_ptr<Making> making_;
    std::optional<std::uint64_t> given_;  // the revision that the writer has
    std::vector<RecoveryStore::Left> adopted_;
    bool told_ = false;
    book::WorkThread maker_;
};

}  // namespace orvik
