#include "desktop/book/problem_model.h"

#include <QFont>
#include <algorithm>
#include <limits>

#include "book/readable_value.h"
#include "desktop/book/shown_text.h"

namespace orvik {

using book::ProblemKind;

ProblemModel::ProblemModel(const BookDocument& document, const ProblemList& list, QObject* parent)
    : QAbstractTableModel(parent), document_(document), list_(list) {
    makeSections();
}

void ProblemModel::setKind(std::optional<ProblemKind> kind) {
    kind_ = kind;
    renew();
}

void ProblemModel::renew() {
    beginResetModel();
    makeSections();
    endResetModel();
}

void ProblemModel::makeSections() {
    sections_.clear();
    std::size_t rows = 0;
    for (std::size_t i = 0; i < ProblemList::kKinds; ++i) {
        const auto kind = static_cast<ProblemKind>(i);
        if ((!kind_ || *kind_ == kind) && !list_.of(kind).empty()) {
            sections_.push_back({kind, static_cast<int>(rows)});
            rows += 1 + list_.of(kind).size();
        }
    }
    // More rows than a table has are not seen.
    rows_ =
        static_cast<int>(std::min(rows, static_cast<std::size_t>(std::numeric_limits<int>::max())));
}

const ProblemModel::Section* ProblemModel::sectionAt(int row) const {
    const auto behind = std::find_if(
        sections_.begin(), sections_.end(), [row](const Section& one) { return one.First > row; });
    return behind == sections_.begin() || row < 0 || row >= rows_ ? nullptr : &*(behind - 1);
}

const book::Problem* ProblemModel::at(int row) const {
    const Section* const section = sectionAt(row);
    return section == nullptr || section->First == row
               ? nullptr
               : &list_.of(section->Kind)[static_cast<std::size_t>(row - section->First - 1)];
}

int ProblemModel::nearestTo(int row) const {
    if (rows_ == 0) {
        return -1;
    }
    // Below each heading is a problem.
    const int near = std::clamp(row, 0, rows_ - 1);
    return at(near) == nullptr ? near + 1 : near;
}

int ProblemModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int ProblemModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

Qt::ItemFlags ProblemModel::flags(const QModelIndex& index) const {
    const bool is_problem = at(index.row()) != nullptr;
    return is_problem ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren
                      : Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
}

std::vector<int> ProblemModel::headings() const {
    std::vector<int> rows;
    rows.reserve(sections_.size());
    for (const Section& one : sections_) {
        rows.push_back(one.First);
    }
    return rows;
}

QString ProblemModel::headingOf(ProblemKind kind) const {
    const auto words = [kind] {
        switch (kind) {
            case ProblemKind::Assumed:
                return tr("What was assumed about files");
            case ProblemKind::Lost:
                return tr("Lost");
            case ProblemKind::Skipped:
                return tr("Skipped");
            case ProblemKind::Doubtful:
                return tr("Doubtful");
            case ProblemKind::BadAddress:
                return tr("Bad addresses");
            case ProblemKind::OddAddress:
                return tr("Odd addresses");
            default:
                return tr("Members who are no record");
        }
    };
    const QString count = QString::fromStdString(book::Grouped(list_.of(kind).size()));
    return QStringLiteral("%1 (%2)").arg(words(), count);
}

QVariant ProblemModel::data(const QModelIndex& index, int role) const {
    const Section* const section = index.isValid() ? sectionAt(index.row()) : nullptr;
    if (section == nullptr) {
        return {};
    }
    const book::Problem* const one = at(index.row());
    if (one == nullptr) {
        if (role == Qt::FontRole) {
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        return role == Qt::DisplayRole && index.column() == kWhat ? headingOf(section->Kind)
                                                                  : QVariant();
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    switch (index.column()) {
        case kWhat:
            return list_.words(*one);
        case kWho:
            return one->Record == book::Problem::kNobody ? QString()
                                                         : RecordName(document_, one->Record);
        default: {
            const ProblemList::Place place = list_.placeOf(*one);
            return place.Line > 0 && document_.book().SourceCount() == 1
                       ? ShortPlace(place.Line)
                       : NearPlace(document_.book(), place.File, place.Line);
        }
    }
}

QVariant ProblemModel::headerData(int section, Qt::Orientation way, int role) const {
    if (way != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return section == kWhat ? tr("Problem") : section == kWho ? tr("Record") : tr("Where");
}

}  // namespace orvik
