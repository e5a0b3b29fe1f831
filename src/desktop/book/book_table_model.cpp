#include "desktop/book/book_table_model.h"

#include <QFont>
#include <algorithm>
#include <limits>

#include "app/printable.h"
#include "desktop/text/plain_text.h"
#include "desktop/text/short_text.h"

namespace orvik {
namespace {

using book::Column;
using book::Editable;

Column ColumnAt(const QModelIndex& index) {
    return static_cast<Column>(index.column());
}

// Cells are narrower than windows.
constexpr qsizetype kMostInCell = 400;

}  // namespace

BookTableModel::BookTableModel(const BookDocument& document,
                               const BookRows& rows,
                               RecordEdits& edits,
                               QObject* parent)
    : QAbstractTableModel(parent), document_(document), rows_(rows), edits_(edits) {
    connect(&rows_, &BookRows::aboutToChange, this, [this] { beginResetModel(); });
    connect(&rows_, &BookRows::changed, this, [this] { endResetModel(); });
    const auto repaint = [this](int first, int last) {
        if (rowCount() > 0) {
            emit dataChanged(index(0, first), index(rowCount() - 1, last));
        }
    };
    connect(&document_, &BookDocument::changed, this, [this, repaint] {
        repaint(0, columnCount() - 1);
    });
    // This comes at any time, and must not take away what is being typed in another column.
    connect(&rows_, &BookRows::listsFound, this, [repaint] {
        constexpr int kLists = static_cast<int>(Column::Lists);
        repaint(kLists, kLists);
    });
}

int BookTableModel::rowCount(const QModelIndex& parent) const {
    constexpr std::size_t kMostRows = std::numeric_limits<int>::max();
    return parent.isValid() ? 0 : static_cast<int>(std::min(rows_.rows().size(), kMostRows));
}

int BookTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(book::kColumns);
}

BookDocument::Number BookTableModel::recordAt(int row) const {
    return rows_.rows().at(static_cast<std::size_t>(row));
}

QVariant BookTableModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
        case Qt::AccessibleTextRole:
            return textAt(index, kMostInCell);
        case Qt::EditRole:
            if (const auto what = editableIn(index.column())) {
                const std::string text =
                    book::EditText(document_.book(), document_.at(recordAt(index.row())), *what);
                return QString::fromStdString(text);
            }
            return {};
        case Qt::ToolTipRole:
            return tipAt(index);
        case Qt::FontRole:
            if (ColumnAt(index) == Column::Name &&
                document_.at(recordAt(index.row())).Kind == book::ContactKind::List) {
                QFont font;
                font.setItalic(true);
                return font;
            }
            return {};
        default:
            return {};
    }
}

QString BookTableModel::textAt(const QModelIndex& index, qsizetype most) const {
    const BookDocument::Number record = recordAt(index.row());
    const auto bytes = static_cast<std::size_t>(most);
    const std::string text =
        ColumnAt(index) == Column::Lists
            ? rows_.memberships().TextOf(document_.book(), record, bytes)
            : book::ColumnText(document_.book(), document_.at(record), ColumnAt(index), bytes);
    return QString::fromStdString(Printable(text));
}

// Where it came from has its folder in the tip, and a list its kind.
QString BookTableModel::tipAt(const QModelIndex& index) const {
    const book::Contact& contact = document_.at(recordAt(index.row()));
    if (ColumnAt(index) == Column::Source && contact.From.Lines > 0) {
        return PlainTip(ShownName(document_.book().SourceAt(contact.From.File).Name()) +
                        tr(", line %1").arg(contact.From.Line));
    }
    const QString text = textAt(index, kTipLetters);
    const bool is_list = contact.Kind == book::ContactKind::List;
    return PlainTip(is_list && ColumnAt(index) == Column::Name ? tr("List: %1").arg(text) : text);
}

QVariant BookTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || section < 0 || section >= columnCount()) {
        return {};
    }
    return orientation == Qt::Horizontal ? titleOf(static_cast<Column>(section)) : QVariant();
}

QString BookTableModel::titleOf(Column column) {
    switch (column) {
        case Column::Name:
            return tr("Name");
        case Column::Nickname:
            return tr("Nickname");
        case Column::Addresses:
            return tr("Addresses");
        case Column::Phones:
            return tr("Phones");
        case Column::Lists:
            return tr("Lists");
        case Column::Notes:
            return tr("Notes");
        case Column::Source:
            break;
    }
    return tr("Source");
}

std::optional<Editable> BookTableModel::editableIn(int column) {
    switch (static_cast<Column>(column)) {
        case Column::Name:
            return Editable::Name;
        case Column::Nickname:
            return Editable::Nickname;
        case Column::Addresses:
            return Editable::Address;
        case Column::Phones:
            return Editable::Phone;
        default:
            return std::nullopt;
    }
}

Qt::ItemFlags BookTableModel::flags(const QModelIndex& index) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return Qt::NoItemFlags;
    }
    const auto what = editableIn(index.column());
    const bool is_editable = what && edits_.isEditable(recordAt(index.row()), *what);
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren |
           (is_editable ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

bool BookTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const auto what = editableIn(index.column());
    if (role != Qt::EditRole || !what || !flags(index).testFlag(Qt::ItemIsEditable)) {
        return false;
    }
    return edits_.set(recordAt(index.row()), *what, value.toString());
}

}  // namespace orvik
