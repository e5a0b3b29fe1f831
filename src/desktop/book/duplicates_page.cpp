#include "desktop/book/duplicates_page.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFile>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <utility>

#include "book_cli/told.h"
#include "desktop/book/duplicates_model.h"
#include "desktop/book/panel_table.h"
#include "desktop/book/plan_errors.h"
#include "desktop/book/shown_text.h"
#include "desktop/book/side_model.h"
#include "desktop/book/side_view.h"
#include "desktop/session/window_place.h"
#include "desktop/views/quiet_line.h"
#include "desktop/views/wrapped_label.h"

namespace orvik {
namespace {

using book::Tier;

constexpr std::array kAllTiers = {
    Tier::Same, Tier::Contained, Tier::Agree, Tier::Address, Tier::Name, Tier::Plan};
constexpr const char* kPlanFilter = "Plan|*.txt|All files|*.*";
// So many notes of what was not compared are read.
constexpr std::size_t kMostNotes = 3;

QString Grouped(std::size_t number) {
    return QString::fromStdString(book_cli::Grouped(number));
}

QString Capital(QString text) {
    text[0] = text[0].toUpper();
    return text;
}

}  // namespace

DuplicatesPage::DuplicatesPage(BookDocument& document,
                               BookWorker& worker,
                               FileSystem& files,
                               QWidget* parent)
    : QWidget(parent),
      document_(document),
      duplicates_(new Duplicates(document, worker, files, this)),
      model_(new DuplicatesModel(*duplicates_, this)),
      dialogs_(WindowPlaceFile()),
      look_(makeButton("duplicatesLook",
                       tr("Look for &duplicates"),
                       tr("Compares all records with each other"))),
      save_(makeButton("duplicatesSave",
                       tr("&Save plan..."),
                       tr("Saves what was found and decided, for another time"))),
      load_(
          makeButton("duplicatesLoad", tr("L&oad plan..."), tr("Decides what a saved plan says"))),
      status_(new QLabel(this)),
      tiers_(new QComboBox(this)),
      undecided_(new QCheckBox(tr("&Undecided only"), this)),
      groups_(MakePanelTable("duplicatesGroups", tr("Groups"), *model_, this)),
      merge_(makeButton(
          "duplicatesMerge", tr("&Merge"), tr("Makes one record of each group that is selected"))),
      keep_(makeButton("duplicatesKeep",
                       tr("&Keep both"),
                       tr("These are several people, or are to stay apart"))),
      later_(makeButton("duplicatesLater", tr("Decide la&ter"), tr("Leaves them as they are"))),
      merge_sure_(makeButton("duplicatesMergeSure",
                             QString(),
                             tr("Merges all whose records are the same, or of which one holds "
                                "all of the others"))),
      merge_ticked_(makeButton("duplicatesMergeTicked", QString(), tr("Merges what is ticked"))),
      below_(new QStackedWidget(this)),
      side_(new SideView(document, below_)),
      errors_(new PlanErrors(below_)),
      quiet_(new QuietLine(QStringLiteral("duplicatesNotice"), this)) {
    setObjectName(QStringLiteral("duplicatesPage"));
    setAccessibleName(tr("Duplicates"));
    status_->setObjectName(QStringLiteral("duplicatesStatus"));
    WrapText(*status_);
    tiers_->setObjectName(QStringLiteral("duplicatesTiers"));
    tiers_->setAccessibleName(tr("Which groups are shown"));
    tiers_->addItem(QString());
    for (std::size_t i = 0; i < kAllTiers.size(); ++i) {
        tiers_->addItem(QString());
    }
    undecided_->setObjectName(QStringLiteral("duplicatesUndecided"));
    makeTable();
    arrange();
    connectAll();
    syncTiers();
    sync();
}

QPushButton* DuplicatesPage::makeButton(const char* name, const QString& text, const QString& tip) {
    auto* const button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    button->setAccessibleDescription(tip);
    return button;
}

void DuplicatesPage::makeTable() {
    QHeaderView& head = *groups_->horizontalHeader();
    head.setStretchLastSection(true);
    head.setSectionResizeMode(DuplicatesModel::kRecords, QHeaderView::ResizeToContents);
    // Wide enough for what is seen most often.
    const auto width = [this](const QString& text, int boxes) {
        return groups_->fontMetrics().horizontalAdvance(text) +
               boxes * groups_->verticalHeader()->defaultSectionSize();
    };
    groups_->setColumnWidth(DuplicatesModel::kDecision, width(tr("to be merged"), 2));
    groups_->setColumnWidth(DuplicatesModel::kTier, width(TierWords(Tier::Address), 1));
    constexpr int kLettersOfWho = 30;
    // Who it is matters most, and stands where the page is narrow, too.
    groups_->setColumnWidth(DuplicatesModel::kReason,
                            groups_->fontMetrics().averageCharWidth() * kLettersOfWho);
    head.moveSection(head.visualIndex(DuplicatesModel::kReason), 1);
}

void DuplicatesPage::arrange() {
    const auto row_of = [](std::initializer_list<QWidget*> widgets) {
        auto* const row = new QHBoxLayout;
        for (QWidget* const one : widgets) {
            row->addWidget(one);
        }
        row->addStretch();
        return row;
    };
    auto* const above = new QWidget(this);
    auto* const top = new QVBoxLayout(above);
    top->setContentsMargins({});
    top->addLayout(row_of({look_, save_, load_}));
    top->addWidget(status_);
    top->addLayout(row_of({tiers_, undecided_}));
    top->addWidget(groups_, 1);
    top->addLayout(row_of({merge_, keep_, later_}));
    top->addLayout(row_of({merge_sure_, merge_ticked_}));
    below_->addWidget(side_);
    below_->addWidget(errors_);
    auto* const splitter = new QSplitter(Qt::Vertical, this);
    splitter->setObjectName(QStringLiteral("duplicatesSplitter"));
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(above);
    splitter->addWidget(below_);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(splitter, 1);
    column->addWidget(quiet_);
}

// What is told about a merging moves the buttons: the second click would be on another one.
bool DuplicatesPage::eventFilter(QObject* button, QEvent* event) {
    return event->type() == QEvent::MouseButtonDblClick || QWidget::eventFilter(button, event);
}

void DuplicatesPage::connectAll() {
    for (QPushButton* const one : {merge_, keep_, later_, merge_sure_, merge_ticked_}) {
        one->installEventFilter(this);
    }
    connect(look_, &QPushButton::clicked, duplicates_, &Duplicates::look);
    connect(save_, &QPushButton::clicked, this, [this] { askForPlan(DialogKind::Save); });
    connect(load_, &QPushButton::clicked, this, [this] { askForPlan(DialogKind::Open); });
    connect(merge_, &QPushButton::clicked, this, [this] { duplicates_->merge(selected()); });
    connect(keep_, &QPushButton::clicked, this, [this] { say(book::Decision::Keep); });
    connect(later_, &QPushButton::clicked, this, [this] { say(book::Decision::Later); });
    connect(merge_sure_, &QPushButton::clicked, this, [this] {
        duplicates_->merge(duplicates_->sure());
    });
    connect(merge_ticked_, &QPushButton::clicked, this, [this] {
        duplicates_->merge(duplicates_->ticked());
    });
    connect(tiers_, &QComboBox::currentIndexChanged, this, &DuplicatesPage::filter);
    connect(undecided_, &QCheckBox::toggled, this, &DuplicatesPage::filter);
    connect(errors_, &PlanErrors::closed, this, [this] {
        below_->setCurrentWidget(side_);
        load_->setFocus();
    });
    connect(side_, &SideView::recordAsked, this, &DuplicatesPage::recordAsked);
    connect(groups_, &QTableView::activated, this, [this](const QModelIndex& index) {
        const BookDocument::Numbers records = recordsOf(model_->lineAt(index.row()));
        if (!records.empty()) {
            emit recordAsked(records.front());
        }
    });
    connect(duplicates_, &Duplicates::told, this, [this](const QString& text) {
        if (text.isEmpty()) {
            quiet_->clear();
        } else {
            quiet_->tell(text);
        }
    });
    connect(duplicates_,
            &Duplicates::planRefused,
            this,
            [this](const QString& file, const QStringList& errors) {
                quiet_->clear();
                below_->setCurrentWidget(errors_);
                errors_->show(file, errors);
            });
    connect(duplicates_, &Duplicates::linesChanged, this, [this] {
        below_->setCurrentWidget(side_);
        syncTiers();
        sync();
        groups_->selectRow(0);
    });
    connect(duplicates_, &Duplicates::statesChanged, this, [this] {
        // What was said is of another state.
        quiet_->clear();
        sync();
        showGroup();
    });
    connect(duplicates_, &Duplicates::workChanged, this, [this] {
        keepFocus();
        sync();
        if (!duplicates_->isWorking() && focus_ != nullptr) {
            std::exchange(focus_, nullptr)->setFocus();
        }
    });
    connect(model_, &QAbstractItemModel::modelAboutToBeReset, this, &DuplicatesPage::keepPlace);
    connect(model_, &QAbstractItemModel::modelReset, this, &DuplicatesPage::returnToPlace);
    connect(groups_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        sync();
        showGroup();
    });
}

void DuplicatesPage::sync() {
    const bool can_work = duplicates_->canWork();
    const bool can_decide = duplicates_->canDecide() && groups_->selectionModel()->hasSelection();
    look_->setEnabled(can_work && document_.thereCount() > 1);
    save_->setEnabled(can_work && duplicates_->hasLooked());
    load_->setEnabled(can_work && document_.count() > 0);
    merge_->setEnabled(can_work && can_decide);
    keep_->setEnabled(can_decide);
    later_->setEnabled(can_decide);
    const std::size_t sure = duplicates_->sureCount();
    merge_sure_->setText(tr("Merge &all %1 same and contained").arg(Grouped(sure)));
    merge_sure_->setEnabled(can_work && sure > 0);
    const std::size_t ticked = duplicates_->tickedCount();
    merge_ticked_->setText(tr("Merge %1 t&icked").arg(Grouped(ticked)));
    merge_ticked_->setEnabled(can_work && ticked > 0);
    syncStatus();
}

// What has the focus cannot be used for a while, and loses it.
void DuplicatesPage::keepFocus() {
    QWidget* const focused = QApplication::focusWidget();
    if (duplicates_->isWorking() && focus_ == nullptr && focused != nullptr &&
        isAncestorOf(focused)) {
        focus_ = focused;
    }
}

void DuplicatesPage::syncStatus() {
    if (!duplicates_->hasLooked()) {
        status_->setText(
            tr("Records that may be one person are listed here after a look for them."));
        return;
    }
    QStringList said;
    if (duplicates_->lines().empty()) {
        said << tr("No duplicates were found.");
    }
    if (const std::size_t changed = duplicates_->notCompared(); changed > 0) {
        said << tr("The book has changed: look again to compare %1.")
                    .arg(QString::fromStdString(
                        book_cli::GroupedCount(changed, "record", "records")));
    }
    const std::vector<std::string>& notes = duplicates_->notes();
    for (std::size_t i = 0; i < std::min(notes.size(), kMostNotes); ++i) {
        said << tr("Not compared: %1").arg(ShownLine(notes[i]));
    }
    if (notes.size() > kMostNotes) {
        said << tr("and %1 more that were not compared").arg(Grouped(notes.size() - kMostNotes));
    }
    status_->setText(said.join(u'\n'));
    status_->setVisible(!said.isEmpty());
}

void DuplicatesPage::syncTiers() {
    tiers_->setItemText(0, tr("All groups (%1)").arg(Grouped(duplicates_->lines().size())));
    for (std::size_t i = 0; i < kAllTiers.size(); ++i) {
        tiers_->setItemText(static_cast<int>(i) + 1,
                            tr("%1 (%2)").arg(Capital(TierWords(kAllTiers[i])),
                                              Grouped(duplicates_->countOf(kAllTiers[i]))));
    }
}

void DuplicatesPage::filter() {
    const int chosen = tiers_->currentIndex();
    model_->setFilter(
        chosen <= 0 ? std::nullopt : std::optional(kAllTiers[static_cast<std::size_t>(chosen) - 1]),
        undecided_->isChecked());
}

void DuplicatesPage::keepPlace() {
    const QModelIndex current = groups_->currentIndex();
    place_ = std::max(current.row(), 0);
    line_ = current.isValid() ? model_->lineAt(place_) : 0;
}

void DuplicatesPage::returnToPlace() {
    const int row = model_->rowOf(line_);
    if (model_->rowCount() > 0) {
        groups_->selectRow(row >= 0 ? row : std::min(place_, model_->rowCount() - 1));
    }
    sync();
    showGroup();
}

Duplicates::Lines DuplicatesPage::selected() const {
    Duplicates::Lines lines;
    for (const QItemSelectionRange& range : groups_->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            lines.push_back(model_->lineAt(row));
        }
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

void DuplicatesPage::showGroup() {
    const QItemSelection selection = groups_->selectionModel()->selection();
    int rows = 0;
    for (const QItemSelectionRange& range : selection) {
        rows += range.height();
    }
    if (rows != 1) {
        side_->say(
            rows == 0 ? tr("Choose a group to see its records beside each other.")
                      : tr("%1 groups are selected.").arg(Grouped(static_cast<std::size_t>(rows))));
        return;
    }
    const Duplicates::Line line = model_->lineAt(selection.front().top());
    if (duplicates_->stateOf(line) == Duplicates::State::Merged) {
        side_->say(tr("These records are one now. Undo parts them again."));
        return;
    }
    side_->show(recordsOf(line));
}

BookDocument::Numbers DuplicatesPage::recordsOf(Duplicates::Line line) const {
    BookDocument::Numbers records = duplicates_->lines()[line].Match.Records;
    std::erase_if(records, [this](auto record) { return !document_.isThere(record); });
    return records;
}

void DuplicatesPage::say(book::Decision decision) {
    duplicates_->say(selected(), decision);
}

void DuplicatesPage::askForPlan(DialogKind kind) {
    const bool saves = kind == DialogKind::Save;
    FileDialog dialog;
    dialog.Kind = kind;
    dialog.Title = (saves ? tr("Save plan") : tr("Load plan")).toStdString();
    dialog.Filter = kPlanFilter;
    dialog.Flags = saves ? kOverwritePrompt : kFileMustExist;
    const std::string name = dialogs_.show(dialog, this);
    if (name.empty()) {
        return;
    }
    const QString file = QFile::decodeName(name.c_str());
    if (saves) {
        duplicates_->savePlan(file);
    } else {
        duplicates_->loadPlan(file);
    }
}

}  // namespace orvik
