#include "desktop/book/person_page.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "book/picture_bytes.h"
#include "book/readable_value.h"
#include "desktop/book/embedded_picture.h"
#include "desktop/book/panel_table.h"
#include "desktop/book/person_model.h"
#include "desktop/book/shown_text.h"
#include "desktop/book/source_text.h"
#include "desktop/text/plain_text.h"
#include "desktop/views/wrapped_label.h"

namespace orvik {
namespace {

constexpr int kPictureSide = 128;
constexpr int kLinesOfValue = 4;
// What is seen of a value, and what is copied of it, in bytes.
constexpr std::size_t kMostSeen = 32000;
constexpr std::size_t kMostCopied = std::size_t{16} << 20U;

QLabel* MakeLabel(const char* name, QWidget* parent) {
    auto* const label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    WrapText(*label);
    return label;
}

}  // namespace

PersonPage::PersonPage(BookDocument& document, BookChecks& checks, QWidget* parent)
    : QWidget(parent),
      document_(document),
      checks_(checks),
      title_(MakeLabel("personTitle", this)),
      origin_(MakeLabel("personOrigin", this)),
      picture_(MakeLabel("personPicture", this)),
      model_(new PersonModel(document, checks, this)),
      table_(MakePanelTable("personFields", tr("All that is known"), *model_, this)),
      value_(new QPlainTextEdit(this)),
      source_(new SourceText(document, checks, QStringLiteral("personSource"), this)) {
    setObjectName(QStringLiteral("personPage"));
    setAccessibleName(tr("Person"));
    makeTable();
    arrange();
    connect(&document_, &BookDocument::changed, this, [this](const BookDocument::Numbers& ones) {
        if (record_ && std::find(ones.begin(), ones.end(), *record_) != ones.end()) {
            refresh();
        }
    });
    connect(&document_, &BookDocument::recordsChanged, this, &PersonPage::refresh);
    connect(&checks_, &BookChecks::changed, this, &PersonPage::refresh);
    refresh();
}

void PersonPage::makeTable() {
    table_->horizontalHeader()->setSectionResizeMode(PersonModel::kValue, QHeaderView::Stretch);
    auto* const copy_action = new QAction(tr("&Copy"), table_);
    copy_action->setObjectName(QStringLiteral("personCopy"));
    copy_action->setShortcut(QKeySequence::Copy);
    copy_action->setShortcutContext(Qt::WidgetShortcut);
    table_->addAction(copy_action);
    table_->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(copy_action, &QAction::triggered, this, &PersonPage::copy);
    connect(table_, &QTableView::clicked, this, &PersonPage::follow);
    connect(table_, &QTableView::activated, this, &PersonPage::follow);
    connect(table_->selectionModel(),
            &QItemSelectionModel::currentChanged,
            this,
            &PersonPage::showValue);
    value_->setObjectName(QStringLiteral("personValue"));
    MakeReader(*value_, tr("Value"), kLinesOfValue);
}

void PersonPage::arrange() {
    QFont bold = title_->font();
    bold.setBold(true);
    title_->setFont(bold);
    title_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    origin_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    picture_->setAlignment(Qt::AlignTop | Qt::AlignRight);
    picture_->setMaximumWidth(kPictureSide);
    // Other than words, it is never cut.
    picture_->setMinimumWidth(0);
    auto* const words = new QVBoxLayout;
    words->addWidget(title_);
    words->addWidget(origin_);
    words->addStretch();
    auto* const head = new QHBoxLayout;
    head->addLayout(words, 1);
    head->addWidget(picture_);
    auto* const column = new QVBoxLayout(this);
    column->addLayout(head);
    column->addWidget(table_, 1);
    column->addWidget(value_);
    column->addWidget(source_);
}

void PersonPage::fitColumns() {
    FitColumn(*table_, PersonModel::kWhat);
    FitColumn(*table_, PersonModel::kFrom);
}

void PersonPage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fitColumns();
}

void PersonPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (record_) {
        checks_.look();
    }
}

void PersonPage::show(const BookDocument::Numbers& selected) {
    selected_ = selected;
    refresh();
    if (record_ && isVisible()) {
        checks_.look();
    }
}

void PersonPage::refresh() {
    std::size_t count = 0;
    std::optional<BookDocument::Number> first;
    for (const BookDocument::Number one : selected_) {
        if (one < document_.count() && document_.isThere(one)) {
            first = first ? first : one;
            ++count;
        }
    }
    showRecord(count == 1 ? first : std::nullopt);
    if (count != 1) {
        title_->setText(
            count == 0
                ? tr("Nobody is selected")
                : tr("%1 records are selected").arg(QString::fromStdString(book::Grouped(count))));
        origin_->setText(count == 0 ? tr("All that is known of a record is shown here once it is "
                                         "selected in the table.")
                                    : QString());
    }
    origin_->setVisible(!origin_->text().isEmpty());
    title_->setAccessibleName(title_->text());
}

void PersonPage::showRecord(std::optional<BookDocument::Number> record) {
    const bool is_same = record == record_;
    const QModelIndex current = table_->currentIndex();
    record_ = record;
    model_->setRecord(record);
    for (QWidget* const one : {static_cast<QWidget*>(table_),
                               static_cast<QWidget*>(value_),
                               static_cast<QWidget*>(source_)}) {
        one->setVisible(record.has_value());
    }
    picture_->hide();
    if (!record) {
        source_->setPlace(std::nullopt);
        return;
    }
    const book::Contact& contact = document_.at(*record);
    title_->setText(RecordName(document_, *record));
    origin_->setText(originWords(contact));
    origin_->setToolTip(
        contact.From.Lines == 0
            ? QString()
            : PlainTip(PlaceWords(document_.book(), contact.From.File, contact.From.Line)));
    showPicture(contact);
    const book::Origin& from = contact.From;
    source_->setPlace(from.Lines == 0
                          ? std::nullopt
                          : std::optional(book::ExcerptPlace{from.File, from.Line, from.Lines, 0}));
    const int row =
        is_same && current.isValid() ? std::min(current.row(), model_->rowCount() - 1) : 0;
    table_->setCurrentIndex(model_->index(row, PersonModel::kValue));
    fitColumns();
    showValue();
}

QString PersonPage::originWords(const book::Contact& contact) const {
    const QString kind = contact.Kind == book::ContactKind::List ? tr("A list") : tr("A person");
    const book::Origin& from = contact.From;
    if (from.Lines == 0) {
        return tr("%1, added here").arg(kind);
    }
    const QString place = NearPlace(document_.book(), from.File, from.Line);
    return contact.Changed ? tr("%1 from %2, changed since").arg(kind, place)
                           : tr("%1 from %2").arg(kind, place);
}

// The first one that stands in the record; one that is somewhere else is not fetched.
void PersonPage::showPicture(const book::Contact& contact) {
    const auto fields = contact.Properties;
    const auto is_picture = [](const book::Property& one) {
        return one.Name == book::field::kPhoto && !one.Value.empty();
    };
    auto one = std::find_if(fields.begin(), fields.end(), [&](const book::Property& field) {
        return is_picture(field) && book::EmbeddedBase64(document_.book(), field);
    });
    EmbeddedPicture picture;
    if (one != fields.end()) {
        const auto side = static_cast<int>(kPictureSide * devicePixelRatioF());
        picture = ReadPicture(*book::EmbeddedBase64(document_.book(), *one), {side, side});
    } else if (std::any_of(fields.begin(), fields.end(), is_picture)) {
        picture.Why = tr("The picture is somewhere else, and is not fetched.");
    } else {
        return;
    }
    QPixmap pixmap = QPixmap::fromImage(picture.Image);
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    picture_->clear();
    if (pixmap.isNull()) {
        picture_->setText(picture.Why);
    } else {
        picture_->setPixmap(pixmap);
    }
    picture_->setAccessibleName(pixmap.isNull() ? picture.Why
                                                : tr("Picture of %1").arg(title_->text()));
    picture_->show();
}

void PersonPage::showValue() {
    const QModelIndex current = table_->currentIndex();
    value_->setPlainText(current.isValid() && record_ ? model_->valueOf(current.row(), kMostSeen)
                                                      : QString());
}

void PersonPage::copy() {
    QStringList values;
    for (const QModelIndex& one : table_->selectionModel()->selectedRows()) {
        values << model_->valueOf(one.row(), kMostCopied);
    }
    QApplication::clipboard()->setText(values.join(QLatin1Char('\n')));
}

void PersonPage::follow(const QModelIndex& index) {
    if (const auto record = model_->recordOf(index.row())) {
        emit recordAsked(*record);
    }
}

}  // namespace orvik
