#include "desktop/book/problems_page.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "book/readable_value.h"
#include "desktop/book/panel_table.h"
#include "desktop/book/problem_fix.h"
#include "desktop/book/problem_list.h"
#include "desktop/book/problem_model.h"
#include "desktop/book/source_text.h"
#include "desktop/views/quiet_line.h"

namespace orvik {
namespace {

constexpr int kLinesOfDetail = 3;
constexpr std::uint32_t kLinesAround = 3;
constexpr std::uint32_t kLinesOfFile = 20;
constexpr int kAllKinds = -1;

QPushButton* MakeButton(const char* name, const QString& text, QWidget* parent) {
    auto* const button = new QPushButton(text, parent);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(true);
    return button;
}

}  // namespace

ProblemsPage::ProblemsPage(BookDocument& document, BookChecks& checks, QWidget* parent)
    : QWidget(parent),
      document_(document),
      checks_(checks),
      list_(new ProblemList(document, checks, this)),
      model_(new ProblemModel(document, *list_, this)),
      kinds_(new QComboBox(this)),
      state_(new QuietLine(QStringLiteral("problemState"), this)),
      table_(MakePanelTable("problemTable", tr("Problems"), *model_, this)),
      detail_(new QPlainTextEdit(this)),
      fix_button_(MakeButton("problemFixButton", tr("Fi&x..."), this)),
      keep_button_(MakeButton("problemKeep", tr("&Keep"), this)),
      leave_out_button_(MakeButton("problemLeaveOut", tr("&Leave out"), this)),
      fix_(new ProblemFix(this)),
      source_(new SourceText(document, checks, QStringLiteral("problemSource"), this)) {
    setObjectName(QStringLiteral("problemsPage"));
    setAccessibleName(tr("Problems"));
    makeTable();
    arrange();
    connectAll();
    showList();
}

void ProblemsPage::makeTable() {
    table_->horizontalHeader()->setSectionResizeMode(ProblemModel::kWhat, QHeaderView::Stretch);
    kinds_->setObjectName(QStringLiteral("problemKinds"));
    kinds_->setAccessibleName(tr("Show"));
    kinds_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    detail_->setObjectName(QStringLiteral("problemDetail"));
    MakeReader(*detail_, tr("The problem"), kLinesOfDetail);
    keep_button_->setToolTip(tr("Takes the problem from the list; the record stays as it is"));
    leave_out_button_->setToolTip(
        tr("Takes the value away, or the record if it is about no value"));
}

void ProblemsPage::arrange() {
    auto* const label = new QLabel(tr("Sho&w:"), this);
    label->setObjectName(QStringLiteral("problemKindsLabel"));
    label->setBuddy(kinds_);
    auto* const top = new QHBoxLayout;
    top->addWidget(label);
    top->addWidget(kinds_, 1);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(fix_button_);
    buttons->addWidget(keep_button_);
    buttons->addWidget(leave_out_button_);
    buttons->addStretch();
    auto* const column = new QVBoxLayout(this);
    column->addLayout(top);
    column->addWidget(state_);
    column->addWidget(table_, 1);
    column->addWidget(detail_);
    column->addLayout(buttons);
    column->addWidget(fix_);
    column->addWidget(source_);
}

void ProblemsPage::connectAll() {
    connect(&document_, &BookDocument::changed, this, &ProblemsPage::look);
    connect(&document_, &BookDocument::recordsChanged, this, &ProblemsPage::look);
    connect(&document_, &BookDocument::frozenChanged, this, &ProblemsPage::showButtons);
    connect(&checks_, &BookChecks::changed, this, [this] {
        // Nobody is interrupted who is typing.
        is_late_ = !fix_->isHidden();
        if (!is_late_) {
            list_->refresh();
        }
    });
    connect(&checks_, &BookChecks::stateChanged, this, &ProblemsPage::showState);
    connect(&checks_, &BookChecks::progressed, this, &ProblemsPage::showState);
    connect(list_, &ProblemList::changed, this, &ProblemsPage::showList);
    connect(kinds_, &QComboBox::currentIndexChanged, this, [this] {
        const int kind = kinds_->currentData().toInt();
        model_->setKind(kind == kAllKinds ? std::nullopt
                                          : std::optional(static_cast<book::ProblemKind>(kind)));
        showList();
    });
    connect(table_, &QTableView::clicked, this, &ProblemsPage::ask);
    connect(table_, &QTableView::activated, this, &ProblemsPage::ask);
    connect(table_->selectionModel(),
            &QItemSelectionModel::currentChanged,
            this,
            &ProblemsPage::showCurrent);
    connect(table_->selectionModel(),
            &QItemSelectionModel::selectionChanged,
            this,
            &ProblemsPage::followSelection);
    connect(fix_button_, &QAbstractButton::clicked, this, &ProblemsPage::beginFix);
    connect(keep_button_, &QAbstractButton::clicked, this, [this] { list_->keep(selected()); });
    connect(leave_out_button_, &QAbstractButton::clicked, this, [this] {
        list_->leaveOut(selected());
    });
    connect(fix_, &ProblemFix::left, this, &ProblemsPage::endFix);
    connect(fix_, &ProblemFix::done, this, [this](const QString& text) {
        if (const book::Problem* const one = current()) {
            const book::Problem fixed = *one;
            endFix();
            list_->fix(fixed, text);
        }
    });
}

void ProblemsPage::fitColumns() {
    FitColumn(*table_, ProblemModel::kWho);
    FitColumn(*table_, ProblemModel::kWhere);
}

void ProblemsPage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fitColumns();
}

void ProblemsPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    list_->setSeen(true);
    look();
}

void ProblemsPage::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    endFix();
    list_->setSeen(false);
    list_->refresh();
}

void ProblemsPage::look() {
    if (isVisible()) {
        checks_.look();
    }
    list_->refresh();
    showState();
}

// The row that was looked at stays, or the one that took its place.
void ProblemsPage::showList() {
    const int row = table_->currentIndex().row();
    is_late_ = false;
    endFix();
    table_->clearSpans();
    model_->renew();
    for (const int heading : model_->headings()) {
        table_->setSpan(heading, 0, 1, ProblemModel::kColumns);
    }
    fitColumns();
    fillKinds();
    setCurrentRow(model_->nearestTo(row));
}

void ProblemsPage::setCurrentRow(int row) {
    if (row < 0) {
        showCurrent();
        return;
    }
    table_->setCurrentIndex(model_->index(row, ProblemModel::kWhat));
}

void ProblemsPage::fillKinds() {
    const QSignalBlocker quiet(kinds_);
    const QVariant kind = kinds_->currentIndex() < 0 ? QVariant(kAllKinds) : kinds_->currentData();
    kinds_->clear();
    kinds_->addItem(tr("All (%1)").arg(QString::fromStdString(book::Grouped(list_->count()))),
                    kAllKinds);
    for (std::size_t i = 0; i < ProblemList::kKinds; ++i) {
        const auto one = static_cast<book::ProblemKind>(i);
        if (!list_->of(one).empty() || kind.toInt() == static_cast<int>(i)) {
            kinds_->addItem(model_->headingOf(one), static_cast<int>(i));
        }
    }
    kinds_->setCurrentIndex(kinds_->findData(kind));
}

void ProblemsPage::showState() {
    if (checks_.isBusy()) {
        state_->tell(
            tr("Looking for what is wrong..."), tr("Cancel"), [this] { checks_.cancel(); });
    } else if (checks_.isBehind()) {
        state_->tell(tr("Not all of the book was looked at since it changed."),
                     tr("Look again"),
                     [this] { checks_.lookAgain(); });
    } else {
        state_->clear();
    }
}

void ProblemsPage::showCurrent() {
    const book::Problem* const one = current();
    detail_->setPlainText(one != nullptr                ? list_->wholeWords(*one)
                          : document_.thereCount() == 0 ? tr("There is no record yet.")
                          : list_->count() == 0         ? tr("Nothing looks wrong.")
                                                        : QString());
    source_->setPlace(one == nullptr ? std::nullopt : linesFor(*one));
    showButtons();
}

std::optional<book::ExcerptPlace> ProblemsPage::linesFor(const book::Problem& one) const {
    const ProblemList::Place place = list_->placeOf(one);
    if (one.Kind == book::ProblemKind::Assumed) {
        return book::ExcerptPlace{place.File, 1, kLinesOfFile, 0};
    }
    return place.Line == 0
               ? std::nullopt
               : std::optional(book::ExcerptPlace{place.File, place.Line, 1, kLinesAround});
}

void ProblemsPage::showButtons() {
    const std::vector<book::Problem> ones = selected();
    const bool can_change = !document_.isFrozen() && !ones.empty();
    const book::Problem* const one = current();
    fix_button_->setEnabled(can_change && one != nullptr && list_->textOf(*one).has_value());
    keep_button_->setEnabled(can_change);
    leave_out_button_->setEnabled(can_change &&
                                  std::any_of(ones.begin(), ones.end(), ProblemList::canLeaveOut));
    if (document_.isFrozen()) {
        endFix();
    }
}

// What is selected alone is what is shown and fixed, also where a screen reader has selected it.
void ProblemsPage::followSelection() {
    const QItemSelection selection = table_->selectionModel()->selection();
    if (selection.size() == 1 && selection.front().height() == 1 &&
        selection.front().top() != table_->currentIndex().row()) {
        table_->selectionModel()->setCurrentIndex(
            model_->index(selection.front().top(), ProblemModel::kWhat),
            QItemSelectionModel::NoUpdate);
    }
    showButtons();
}

std::vector<book::Problem> ProblemsPage::selected() const {
    std::vector<book::Problem> ones;
    for (const QItemSelectionRange& range : table_->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (const book::Problem* const one = model_->at(row)) {
                ones.push_back(*one);
            }
        }
    }
    return ones;
}

const book::Problem* ProblemsPage::current() const {
    return model_->at(table_->currentIndex().row());
}

void ProblemsPage::ask(const QModelIndex& index) {
    const book::Problem* const one = model_->at(index.row());
    if (one != nullptr && one->Record != book::Problem::kNobody) {
        emit recordAsked(one->Record);
    }
}

void ProblemsPage::beginFix() {
    const book::Problem* const one = current();
    if (one == nullptr) {
        return;
    }
    if (const std::optional<QString> text = list_->textOf(*one)) {
        fix_->begin(*text, list_->isAddress(*one));
    }
}

void ProblemsPage::endFix() {
    if (fix_->isHidden()) {
        return;
    }
    if (fix_->isAncestorOf(focusWidget())) {
        table_->setFocus();
    }
    fix_->hide();
    if (is_late_) {
        list_->refresh();
    }
}

}  // namespace orvik
