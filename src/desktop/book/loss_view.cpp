#include "desktop/book/loss_view.h"

#include <QKeyEvent>
#include <algorithm>

namespace orvik {
namespace {

// More reasons are not opened unasked.
constexpr std::size_t kMostOpened = 20;

}  // namespace

LossView::LossView(QWidget* parent) : QTreeView(parent) {
    setObjectName(QStringLiteral("moveLosses"));
    setAccessibleName(tr("What becomes of the values"));
    setModel(&model_);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setTextElideMode(Qt::ElideRight);
    setTabKeyNavigation(false);
    connect(this, &QAbstractItemView::clicked, this, &LossView::showMore);
}

void LossView::showPreview(const std::shared_ptr<const MovePreview>& preview) {
    model_.show(preview);
    if (!preview) {
        return;
    }
    for (std::size_t i = 0; i < std::min(preview->Groups.size(), kMostOpened); ++i) {
        setExpanded(model_.index(static_cast<int>(i), 0),
                    preview->Groups[i].Kind == book::What::Lost);
    }
    setCurrentIndex(model_.index(0, 0));
}

// Enter would press the dialog's button.
void LossView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        open(currentIndex());
        event->accept();
        return;
    }
    QTreeView::keyPressEvent(event);
}

// The next rows stand where the one was that stood for them.
void LossView::showMore(const QModelIndex& index) {
    if (model_.isMore(index)) {
        const QModelIndex above = index.parent();
        const int row = index.row();
        model_.showMore(index);
        setCurrentIndex(model_.index(row, 0, above));
    }
}

void LossView::open(const QModelIndex& index) {
    if (model_.isMore(index)) {
        showMore(index);
        return;
    }
    if (index.isValid()) {
        setExpanded(index, !isExpanded(index));
    }
}

}  // namespace orvik
