// What may be one person among the records of a Book window: it is looked for, decided about,
// merged, and saved and loaded as a plan. Long work runs in the worker.

#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "book/match/decisions.h"
#include "desktop/book/book_document.h"
#include "desktop/book/book_worker.h"
#include "platform/file_system.h"

class QUndoCommand;

namespace orvik {

class Duplicates : public QObject {
    Q_OBJECT
 public:
    // A group of records, by its number until others are found.
    using Line = std::uint32_t;
    using Lines = std::vector<Line>;
    enum class State : std::uint8_t { Open, Ticked, Kept, Later, Merged, Old };

    // All must outlive this.
    Duplicates(BookDocument& document, BookWorker& worker, FileSystem& files, QObject* parent);

    [[nodiscard]] BookDocument& document() const { return document_; }
    [[nodiscard]] const book::DecidedLines& lines() const { return *lines_; }
    // Of what was not compared.
    [[nodiscard]] const std::vector<std::string>& notes() const { return notes_; }
    [[nodiscard]] State stateOf(Line line) const;
    [[nodiscard]] bool hasLooked() const { return has_looked_; }
    // How many records are there that nobody has compared as they are now.
    [[nodiscard]] std::size_t notCompared() const { return not_compared_; }
    // Groups of a tier, whatever their state.
    [[nodiscard]] std::size_t countOf(book::Tier tier) const;

    // Those that can be merged without asking, and those that are ticked.
    [[nodiscard]] Lines sure() const;
    [[nodiscard]] Lines ticked() const;
    [[nodiscard]] std::size_t sureCount() const { return sure_count_; }
    [[nodiscard]] std::size_t tickedCount() const { return ticked_count_; }
    // Nothing can be decided while the document is frozen, or this works.
    [[nodiscard]] bool canDecide() const;
    [[nodiscard]] bool canWork() const;

    void look();
    // Only groups whose records are as they were compared can be decided about, or merged.
    void say(const Lines& lines, book::Decision decision);
    void merge(const Lines& chosen);
    void savePlan(const QString& file);
    void loadPlan(const QString& file);

    [[nodiscard]] bool isWorking() const { return is_working_; }

 signals:
    // There are other groups.
    void linesChanged();
    void statesChanged();
    // Work of this began or ended, or what can be done is something else.
    void workChanged();
    // What has become of it, or of what was asked for.
    void told(const QString& text);
    // A plan holds for another book, or is none: what is wrong with it, by line.
    void planRefused(const QString& file, const QStringList& errors);

 private:
    using Fields = std::vector<const book::Property*>;
    // What the worker finds out.
    struct Found {
        book::DecidedLines Lines;
        std::vector<std::string> Notes;
        Fields Compared;
    };
    struct Merging;
    struct Plan;
    // A merging as a step of undo: it is done as long as that is.
    struct Merge {
        int Index = 0;
        const QUndoCommand* Step = nullptr;
    };

    // Nothing else works. The document is frozen meanwhile if has_frozen_ says so.
    void start(const QString& what, BookWorker::Work work, std::function<void()> done);
    void end(bool is_done, const QString& why);
    void takeFound(Found& found);
    void takeMerged(const BookDocument::Snapshot& snapshot, Merging& merging);
    void takePlan(const QString& file, Plan& plan);
    // Looks in the worker, where lines and their standing stay as they are meanwhile.
    [[nodiscard]] std::function<Found(const BookWorker::Watch&)> lookLater() const;
    // All records, also those that went, under their own numbers.
    [[nodiscard]] BookDocument::Snapshot everybody() const;
    [[nodiscard]] std::function<book::Standing(Line)> standings() const;
    // Looks again how the groups stand to the document.
    void judge();
    void refresh();
    [[nodiscard]] bool isAsCompared(BookDocument::Number record) const;
    [[nodiscard]] bool isSure(Line line) const;
    // Counts a line among those that are sure or ticked, or no longer.
    void count(Line line, bool is_in);

    BookDocument& document_;
    BookWorker& worker_;
    FileSystem& files_;
    // The worker may read them: they are not changed while it works.
    std::shared_ptr<book::DecidedLines> lines_ = std::make_shared<book::DecidedLines>();
    std::vector<std::string> notes_;
    std::vector<book::Standing> standing_;  // by line
    // By record: its fields when it was compared. Other fields stand elsewhere.
    Fields compared_;
    std::vector<Merge> merges_;
    std::size_t not_compared_ = 0;
    std::size_t sure_count_ = 0;
    std::size_t ticked_count_ = 0;
    bool has_looked_ = false;
    bool is_working_ = false;
    bool has_frozen_ = false;
};

}  // namespace orvik
