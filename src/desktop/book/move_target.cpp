#include "desktop/book/move_target.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <limits>

#include "book_cli/targets.h"
#include "book_cli/verbs.h"
#include "desktop/text/text_codec.h"
#include "desktop/views/link_button.h"

namespace orvik {
namespace {

using book_cli::Arguments;

constexpr int kMostRecords = 999'999'999;
constexpr int kUsualRecords = 1000;

struct HelpPage {
    std::string_view Program;
    const char* Page;
};

// What the help says of a program stands on the page about its files, where it has none of its own.
constexpr std::array kHelp = {
    HelpPage{"thunderbird", "move_thunderbird.html"},
    HelpPage{"google", "move_google.html"},
    HelpPage{"apple", "move_apple.html"},
    HelpPage{"outlook", "move_outlook.html"},
    HelpPage{"outlook-new", "move_outlook_new.html"},
    HelpPage{"nextcloud", "move_nextcloud.html"},
    HelpPage{"kaddressbook", "move_kaddressbook.html"},
    HelpPage{"evolution", "move_evolution.html"},
    HelpPage{"pegasus", "pegasus.html"},
};

QString HelpPageOf(const book_cli::Program* program) {
    const auto* const found = std::find_if(kHelp.begin(), kHelp.end(), [&](const HelpPage& one) {
        return program != nullptr && one.Program == program->Name;
    });
    return QString::fromLatin1(found == kHelp.end() ? "move.html" : found->Page);
}

// What is written for a program in this form, or without one in this format.
Arguments ArgumentsFor(const book_cli::Program* program, int form) {
    Arguments arguments;
    arguments.What = book_cli::Verb::Convert;
    arguments.For = program;
    const auto number = static_cast<std::size_t>(std::max(form, 0));
    if (program != nullptr) {
        arguments.Choose(program->Forms[number]);
    } else {
        arguments.Target = book_cli::AnyForms()[number].Form;
        arguments.Set = book_cli::AnyForms()[number].Set;
    }
    return arguments;
}

// "Google CSV, UTF-8 (.csv)".
QString FormText(const Arguments& arguments, std::string_view ending) {
    const bool keeps =
        arguments.For == nullptr && !arguments.Set && arguments.Target == book::Dialect::Ldif;
    const QString name = keeps ? QObject::tr("LDIF, with the attributes that it has")
                               : QString::fromStdString(book_cli::TargetName(arguments, false));
    return ending.empty() ? name : QStringLiteral("%1 (%2)").arg(name, ToLetters(ending));
}

std::string_view EndingAt(const book_cli::Program* program, int form) {
    const auto number = static_cast<std::size_t>(std::max(form, 0));
    return program != nullptr ? program->Forms[number].Ending : book_cli::AnyForms()[number].Ending;
}

}  // namespace

MoveTarget::MoveTarget(bool has_lists, QWidget* parent)
    : QWidget(parent),
      has_lists_(has_lists),
      programs_(new QListWidget(this)),
      right_(new QVBoxLayout),
      title_(new QLabel(this)),
      where_(new QLabel(this)),
      help_(new LinkButton(QStringLiteral("moveHelp"), tr("How to import"), this)),
      more_(new QToolButton(this)),
      details_(new QWidget(this)),
      form_(new QComboBox(details_)),
      splits_(new QCheckBox(tr("S&plit into files of at most"), details_)),
      most_(new QSpinBox(details_)) {
    setObjectName(QStringLiteral("moveTarget"));
    listPrograms();
    auto* const left = new QVBoxLayout;
    auto* const label = new QLabel(tr("Mo&ve to"), this);
    label->setBuddy(programs_);
    left->addWidget(label);
    left->addWidget(programs_, 1);
    makeRight();
    auto* const columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addLayout(left);
    columns->addLayout(right_, 1);
    connect(programs_, &QListWidget::currentRowChanged, this, &MoveTarget::chooseProgram);
    // A screen reader selects without making it the current one.
    connect(programs_, &QListWidget::itemSelectionChanged, this, [this] {
        if (const auto chosen = programs_->selectedItems(); chosen.size() == 1) {
            programs_->setCurrentItem(chosen.front());
        }
    });
    programs_->setCurrentRow(0);
}

void MoveTarget::listPrograms() {
    programs_->setObjectName(QStringLiteral("movePrograms"));
    programs_->setAccessibleName(tr("Move to"));
    for (const book_cli::Program& one : book_cli::Programs()) {
        programs_->addItem(ToLetters(one.Title));
    }
    programs_->addItem(tr("Another program or a file"));
    const int frame = 2 * programs_->frameWidth() + programs_->fontMetrics().averageCharWidth() * 2;
    programs_->setFixedWidth(programs_->sizeHintForColumn(0) + frame);
}

void MoveTarget::makeRight() {
    title_->setObjectName(QStringLiteral("moveTitle"));
    QFont bold = title_->font();
    bold.setBold(true);
    title_->setFont(bold);
    where_->setObjectName(QStringLiteral("moveWhere"));
    for (QLabel* const one : {title_, where_}) {
        one->setTextFormat(Qt::PlainText);
        one->setWordWrap(true);
    }
    makeMore();
    auto* const links = new QHBoxLayout;
    links->addWidget(help_);
    links->addStretch(1);
    links->addWidget(more_);
    right_->addWidget(title_);
    right_->addWidget(where_);
    right_->addLayout(links);
    right_->addWidget(details_);
    connect(
        help_, &QAbstractButton::clicked, this, [this] { emit helpAsked(HelpPageOf(program())); });
}

void MoveTarget::makeMore() {
    more_->setObjectName(QStringLiteral("moveMore"));
    more_->setText(tr("&More"));
    more_->setAccessibleName(tr("More about the file"));
    more_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    more_->setCheckable(true);
    more_->setAutoRaise(true);
    more_->setFocusPolicy(Qt::StrongFocus);
    details_->setObjectName(QStringLiteral("moveDetails"));
    form_->setObjectName(QStringLiteral("moveForm"));
    form_->setAccessibleName(tr("File"));
    form_->view()->setAccessibleName(tr("Files"));
    splits_->setObjectName(QStringLiteral("moveSplits"));
    most_->setObjectName(QStringLiteral("moveMost"));
    most_->setAccessibleName(tr("Records of a file"));
    most_->setRange(1, kMostRecords);
    most_->setValue(kUsualRecords);
    most_->setSuffix(tr(" records"));
    most_->setKeyboardTracking(false);
    auto* const row = new QHBoxLayout;
    row->addWidget(splits_);
    row->addWidget(most_);
    row->addStretch(1);
    auto* const lines = new QFormLayout(details_);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setRowWrapPolicy(QFormLayout::DontWrapRows);
    lines->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    lines->addRow(tr("&File:"), form_);
    lines->addRow(row);
    openMore(false);
    connect(more_, &QAbstractButton::toggled, this, &MoveTarget::openMore);
    connect(form_, qOverload<int>(&QComboBox::currentIndexChanged), this, &MoveTarget::take);
    connect(splits_, &QAbstractButton::toggled, this, &MoveTarget::take);
    connect(most_, qOverload<int>(&QSpinBox::valueChanged), this, &MoveTarget::take);
}

void MoveTarget::openMore(bool open) {
    details_->setVisible(open);
    more_->setArrowType(open ? Qt::DownArrow : Qt::RightArrow);
}

const book_cli::Program* MoveTarget::program() const {
    const auto row = static_cast<std::size_t>(std::max(programs_->currentRow(), 0));
    return row < book_cli::Programs().size() ? &book_cli::Programs()[row] : nullptr;
}

void MoveTarget::chooseProgram() {
    const book_cli::Program* const chosen = program();
    {
        const QSignalBlocker quiet(form_);
        form_->clear();
        const std::size_t count =
            chosen != nullptr ? chosen->Forms.size() : book_cli::AnyForms().size();
        for (int i = 0; i < static_cast<int>(count); ++i) {
            form_->addItem(FormText(ArgumentsFor(chosen, i), EndingAt(chosen, i)));
        }
        if (chosen != nullptr) {
            const auto& best = book_cli::FormFor(*chosen, has_lists_);
            form_->setCurrentIndex(static_cast<int>(&best - chosen->Forms.data()));
        }
    }
    {
        // Whoever wanted files for one program need not want them for the next.
        const QSignalBlocker quiet(splits_);
        splits_->setChecked(false);
    }
    // Without a program the file is all that can be chosen.
    more_->setChecked(more_->isChecked() || chosen == nullptr);
    take();
}

// The rest follows from what is chosen.
void MoveTarget::take() {
    const Arguments chosen = arguments();
    title_->setText(programs_->currentItem()->text());
    where_->setText(sentence());
    const bool may_split = book_cli::MaySplit(chosen.Target);
    splits_->setEnabled(may_split);
    most_->setEnabled(may_split && splits_->isChecked());
    emit changed();
}

QString MoveTarget::sentence() const {
    const Arguments chosen = arguments();
    return chosen.Form == nullptr
               ? tr("For any program that reads such a file; More has the formats")
               : QString::fromStdString(
                     book_cli::ImportText(*chosen.Form, chosen.Split > 0 ? 2 : 1));
}

Arguments MoveTarget::arguments() const {
    Arguments arguments = ArgumentsFor(program(), form_->currentIndex());
    if (splits_->isChecked() && book_cli::MaySplit(arguments.Target)) {
        arguments.Split = static_cast<std::size_t>(most_->value());
    }
    return arguments;
}

std::string_view MoveTarget::ending() const {
    return EndingAt(program(), form_->currentIndex());
}

std::string_view MoveTarget::word() const {
    return program() != nullptr ? program()->Name : std::string_view();
}

void MoveTarget::split(std::size_t most) {
    const QSignalBlocker quiet(most_);
    most_->setValue(static_cast<int>(std::min<std::size_t>(most, kMostRecords)));
    more_->setChecked(true);
    if (splits_->isChecked()) {
        take();
    } else {
        splits_->setChecked(true);
    }
}

void MoveTarget::addBelow(QWidget* what) {
    right_->addWidget(what, 1);
}

}  // namespace orvik
