#include "desktop/book/problem_list.h"

#include <QPointer>
#include <QUndoCommand>
#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "book/facts.h"
#include "book/value_edit.h"
#include "book_cli/told.h"
#include "desktop/book/shown_text.h"
#include "desktop/text/short_text.h"

namespace orvik {

using book::Problem;
using book::ProblemKind;

class ProblemList::Settling : public QUndoCommand {
 public:
    Settling(const QString& name, ProblemList& list, std::vector<Key> keys)
        : QUndoCommand(name), list_(&list), keys_(std::move(keys)) {}

    void undo() override { settle(false); }
    void redo() override { settle(true); }

 private:
    void settle(bool settled) const {
        if (!list_.isNull()) {
            list_->settle(keys_, settled);
        }
    }

    QPointer<ProblemList> list_;
    std::vector<Key> keys_;
};

ProblemList::ProblemList(BookDocument& document, BookChecks& checks, QObject* parent)
    : QObject(parent), document_(document), checks_(checks) {}

std::size_t ProblemList::count() const {
    std::size_t count = 0;
    for (const Problems& one : problems_) {
        count += one.size();
    }
    return count;
}

bool ProblemList::isAboutRemark(const Problem& one) {
    return one.Kind == ProblemKind::Lost || one.Kind == ProblemKind::Skipped ||
           one.Kind == ProblemKind::Doubtful;
}

const book::Remark& ProblemList::remarkOf(const Problem& one) const {
    return document_.book().Told.Remarks()[one.Number];
}

ProblemList::Key ProblemList::keyOf(const Problem& one) const {
    if (isAboutRemark(one) || one.Kind == ProblemKind::Assumed) {
        return {one.Kind, one.Number, nullptr};
    }
    // Its number is another one when a field before it goes.
    return {one.Kind, one.Record, document_.at(one.Record).Properties[one.Number].Value.data()};
}

bool ProblemList::isSettled(const Key& key) const {
    return std::binary_search(settled_.begin(), settled_.end(), key);
}

void ProblemList::growRemarks() {
    const auto& remarks = document_.book().Told.Remarks();
    const book::RecordOrigins& origins = checks_.origins();
    std::size_t near = 0;
    for (std::size_t i = remark_records_.size(); i < remarks.size(); ++i) {
        remark_records_.push_back(origins.RecordAt(remarks[i].File, remarks[i].Line, near));
    }
}

void ProblemList::refreshFiles() {
    const book::Book& book = document_.book();
    file_is_there_.assign(book.SourceCount(), false);
    for (std::uint32_t file = 0; file < book.SourceCount(); ++file) {
        file_is_there_[file] = book.ReadFrom(file) == 0;
    }
    for (BookDocument::Number i = 0; i < document_.count(); ++i) {
        if (document_.isThere(i) && document_.at(i).From.Lines > 0) {
            file_is_there_[document_.at(i).From.File] = true;
        }
    }
    Problems files;
    for (std::uint32_t file = 0; file < document_.loaded().Inputs.size(); ++file) {
        if (file_is_there_[file]) {
            files.push_back({Problem::kNobody, file, ProblemKind::Assumed});
        }
    }
    add(files);
}

// Those of records that are gone are gone, too.
void ProblemList::refreshRemarks() {
    const auto& remarks = document_.book().Told.Remarks();
    for (std::uint32_t i = 0; i < remarks.size(); ++i) {
        const auto kind = book::ProblemKindOf(remarks[i].Kind);
        const std::uint32_t record = remark_records_[i];
        const bool is_there = record == Problem::kNobody ? file_is_there_[remarks[i].File]
                                                         : document_.isThere(record);
        if (kind && is_there && !isSettled({*kind, i, nullptr})) {
            problems_[static_cast<std::size_t>(*kind)].push_back({record, i, *kind});
        }
    }
}

void ProblemList::add(const Problems& ones) {
    for (const Problem& one : ones) {
        const bool is_there = one.Record == Problem::kNobody || document_.isThere(one.Record);
        if (is_there && !isSettled(keyOf(one))) {
            problems_[static_cast<std::size_t>(one.Kind)].push_back(one);
        }
    }
}

void ProblemList::refresh() {
    for (Problems& one : problems_) {
        one.clear();
    }
    if (is_seen_) {
        growRemarks();
        refreshFiles();
        refreshRemarks();
        add(checks_.addresses());
        add(checks_.missing());
    }
    emit changed();
}

std::optional<std::size_t> ProblemList::fieldOf(const Problem& one) const {
    if (one.Record == Problem::kNobody) {
        return std::nullopt;
    }
    return isAboutRemark(one) ? book::FieldOfRemark(document_.at(one.Record), remarkOf(one))
                              : std::optional<std::size_t>(one.Number);
}

std::optional<QString> ProblemList::textOf(const Problem& one) const {
    const auto field = fieldOf(one);
    if (!field) {
        return std::nullopt;
    }
    const book::Property& property = document_.at(one.Record).Properties[*field];
    const auto text = book::EditableText(document_.book(), property);
    return text && text->size() <= static_cast<std::size_t>(kMostTyped)
               ? std::optional(QString::fromStdString(*text))
               : std::nullopt;
}

bool ProblemList::isAddress(const Problem& one) const {
    const auto field = fieldOf(one);
    return field && document_.at(one.Record).Properties[*field].Name == book::field::kEmail;
}

ProblemList::Place ProblemList::placeOf(const Problem& one) const {
    if (one.Kind == ProblemKind::Assumed) {
        return {one.Number, 0};
    }
    if (isAboutRemark(one)) {
        return {remarkOf(one).File, remarkOf(one).Line};
    }
    const book::Contact& contact = document_.at(one.Record);
    const book::Property& field = contact.Properties[one.Number];
    return {field.File, field.Line == 0 ? contact.From.Line : field.Line};
}

QString ProblemList::fileWords(std::uint32_t file, const QString& between) const {
    const book_cli::Input& input = document_.loaded().Inputs[file];
    const auto line = [](const std::string& text) { return ShownLine(text); };
    QStringList words;
    words << (input.Program.empty() ? QString() : line(input.Program) + QLatin1Char(' ')) +
                 line(std::string(book::NameOf(input.Form))) +
                 (input.Evidence.empty() ? QString()
                                         : QStringLiteral(" (%1)").arg(line(input.Evidence)));
    words << (input.CharsetIsDoubtful ? tr("letters doubtful: %1") : tr("letters: %1"))
                 .arg(line(input.Charset));
    if (!input.Columns.empty()) {
        words << line(input.Columns);
    }
    return words.join(between);
}

QString ProblemList::words(const Problem& one) const {
    const book::Book& book = document_.book();
    if (one.Kind == ProblemKind::Assumed) {
        return fileWords(one.Number, QStringLiteral("; "));
    }
    return QString::fromStdString(
        isAboutRemark(one)
            ? book_cli::RemarkWords(book, remarkOf(one))
            : FlawWords(book, document_.at(one.Record).Properties[one.Number], one.Kind));
}

QString ProblemList::wholeWords(const Problem& one) const {
    const Place place = placeOf(one);
    const QString where = PlaceWords(document_.book(), place.File, place.Line);
    if (one.Kind == ProblemKind::Assumed) {
        return where + QLatin1Char('\n') + fileWords(one.Number, QStringLiteral("\n"));
    }
    const QString who =
        one.Record == Problem::kNobody ? QString() : RecordName(document_, one.Record);
    return (who.isEmpty() ? where : tr("%1 (%2)").arg(who, where)) + QLatin1Char('\n') + words(one);
}

// Both are sorted.
void ProblemList::settle(const std::vector<Key>& keys, bool settled) {
    std::vector<Key> after;
    if (settled) {
        std::set_union(
            settled_.begin(), settled_.end(), keys.begin(), keys.end(), std::back_inserter(after));
    } else {
        std::set_difference(
            settled_.begin(), settled_.end(), keys.begin(), keys.end(), std::back_inserter(after));
    }
    settled_ = std::move(after);
    refresh();
}

void ProblemList::pushSettled(const QString& name, const Problems& ones) {
    std::vector<Key> keys;
    keys.reserve(ones.size());
    for (const Problem& one : ones) {
        keys.push_back(keyOf(one));
    }
    std::sort(keys.begin(), keys.end());
    document_.undoStack().push(new Settling(name, *this, std::move(keys)));
}

void ProblemList::keep(const Problems& ones) {
    if (!ones.empty() && !document_.isFrozen()) {
        pushSettled(
            ones.size() == 1 ? tr("Keep a problem as it is") : tr("Keep problems as they are"),
            ones);
    }
}

// What a remark was about is another value then; an address is looked at again.
void ProblemList::fix(const Problem& one, const QString& text) {
    const auto field = fieldOf(one);
    if (!field || document_.isFrozen()) {
        return;
    }
    const book::Contact& contact = document_.at(one.Record);
    const std::string value =
        book::ValueOfText(document_.book(), contact.Properties[*field], text.toStdString());
    std::vector<book::Property> fields = book::FieldsWith(contact, *field, document_.keep(value));
    BookDocument::Changes changes{{one.Record, document_.withFields(contact, fields)}};
    const QString name = tr("Fix a problem");
    if (!isAboutRemark(one)) {
        document_.change(name, std::move(changes));
        return;
    }
    document_.undoStack().beginMacro(name);
    pushSettled(name, {one});
    document_.change(name, std::move(changes));
    document_.undoStack().endMacro();
}

bool ProblemList::canLeaveOut(const Problem& one) {
    return one.Record != Problem::kNobody;
}

void ProblemList::leaveOut(const Problems& ones) {
    if (document_.isFrozen()) {
        return;
    }
    // Several may be about one record, or about one field.
    std::map<BookDocument::Number, std::set<std::size_t>> fields_of;
    std::set<BookDocument::Number> records;
    Problems about_remarks;
    for (const Problem& one : ones) {
        if (!canLeaveOut(one)) {
            continue;
        }
        const auto field = fieldOf(one);
        if (field) {
            fields_of[one.Record].insert(*field);
        } else {
            records.insert(one.Record);
        }
        if (field && isAboutRemark(one)) {
            about_remarks.push_back(one);
        }
    }
    BookDocument::Changes changes;
    for (const auto& [record, fields] : fields_of) {
        if (!records.contains(record)) {
            const book::Contact& contact = document_.at(record);
            std::vector<book::Property> left = book::FieldsWithout(contact, fields);
            changes.push_back({record, document_.withFields(contact, left), true});
        }
    }
    for (const BookDocument::Number one : records) {
        changes.push_back({one, document_.at(one), false});
    }
    if (changes.empty()) {
        return;
    }
    const QString name = changes.size() > 1 ? tr("Leave out what is wrong")
                         : records.empty()  ? tr("Leave out a value")
                                            : tr("Leave out a record");
    document_.undoStack().beginMacro(name);
    if (!about_remarks.empty()) {
        pushSettled(name, about_remarks);
    }
    document_.change(name, std::move(changes));
    document_.undoStack().endMacro();
}

}  // namespace orvik
