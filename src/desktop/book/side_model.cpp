#include "desktop/book/side_model.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>
#include <QStringList>
#include <algorithm>
#include <utility>

#include "book/field_words.h"
#include "desktop/book/shown_text.h"
#include "desktop/text/colours.h"
#include "desktop/text/plain_text.h"

namespace orvik {
namespace {

using book::Alike;
using book::Fate;
using book::SideRow;
using book::SideValue;

// A sign that stands out without a colour, and what it says.
QString MarkOf(const SideRow& row) {
    switch (row.How) {
        case Alike::Equal:
            return QStringLiteral("=");
        case Alike::Spelled:
            return QStringLiteral("\u2248");
        case Alike::Different:
            return QStringLiteral("\u2260");
        case Alike::Partial:
            return QStringLiteral("+");
    }
    return {};
}

QString WordsOf(const SideRow& row) {
    switch (row.How) {
        case Alike::Equal:
            return SideModel::tr("equal");
        case Alike::Spelled:
            return SideModel::tr("written in several ways");
        case Alike::Different:
            return SideModel::tr("different");
        case Alike::Partial:
            return SideModel::tr("not in all");
    }
    return {};
}

// Nobody has to look at it.
bool IsQuiet(const SideRow& row) {
    return row.How == Alike::Equal || row.IsOfRecord;
}

}  // namespace

SideModel::SideModel(const BookDocument& document, QObject* parent)
    : QAbstractTableModel(parent), document_(document) {}

void SideModel::show(const BookDocument::Numbers& records) {
    beginResetModel();
    records_.clear();
    side_ = {};
    labels_.clear();
    const std::size_t most = std::min(records.size(), kMostRecords);
    std::size_t fields = 0;
    for (std::size_t i = 0; i < most; ++i) {
        fields += document_.at(records[i]).Properties.size();
    }
    if (most > 0 && fields <= kMostFields) {
        records_.assign(records.begin(), records.begin() + static_cast<std::ptrdiff_t>(most));
        side_ = book::Compare(document_.book(), records_);
        const std::uint32_t file = document_.at(records_.front()).From.File;
        is_one_file_ = std::all_of(records_.begin(), records_.end(), [&](auto record) {
            return document_.at(record).From.File == file;
        });
        labels_.resize(most);
        for (std::size_t i = 0; i < most; ++i) {
            labels_[i].Fill(*side_.From, side_.From->Contacts[i]);
        }
    }
    endResetModel();
}

int SideModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(side_.Rows.size());
}

int SideModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() || records_.empty() ? 0 : mergedColumn() + 1;
}

const SideValue* SideModel::valueAt(const SideRow& row, int column) const {
    const auto record = static_cast<std::uint32_t>(column - kFirstRecord);
    const auto found = std::lower_bound(
        row.Values.begin(), row.Values.end(), record, [](const SideValue& one, auto wanted) {
            return one.Record < wanted;
        });
    return found == row.Values.end() || found->Record != record ? nullptr : &*found;
}

QString SideModel::fieldOf(const SideRow& row) const {
    const SideValue& first = row.Values.front();
    return ShownLine(book::FieldWords(*side_.From, first.Field, labels_[first.Record]));
}

QString SideModel::valueOf(const SideValue& value) const {
    return ShownLine(book::ShownValue(*side_.From, value.Field, kMostOfLine));
}

QString SideModel::mergedOf(const SideRow& row) const {
    QStringList stay;
    QStringList carried;
    for (const SideValue& value : row.Values) {
        QStringList* const to = value.Becomes == Fate::Stays     ? &stay
                                : value.Becomes == Fate::Carried ? &carried
                                                                 : nullptr;
        const QString text = to == nullptr ? QString() : valueOf(value);
        if (to != nullptr && !to->contains(text)) {
            *to << text;
        }
    }
    if (row.Values.front().Becomes == Fate::Unknown) {
        return {};
    }
    if (stay.isEmpty() && carried.isEmpty()) {
        return tr("not kept");
    }
    if (!carried.isEmpty()) {
        stay << tr("carried along: %1").arg(carried.join(QStringLiteral(", ")));
    }
    return stay.join(QStringLiteral("; "));
}

QString SideModel::textOf(const SideRow& row, int column) const {
    if (column == kField) {
        return MarkOf(row) + u' ' + fieldOf(row);
    }
    if (column == mergedColumn()) {
        return mergedOf(row);
    }
    const SideValue* const value = valueAt(row, column);
    if (value == nullptr) {
        return {};
    }
    const bool competes = !IsQuiet(row) && row.How != Alike::Partial;
    if (competes && value->Becomes == Fate::Stays) {
        return tr("%1 (wins)").arg(valueOf(*value));
    }
    return value->Becomes == Fate::Carried ? tr("%1 (carried along)").arg(valueOf(*value))
                                           : valueOf(*value);
}

QVariant SideModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const SideRow& row = rowAt(index.row());
    switch (role) {
        case Qt::DisplayRole:
            return textOf(row, index.column());
        case Qt::AccessibleTextRole:
            return index.column() == kField ? fieldOf(row) + QStringLiteral(", ") + WordsOf(row)
                                            : textOf(row, index.column());
        case Qt::ToolTipRole:
            return PlainTip(index.column() == kField ? fieldOf(row) + u'\n' + WordsOf(row)
                                                     : textOf(row, index.column()));
        case Qt::FontRole:
            if (!IsQuiet(row)) {
                QFont bold = QGuiApplication::font();
                bold.setBold(true);
                return bold;
            }
            return {};
        case Qt::ForegroundRole:
            return IsQuiet(row) ? QVariant(QuietColour(QGuiApplication::palette())) : QVariant();
        default:
            return {};
    }
}

// The file where there are several, and not where that is.
QString SideModel::placeOf(const book::Origin& from) const {
    if (from.Lines == 0) {
        return tr("added here");
    }
    return is_one_file_ ? ShortPlace(from.Line) : NearPlace(document_.book(), from.File, from.Line);
}

QVariant SideModel::headerData(int section, Qt::Orientation way, int role) const {
    const bool is_record = section >= kFirstRecord && section < mergedColumn();
    if (way == Qt::Horizontal && role == Qt::ToolTipRole && is_record) {
        const book::Origin& from =
            document_.at(records_[static_cast<std::size_t>(section - kFirstRecord)]).From;
        return from.Lines == 0
                   ? QVariant()
                   : QVariant(PlainTip(PlaceWords(document_.book(), from.File, from.Line)));
    }
    if (way != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    if (section == kField) {
        return tr("Field");
    }
    if (section == mergedColumn()) {
        return tr("After merging");
    }
    const auto number = static_cast<std::size_t>(section - kFirstRecord);
    const QString place = placeOf(document_.at(records_[number]).From);
    return number == 0 ? tr("%1 (stays)").arg(place) : place;
}

}  // namespace orvik
