#include "desktop/book/move_dialog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <chrono>
#include <utility>

#include "book_cli/targets.h"
#include "book_cli/told.h"
#include "book_cli/verbs.h"
#include "desktop/book/move_preview_view.h"
#include "desktop/book/move_summary.h"
#include "desktop/book/move_target.h"
#include "desktop/book/show_in_folder.h"
#include "desktop/session/window_place.h"
#include "desktop/text/plain_text.h"
#include "desktop/text/short_text.h"
#include "desktop/views/quiet_line.h"
#include "desktop/views/wrapped_label.h"

namespace orvik {
namespace {

using namespace std::chrono_literals;
using Job = MoveWork::Job;

// So long the user may go on choosing before a preview begins, and work take without a word.
constexpr auto kChoosing = 150ms;
constexpr auto kQuiet = 300ms;

constexpr QSize kUsualSize{740, 520};

// "Written are only a-1.vcf to a-2.vcf" is all that tells of the files of a book that is split.
QString CancelledText(const MoveEnd& end) {
    for (const QString& one : end.Told) {
        if (one.startsWith(QStringLiteral("Written are only "))) {
            return QObject::tr("Cancelled. %1").arg(one);
        }
    }
    return QObject::tr("Cancelled; nothing was written");
}

}  // namespace

MoveDialog::MoveDialog(BookDocument& document,
                       BookWorker& worker,
                       FileSystem& files,
                       BookDocument::Numbers records,
                       QWidget* parent)
    : QDialog(parent),
      document_(document),
      work_(new MoveWork(document, worker, files, std::move(records), this)),
      dialogs_(WindowPlaceFile()),
      pages_(new QStackedWidget(this)),
      target_(new MoveTarget(book_cli::HasLists(work_->records()->Book), this)),
      preview_(new MovePreviewView(this)),
      summary_(new MoveSummary(this)),
      progress_(new QWidget(this)),
      doing_(new QLabel(progress_)),
      bar_(new QProgressBar(progress_)),
      cancel_(new QPushButton(tr("C&ancel"), progress_)),
      filtered_(new QLabel(tr("All records are moved, also those that the filter hides"), this)),
      line_(new QuietLine(QStringLiteral("moveLine"), this)),
      save_(new QPushButton(tr("&Save..."), this)),
      close_(new QPushButton(tr("Clos&e"), this)) {
    setObjectName(QStringLiteral("moveDialog"));
    setWindowTitle(tr("Move to another program"));
    setWindowModality(Qt::WindowModal);
    makeProgress();
    layOut();
    connectAll();
    showPage(target_);
    prepare();
}

void MoveDialog::makeProgress() {
    progress_->setObjectName(QStringLiteral("moveProgress"));
    doing_->setObjectName(QStringLiteral("moveDoing"));
    WrapText(*doing_);
    bar_->setObjectName(QStringLiteral("moveBar"));
    bar_->setAccessibleName(tr("Progress"));
    cancel_->setObjectName(QStringLiteral("moveCancel"));
    cancel_->setAutoDefault(false);
    auto* const row = new QHBoxLayout(progress_);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(doing_, 1);
    row->addWidget(bar_, 1);
    row->addWidget(cancel_);
    progress_->hide();
}

void MoveDialog::tellOfFilter() {
    filtered_->show();
}

void MoveDialog::layOut() {
    target_->addBelow(preview_);
    pages_->addWidget(target_);
    pages_->addWidget(summary_);
    save_->setObjectName(QStringLiteral("moveSave"));
    close_->setObjectName(QStringLiteral("moveClose"));
    auto* const row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(save_);
    row->addWidget(close_);
    filtered_->setObjectName(QStringLiteral("moveFiltered"));
    filtered_->hide();
    auto* const lines = new QVBoxLayout(this);
    lines->addWidget(filtered_);
    lines->addWidget(pages_, 1);
    lines->addWidget(progress_);
    lines->addWidget(line_);
    lines->addLayout(row);
    resize(kUsualSize);
}

void MoveDialog::connectAll() {
    soon_.setSingleShot(true);
    slow_.setSingleShot(true);
    connect(&soon_, &QTimer::timeout, this, &MoveDialog::prepare);
    connect(&slow_, &QTimer::timeout, progress_, &QWidget::show);
    connect(target_, &MoveTarget::changed, this, &MoveDialog::look);
    connect(target_, &MoveTarget::helpAsked, this, &MoveDialog::helpAsked);
    connect(preview_, &MovePreviewView::changed, this, &MoveDialog::sync);
    connect(preview_, &MovePreviewView::splitAsked, target_, &MoveTarget::split);
    connect(cancel_, &QAbstractButton::clicked, work_, &MoveWork::cancel);
    connect(save_, &QAbstractButton::clicked, this, &MoveDialog::askForBook);
    connect(close_, &QAbstractButton::clicked, this, &MoveDialog::reject);
    connect(summary_, &MoveSummary::keepAsked, this, &MoveDialog::askForSummary);
    connect(summary_, &MoveSummary::folderAsked, this, &MoveDialog::showFolder);
    connect(summary_, &MoveSummary::backAsked, this, [this] {
        line_->clear();
        showPage(target_);
    });
    connect(work_, &MoveWork::began, this, [this] {
        line_->clear();
        showProgress({}, 0);
        slow_.start(kQuiet);
        sync();
    });
    connect(work_, &MoveWork::progressed, this, &MoveDialog::showProgress);
    connect(work_, &MoveWork::prepared, this, &MoveDialog::takePrepared);
    connect(work_, &MoveWork::wrote, this, &MoveDialog::takeWritten);
    // The worker's news are not to wait for an answer.
    connect(this, &MoveDialog::replaceAsked, this, &MoveDialog::askToReplace, Qt::QueuedConnection);
}

// Whoever walks through the programs does not wait for each.
void MoveDialog::look() {
    work_->cancel();
    line_->clear();
    preview_->showPreview(nullptr);
    soon_.start(kChoosing);
}

void MoveDialog::prepare() {
    preview_->showPreview(nullptr);
    book_cli::Arguments chosen = target_->arguments();
    chosen.Files = work_->sources();
    chosen.Output = book_cli::NameFor(chosen.Files, target_->word(), target_->ending());
    work_->prepare(chosen);
}

void MoveDialog::takePrepared(bool is_done, const QString& why) {
    if (is_done) {
        preview_->showPreview(work_->preview());
    } else if (!soon_.isActive()) {
        line_->tell(why.isEmpty() ? tr("Cancelled; what the file will hold is not known") : why,
                    tr("Look again"),
                    [this] { prepare(); });
    }
    sync();
}

void MoveDialog::askForBook() {
    if (!work_->preview()) {
        prepare();
        return;
    }
    const book_cli::Arguments& chosen = work_->preview()->Chosen;
    const std::string ending(target_->ending());
    const std::string name =
        askForName(tr("Save for another program"),
                   book_cli::TargetName(chosen, false) + "|*" + (ending.empty() ? ".*" : ending),
                   folderOfSources() + chosen.Output);
    if (!name.empty()) {
        name_ = book_cli::EndedAs(ending, name);
        write(Job::Saving, {});
    }
}

void MoveDialog::askForSummary() {
    const std::string& saved = work_->lastSaved().Files.front();
    const std::string folder = saved.substr(0, saved.find_last_of('/') + 1);
    const std::string name = askForName(tr("Save the summary"),
                                        "Text|*.txt",
                                        folder + book_cli::NameFor({&saved, 1}, "summary", ".txt"));
    if (!name.empty()) {
        name_ = name;
        write(Job::Keeping, {});
    }
}

std::string MoveDialog::askForName(const QString& title,
                                   const std::string& filter,
                                   const std::string& name) {
    FileDialog dialog;
    dialog.Kind = DialogKind::Save;
    dialog.Title = title.toStdString();
    dialog.Filter = filter;
    dialog.FileName = name;
    return dialogs_.show(dialog, this);
}

// With its slash; nothing where the first one came from no folder that is there.
std::string MoveDialog::folderOfSources() {
    const std::vector<std::string> sources = work_->sources();
    if (sources.empty()) {
        return {};
    }
    const QFileInfo first(QFile::decodeName(sources.front().c_str()));
    return first.dir().exists() ? QFile::encodeName(first.absolutePath()).toStdString() + "/"
                                : std::string();
}

void MoveDialog::write(Job job, const std::string& may_replace) {
    if (job == Job::Saving) {
        work_->save(name_, may_replace);
    } else {
        work_->keep(name_, may_replace);
    }
}

void MoveDialog::takeWritten(Job job, const MoveEnd& end) {
    if (end.Status == cli::ExitStatus::Done) {
        takeDone(job, end);
    } else if (end.IsCancelled) {
        line_->tell(CancelledText(end));
    } else if (!end.Question.empty()) {
        emit replaceAsked(job, QString::fromStdString(end.Question));
    } else {
        line_->tell(tr("Not saved: %1").arg(end.Told.join(u'\n')));
    }
    sync();
}

void MoveDialog::takeDone(Job job, const MoveEnd& end) {
    if (job == Job::Keeping) {
        line_->tell(tr("The summary is in %1").arg(ShownName(name_)));
        return;
    }
    showPage(summary_);
    summary_->showText(QString::fromStdString(end.Summary));
    if (work_->areAll()) {
        document_.undoStack().setClean();
        emit saved(QFile::decodeName(end.Files.front().c_str()));
    }
}

void MoveDialog::askToReplace(Job job, const QString& question) {
    if (MayOverwrite(question, Saving::Replaces, this)) {
        write(job, question.toStdString());
    }
}

void MoveDialog::showFolder() {
    ShowInFolder(work_->lastSaved().Files, this, [this] {
        line_->tell(
            tr("No file manager shows %1").arg(ShownName(work_->lastSaved().Files.front())));
    });
}

void MoveDialog::showPage(QWidget* page) {
    pages_->setCurrentWidget(page);
    sync();
    QPushButton* const preset = page == target_ ? save_ : close_;
    preset->setDefault(true);
}

void MoveDialog::reject() {
    const Job job = work_->job();
    work_->cancel();
    if (job != Job::Saving && job != Job::Keeping) {
        QDialog::reject();
    }
}

void MoveDialog::showProgress(const QString& step, int percent) {
    const QString usual =
        work_->job() == Job::Preparing ? tr("Looking at what the file will hold") : tr("Saving");
    doing_->setText(step.isEmpty() ? usual : Shortened(step));
    bar_->setValue(percent);
}

// Which controls can be used while what runs.
void MoveDialog::sync() {
    const Job job = work_->job();
    const bool writes = job == Job::Saving || job == Job::Keeping;
    const bool chooses = pages_->currentWidget() == target_;
    if (job == Job::None) {
        slow_.stop();
        progress_->hide();
    }
    cancel_->setEnabled(job != Job::None);
    target_->setDisabled(writes);
    summary_->setBusy(writes);
    save_->setVisible(chooses);
    save_->setEnabled(job == Job::None && preview_->mayBeSaved());
}

}  // namespace orvik
