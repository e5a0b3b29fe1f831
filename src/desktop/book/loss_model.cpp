#include "desktop/book/loss_model.h"

#include <algorithm>
#include <string>
#include <utility>

#include "app/printable.h"
#include "book_cli/told.h"
#include "desktop/text/plain_text.h"
#include "desktop/text/short_text.h"
#include "desktop/text/text_codec.h"

namespace orvik {
namespace {

// "Lost: has no place in the target (5)".
QString GroupText(const book::RemarkGroup& group) {
    const std::string what = group.Kind == book::What::Carried
                                 ? std::string(group.Field)
                                 : std::string(book::WordsFor(group.Why));
    QString text = ToLetters(book::NameOf(group.Kind));
    text[0] = text[0].toUpper();
    return QObject::tr("%1: %2 (%3)")
        .arg(text,
             QString::fromStdString(Printable(book_cli::Shortened(what))),
             QString::number(group.Remarks.size()));
}

}  // namespace

void LossModel::show(std::shared_ptr<const MovePreview> preview) {
    beginResetModel();
    preview_ = std::move(preview);
    pages_.clear();
    groups_ = {};
    if (preview_) {
        groups_ = firstPage(preview_->Groups.size());
        pages_.reserve(preview_->Groups.size());
        for (const book::RemarkGroup& one : preview_->Groups) {
            pages_.push_back(firstPage(one.Remarks.size()));
        }
    }
    endResetModel();
}

LossModel::Page LossModel::firstPage(std::size_t all) {
    const bool fits = all <= static_cast<std::size_t>(kPage);
    return {fits ? static_cast<int>(all) : kPage, !fits};
}

// Groups have no internal number, their values that of the group, counted from 1.
QModelIndex LossModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || row >= rowCount(parent) || column != 0) {
        return {};
    }
    const quintptr group = parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : 0;
    return createIndex(row, column, group);
}

QModelIndex LossModel::parent(const QModelIndex& index) const {
    return index.isValid() && index.internalId() > 0
               ? createIndex(static_cast<int>(index.internalId()) - 1, 0, quintptr{0})
               : QModelIndex();
}

int LossModel::columnCount(const QModelIndex& /*parent*/) const {
    return 1;
}

int LossModel::rowCount(const QModelIndex& parent) const {
    const bool has_rows = !parent.isValid() || (parent.internalId() == 0 && !isMore(parent));
    if (!preview_ || !has_rows) {
        return 0;
    }
    const Page& page = pageOf(parent);
    return page.Shown + (page.HasMore ? 1 : 0);
}

std::size_t LossModel::allBelow(const QModelIndex& parent) const {
    return parent.isValid()
               ? preview_->Groups[static_cast<std::size_t>(parent.row())].Remarks.size()
               : preview_->Groups.size();
}

LossModel::Page& LossModel::pageOf(const QModelIndex& parent) {
    return parent.isValid() ? pages_[static_cast<std::size_t>(parent.row())] : groups_;
}

const LossModel::Page& LossModel::pageOf(const QModelIndex& parent) const {
    return parent.isValid() ? pages_[static_cast<std::size_t>(parent.row())] : groups_;
}

bool LossModel::isMore(const QModelIndex& index) const {
    return index.isValid() && index.row() == pageOf(parent(index)).Shown;
}

void LossModel::showMore(const QModelIndex& index) {
    if (!isMore(index)) {
        return;
    }
    const QModelIndex above = parent(index);
    Page& page = pageOf(above);
    const int all = static_cast<int>(allBelow(above));
    const int before = page.Shown;
    const bool has_more = all - before > kPage;
    beginRemoveRows(above, before, before);
    page.HasMore = false;
    endRemoveRows();
    const int shown = has_more ? before + kPage : all;
    beginInsertRows(above, before, has_more ? shown : shown - 1);
    page = {shown, has_more};
    endInsertRows();
}

QString LossModel::textOf(const QModelIndex& index, bool with_folder) const {
    const QModelIndex above = parent(index);
    const auto row = static_cast<std::size_t>(index.row());
    if (isMore(index)) {
        return tr("%1 more").arg(allBelow(above) - row);
    }
    if (!above.isValid()) {
        return GroupText(preview_->Groups[row]);
    }
    const book::Book& book = preview_->Book->Book;
    const std::uint32_t number =
        preview_->Groups[static_cast<std::size_t>(above.row())].Remarks[row];
    const book::Remark& remark = book.Told.Remarks()[number];
    const std::string_view file = book.SourceAt(remark.File).Name();
    return ShownName(with_folder ? file : book::FileNameOf(file)) + QStringLiteral(": ") +
           QString::fromStdString(book_cli::RemarkText(book, remark));
}

QVariant LossModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !preview_) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
        case Qt::AccessibleTextRole:
            return Shortened(textOf(index, false));
        case Qt::ToolTipRole:
            return PlainTip(textOf(index, true));
        default:
            return {};
    }
}

}  // namespace orvik
