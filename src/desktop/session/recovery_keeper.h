// Keeps the open book while it is other than its file, so that no end of the program loses it.
//
// What is kept is the book as it stood between two commands, or two keys in edit mode: in the
// middle of a command there may be no book at all.
//
// A book that gave way to another one before it was saved is set aside: it stays on the disk beside
// the open one until it comes back by undoing. What is still set aside when the program ends is
// offered by the next start.

#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/module1.h"
#include "files/recovery_copy.h"
#include "store/recovery_store.h"
#include "store/recovery_writer.h"

namespace orvik {

class RecoveryKeeper : public QObject {
    Q_OBJECT
 public:
    // From a change to its writing. A book of a million entries is on the disk within three
    // seconds.
    static constexpr std::chrono::milliseconds kInterval{2000};

    // files must outlive the keeper. What is not kept any more goes when the keeper does.
    explicit RecoveryKeeper(FileSystem& files, std::chrono::milliseconds interval = kInterval);

    // No command runs: the book is seen as it stands, under the title that the user sees. It takes
    // no longer for a large one.
    void see(Module1& module, const std::string& title);
    // To be called before see() if the last command went on though the book was not saved: where
    // another stands in its place, the one that was seen last is set aside.
    void goesOnUnsaved(const Module1& module);
    // Waits until what was seen last is on the disk, or cannot be written.
    void keepNow();
    // The program ends: what the user has given up, or saved, goes, and anything else is kept.
    void end(Module1& module);

    // What programs that have ended left, the newest first.
    [[nodiscard]] std::vector<RecoveryStore::Left> leftBooks() const { return store_.LeftBooks(); }
    void discard(const RecoveryStore::Left& left) const { store_.Remove(left); }
    // The open book, which is seen next, is this one: it goes as soon as the book is kept here.
    void adopt(RecoveryStore::Left left);
    // The open book is not the adopted one any more, and nobody has saved it or given it up: it is
    // offered again.
    void letGo();
    // Removes what is kept, of ended programs too, but for the open book.
    void removeAll();

 signals:
    // Said once: the book cannot be kept, and why.
    void failed(const QString& why);

 private:
    // A book that gave way to another, and may come and go by undoing and redoing.
    struct Aside {
        int Number = 0;
        std::uint64_t Revision = 0;  // of its text
        std::uint64_t Next = 0;      // of the text that took its place
        SharedText Short;            // the text, where edit mode could make it anew
        std::string Mode;
        bool IsBack = false;  // it is the open book, or was changed since
    };
    [[nodiscard]] static bool isText(const Aside& aside,
                                     const SharedText& text,
                                     std::string_view mode);
    void setAside(const Module1& module);
    // Returns whether a book came back.
    bool followUndo(const Module1& module);
    void dropOldest();
    void keep();
    void forget();
    void dropSeen();
    [[nodiscard]] bool hasLeft();
    void waitUntilLeft();
    void look();
    [[nodiscard]] bool isKept(const Module1& module, const std::string& title) const;

    RecoveryStore store_;
    RecoveryWriter writer_{store_};
    std::chrono::milliseconds interval_;
    QTimer timer_;
    std::optional<RecoveryCopy> seen_;  // none: there is nothing to keep
    RecoveryWriter::Copies earlier_;    // the writer lets go of them
    bool given_ = false;                // the writer has it
    bool told_ = false;
    bool leaves_ = false;  // what is on the disk, when the writer is done
    std::vector<RecoveryStore::Left> adopted_;
    std::vector<Aside> aside_;  // the oldest first
    int last_number_ = 0;
};

}  // namespace orvik
