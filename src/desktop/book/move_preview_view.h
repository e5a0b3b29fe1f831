// What Move shows before anything is written: how much is kept, and what would be lost.

#pragma once

#include <QWidget>
#include <cstddef>
#include <memory>

#include "desktop/book/move_preview.h"

class QCheckBox;
class QLabel;

namespace orvik {

class LinkButton;
class LossView;

class MovePreviewView : public QWidget {
    Q_OBJECT
 public:
    explicit MovePreviewView(QWidget* parent);

    // Null while there is none.
    void showPreview(const std::shared_ptr<const MovePreview>& preview);
    // Whether what is shown may be written: the user has seen what is lost.
    [[nodiscard]] bool mayBeSaved() const;

 signals:
    void changed();
    // The book is to be several files of at most so many records.
    void splitAsked(std::size_t most);

 private:
    void showHints(const MovePreview& preview);

    std::shared_ptr<const MovePreview> preview_;
    QLabel* counts_;
    QLabel* hints_;
    LinkButton* split_;
    LossView* losses_;
    QCheckBox* leave_out_;
};

}  // namespace orvik
