#include "desktop/book/duplicates_model.h"

#include <algorithm>

#include "desktop/book/shown_text.h"
#include "desktop/text/plain_text.h"

namespace orvik {
namespace {

using State = Duplicates::State;

QString StateWords(State state) {
    switch (state) {
        case State::Open:
            return DuplicatesModel::tr("undecided");
        case State::Ticked:
            return DuplicatesModel::tr("to be merged");
        case State::Kept:
            return DuplicatesModel::tr("kept apart");
        case State::Later:
            return DuplicatesModel::tr("later");
        case State::Merged:
            return DuplicatesModel::tr("merged");
        case State::Old:
            return DuplicatesModel::tr("changed: look again");
    }
    return {};
}

}  // namespace

QString TierWords(book::Tier tier) {
    switch (tier) {
        case book::Tier::Same:
            return DuplicatesModel::tr("same");
        case book::Tier::Contained:
            return DuplicatesModel::tr("contained");
        case book::Tier::Agree:
            return DuplicatesModel::tr("agree");
        case book::Tier::Address:
            return DuplicatesModel::tr("share an address");
        case book::Tier::Name:
            return DuplicatesModel::tr("share a name");
        case book::Tier::Plan:
            return DuplicatesModel::tr("only in the plan");
    }
    return {};
}

DuplicatesModel::DuplicatesModel(Duplicates& duplicates, QObject* parent)
    : QAbstractTableModel(parent), duplicates_(duplicates) {
    connect(&duplicates_, &Duplicates::linesChanged, this, &DuplicatesModel::fill);
    connect(&duplicates_, &Duplicates::statesChanged, this, &DuplicatesModel::update);
}

void DuplicatesModel::setFilter(std::optional<book::Tier> tier, bool undecided_only) {
    tier_ = tier;
    undecided_only_ = undecided_only;
    fill();
}

int DuplicatesModel::rowOf(Duplicates::Line line) const {
    const auto found = std::lower_bound(rows_.begin(), rows_.end(), line);
    return found == rows_.end() || *found != line ? -1 : static_cast<int>(found - rows_.begin());
}

bool DuplicatesModel::isShown(Duplicates::Line line) const {
    return (!tier_ || duplicates_.lines()[line].Match.Why == *tier_) &&
           (!undecided_only_ || duplicates_.stateOf(line) == State::Open);
}

void DuplicatesModel::fill() {
    beginResetModel();
    rows_.clear();
    for (Duplicates::Line i = 0; i < duplicates_.lines().size(); ++i) {
        if (isShown(i)) {
            rows_.push_back(i);
        }
    }
    endResetModel();
}

void DuplicatesModel::update() {
    if (undecided_only_) {
        fill();
    } else if (!rows_.empty()) {
        emit dataChanged(index(0, 0), index(rowCount() - 1, kColumns - 1));
    }
}

int DuplicatesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int DuplicatesModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QString DuplicatesModel::textOf(Duplicates::Line line, int column) const {
    const book::MatchLine& match = duplicates_.lines()[line].Match;
    switch (column) {
        case kDecision:
            return StateWords(duplicates_.stateOf(line));
        case kTier:
            return TierWords(match.Why);
        case kRecords:
            return QString::number(match.Records.size());
        default:
            return ShownLine(match.Reason);
    }
}

QVariant DuplicatesModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const Duplicates::Line line = lineAt(index.row());
    switch (role) {
        case Qt::DisplayRole:
            return textOf(line, index.column());
        case Qt::ToolTipRole:
            return PlainTip(textOf(line, index.column()));
        case Qt::TextAlignmentRole:
            return index.column() == kRecords ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                                              : QVariant();
        case Qt::CheckStateRole:
            return index.column() == kDecision && canBeTicked(line)
                       ? QVariant(duplicates_.stateOf(line) == State::Ticked ? Qt::Checked
                                                                             : Qt::Unchecked)
                       : QVariant();
        default:
            return {};
    }
}

bool DuplicatesModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || !flags(index).testFlag(Qt::ItemIsUserCheckable)) {
        return false;
    }
    duplicates_.say({lineAt(index.row())},
                    value.toInt() == Qt::Checked ? book::Decision::Merge : book::Decision::Open);
    return true;
}

QVariant DuplicatesModel::headerData(int section, Qt::Orientation way, int role) const {
    if (way != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
        case kDecision:
            return tr("Decision");
        case kTier:
            return tr("They");
        case kRecords:
            return tr("Records");
        default:
            return tr("Who");
    }
}

Qt::ItemFlags DuplicatesModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (!index.isValid() || index.column() != kDecision) {
        return flags;
    }
    return canBeTicked(lineAt(index.row())) && duplicates_.canDecide()
               ? flags | Qt::ItemIsUserCheckable
               : flags;
}

bool DuplicatesModel::canBeTicked(Duplicates::Line line) const {
    const State state = duplicates_.stateOf(line);
    return state != State::Merged && state != State::Old;
}

}  // namespace orvik
