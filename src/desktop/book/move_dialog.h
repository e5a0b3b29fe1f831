// Move: which program the book is for, what would be carried or lost, and the save.

#pragma once

#include <QDialog>
#include <QTimer>
#include <string>

#include "desktop/book/book_document.h"
#include "desktop/book/book_worker.h"
#include "desktop/book/move_work.h"
#include "desktop/session/file_dialog.h"
#include "platform/file_system.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QStackedWidget;

namespace orvik {

class MovePreviewView;
class MoveSummary;
class MoveTarget;
class QuietLine;

class MoveDialog : public QDialog {
    Q_OBJECT
 public:
    // All must outlive the dialog. The records are written in this order.
    MoveDialog(BookDocument& document,
               BookWorker& worker,
               FileSystem& files,
               BookDocument::Numbers records,
               QWidget* parent);

    // Says above the programs that the table shows fewer records than are moved.
    void tellOfFilter();
    // While something is written it is cancelled, and the dialog stays.
    void reject() override;

 signals:
    // All of the document was saved as it stands.
    void saved(const QString& file);
    // A page of the help, "move_google.html".
    void helpAsked(const QString& page);
    // What is being written needs the user's leave.
    void replaceAsked(MoveWork::Job job, const QString& question);

 private:
    void layOut();
    void makeProgress();
    void connectAll();
    void look();
    void prepare();
    void takePrepared(bool is_done, const QString& why);
    void takeWritten(MoveWork::Job job, const MoveEnd& end);
    void takeDone(MoveWork::Job job, const MoveEnd& end);
    void askToReplace(MoveWork::Job job, const QString& question);
    void write(MoveWork::Job job, const std::string& may_replace);
    void askForBook();
    void askForSummary();
    [[nodiscard]] std::string askForName(const QString& title,
                                         const std::string& filter,
                                         const std::string& name);
    [[nodiscard]] std::string folderOfSources();
    void showFolder();
    void showPage(QWidget* page);
    void showProgress(const QString& step, int percent);
    void sync();

    BookDocument& document_;
    MoveWork* work_;
    FileDialogs dialogs_;
    // The file that is being written.
    std::string name_;
    QTimer soon_;
    QTimer slow_;
    QStackedWidget* pages_;
    MoveTarget* target_;
    MovePreviewView* preview_;
    MoveSummary* summary_;
    QWidget* progress_;
    QLabel* doing_;
    QProgressBar* bar_;
    QPushButton* cancel_;
    QLabel* filtered_;
    QuietLine* line_;
    QPushButton* save_;
    QPushButton* close_;
};

}  // namespace orvik
