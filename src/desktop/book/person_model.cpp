#include "desktop/book/person_model.h"

#include <QGuiApplication>

#include "book/field_words.h"
#include "desktop/book/shown_text.h"
#include "desktop/text/colours.h"

namespace orvik {
namespace {

bool IsMember(const book::Property& one) {
    return one.Name == book::field::kMember || one.Name == book::field::kServerMember;
}

}  // namespace

PersonModel::PersonModel(const BookDocument& document, const BookChecks& checks, QObject* parent)
    : QAbstractTableModel(parent), document_(document), checks_(checks) {}

void PersonModel::setRecord(std::optional<BookDocument::Number> record) {
    beginResetModel();
    record_ = record;
    lists_.clear();
    if (record_) {
        labels_.Fill(document_.book(), document_.at(*record_));
        lists_ = checks_.listsOf(*record_);
    }
    endResetModel();
}

int PersonModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || !record_
               ? 0
               : static_cast<int>(document_.at(*record_).Properties.size() + lists_.size());
}

int PersonModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

bool PersonModel::isField(int row) const {
    return static_cast<std::size_t>(row) < document_.at(*record_).Properties.size();
}

const book::Property& PersonModel::fieldAt(int row) const {
    return document_.at(*record_).Properties[static_cast<std::size_t>(row)];
}

std::optional<BookDocument::Number> PersonModel::recordOf(int row) const {
    if (!record_ || row < 0 || row >= rowCount()) {
        return std::nullopt;
    }
    if (!isField(row)) {
        return lists_[static_cast<std::size_t>(row) - document_.at(*record_).Properties.size()];
    }
    const auto member = checks_.memberAt(fieldAt(row).Value.data());
    const bool is_there = document_.at(*record_).Kind == book::ContactKind::List && member &&
                          *member != BookChecks::kNobody && document_.isThere(*member);
    return is_there ? member : std::nullopt;
}

std::string PersonModel::textOf(int row, std::size_t most) const {
    return book::ShownValue(document_.book(), fieldAt(row), most);
}

QString PersonModel::valueOf(int row, std::size_t most) const {
    if (const auto record = recordOf(row)) {
        return RecordName(document_, *record);
    }
    return ShownLines(textOf(row, most));
}

// The file of the record stands above the table.
QString PersonModel::placeOf(const book::Property& field) const {
    if (field.Line == 0) {
        return tr("added here");
    }
    return field.File == document_.at(*record_).From.File
               ? ShortPlace(field.Line)
               : NearPlace(document_.book(), field.File, field.Line);
}

QVariant PersonModel::data(const QModelIndex& index, int role) const {
    const int row = index.row();
    if (index.isValid() && role == Qt::ForegroundRole && index.column() == kValue &&
        recordOf(row)) {
        return LinkColour(QGuiApplication::palette());
    }
    if (!index.isValid() || role != Qt::DisplayRole) {
        return {};
    }
    const book::Book& book = document_.book();
    switch (index.column()) {
        case kWhat:
            return isField(row) ? ShownLine(book::FieldWords(book, fieldAt(row), labels_))
                                : tr("In the list");
        case kValue: {
            const auto record = recordOf(row);
            if (!record) {
                return ShownLine(textOf(row, kMostOfLine));
            }
            // Lists of Evolution have addresses as members.
            return isField(row) && !IsMember(fieldAt(row))
                       ? tr("%1 (%2)").arg(ShownLine(textOf(row, kMostOfLine)),
                                           RecordName(document_, *record))
                       : RecordName(document_, *record);
        }
        case kFrom:
            return isField(row) ? placeOf(fieldAt(row)) : QString();
        default:
            return {};
    }
}

QVariant PersonModel::headerData(int section, Qt::Orientation way, int role) const {
    if (way != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
        case kWhat:
            return tr("What");
        case kValue:
            return tr("Value");
        case kFrom:
            return tr("From");
        default:
            return {};
    }
}

}  // namespace orvik
