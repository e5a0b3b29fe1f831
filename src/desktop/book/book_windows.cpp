#include "desktop/book/book_windows.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "desktop/session/choice_box.h"
#include "desktop/session/recovery_offer.h"
#include "desktop/text/plain_text.h"

namespace orvik {
namespace {

// "a.ldif", or "a.ldif and 2 more".
QString ShownFiles(const QStringList& files) {
    if (files.isEmpty()) {
        return QObject::tr("a new book");
    }
    const QString first = ShortName(files.front().section(u'/', -1).toStdString());
    return files.size() == 1 ? first
                             : QObject::tr("%1 and %2 more").arg(first).arg(files.size() - 1);
}

LeftAnswer Ask(QWidget& window, const RecoveryCopy& copy) {
    constexpr std::array kAnswers{LeftAnswer::Restore, LeftAnswer::Discard, LeftAnswer::NotNow};
    const std::vector<Choice> choices = {
        {QObject::tr("&Restore"), QMessageBox::AcceptRole},
        {QObject::tr("&Discard"), QMessageBox::DestructiveRole},
        {QObject::tr("&Not now"), QMessageBox::RejectRole},
    };
    const QString amount =
        copy.Entries == 1 ? QObject::tr("1 record") : QObject::tr("%1 records").arg(copy.Entries);
    const QString text = WhatWasLeft(ShownFiles(BookKeeper::filesOf(copy)), copy.Seconds, amount) +
                         u'\n' + QObject::tr("Do you want to restore it, or to discard it?");
    return kAnswers.at(AskForChoice(&window, text, choices, 0));
}

// It has no record, and no step that could be taken back.
bool IsEmpty(BookWindow& window) {
    BookDocument& document = window.document();
    return document.thereCount() == 0 && !document.undoStack().canUndo();
}

}  // namespace

BookWindows::BookWindows(FileSystem& files,
                         RecentBooks& books,
                         QString state_file,
                         std::chrono::milliseconds interval)
    : files_(files), books_(books), state_file_(std::move(state_file)), interval_(interval) {
    // Behind what asked for it.
    for (QTimer* const timer : {&offer_, &drop_}) {
        timer->setSingleShot(true);
        timer->setInterval(0);
    }
    connect(&offer_, &QTimer::timeout, this, &BookWindows::offerLeft);
    connect(&drop_, &QTimer::timeout, this, &BookWindows::dropClosed);
}

BookWindows::~BookWindows() = default;

bool BookWindows::areOpen() const {
    return std::any_of(
        open_.begin(), open_.end(), [](const auto& open) { return open->Window->isVisible(); });
}

BookWindow& BookWindows::open(std::vector<BookWindow::Input> inputs) {
    BookWindow& window = *add().Window;
    window.show();
    if (!inputs.empty()) {
        window.open(std::move(inputs));
    }
    if (!std::exchange(has_offered_, true)) {
        offer_.start();
    }
    return window;
}

bool BookWindows::isSecondClick() {
    const bool is_second =
        asked_.isValid() && asked_.elapsed() < QApplication::doubleClickInterval();
    asked_.start();
    return is_second;
}

void BookWindows::openEmpty() {
    if (!isSecondClick()) {
        open({});
    }
}

void BookWindows::openList(const std::string& name, std::string lines) {
    if (isSecondClick()) {
        return;
    }
    std::vector<BookWindow::Input> inputs;
    inputs.push_back({.Name = name, .Bytes = std::move(lines), .Form = book::Format::PlainList});
    open(std::move(inputs))
        .tell(tr("These are the addresses and nicknames of the main window. Open the file here to "
                 "have all of its fields."));
}

BookWindows::Open& BookWindows::add() {
    auto made = std::make_unique<Open>();
    made->Window = std::make_unique<BookWindow>(files_, books_);
    made->Keeper = std::make_unique<BookKeeper>(made->Window->document(), files_, interval_);
    BookWindow& window = *made->Window;
    window.rememberIn(state_file_);
    connect(&window, &BookWindow::helpAsked, this, &BookWindows::helpAsked);
    connect(&window, &BookWindow::closed, this, [this, &window] {
        Open& open = *of(&window);
        giveUp(open);
        open.IsClosed = true;
        drop_.start();
    });
    connect(made->Keeper.get(), &BookKeeper::failed, &window, [&window](const QString& why) {
        window.tell(tr("What is not saved cannot be kept for the case of a crash: %1.").arg(why));
    });
    open_.push_back(std::move(made));
    return *open_.back();
}

BookWindows::Open* BookWindows::of(const QObject* window) {
    const auto found = std::find_if(
        open_.begin(), open_.end(), [&](const auto& open) { return open->Window.get() == window; });
    return found == open_.end() ? nullptr : found->get();
}

// The user has said that what is not saved may go.
void BookWindows::giveUp(Open& open) {
    open.Window->document().markSaved();
}

void BookWindows::dropClosed() {
    std::erase_if(open_, [](const auto& open) { return open->IsClosed; });
}

void BookWindows::keepNow() {
    for (const auto& open : open_) {
        open->Keeper->keepNow();
    }
}

void BookWindows::removeLeft() {
    RecoveryStore(files_, BookKeeper::kFolder).RemoveLeft();
}

// While one is asked about, another one may be closed.
bool BookWindows::mayLogOut() {
    std::vector<QPointer<BookWindow>> windows;
    for (const auto& open : open_) {
        windows.emplace_back(open->Window.get());
    }
    const bool may = std::all_of(windows.begin(), windows.end(), [this](const auto& window) {
        const bool may_go = window.isNull() || window->mayClose();
        if (Open* const open = may_go ? of(window) : nullptr) {
            open->IsGivenUp = true;
        }
        return may_go;
    });
    if (!may) {
        stayAfterLogOut();
    }
    return may;
}

void BookWindows::stayAfterLogOut() {
    for (const auto& open : open_) {
        open->IsGivenUp = false;
    }
}

void BookWindows::endForLogOut() {
    for (const auto& open : open_) {
        if (open->IsGivenUp) {
            giveUp(*open);
        }
        open->Keeper->keepNow();
        open->Window->hide();
    }
}

// All of them at once: what is restored in one window is no question in the next.
void BookWindows::offerLeft() {
    has_offered_ = areOpen();
    if (!has_offered_) {
        return;
    }
    // The last one lies before the others.
    const Open& front = **std::find_if(
        open_.rbegin(), open_.rend(), [](const auto& open) { return open->Window->isVisible(); });
    BookWindow& first = *front.Window;
    const BookKeeper& keeper = *front.Keeper;
    for (RecoveryStore::Left& left : keeper.leftBooks()) {
        switch (Ask(first, left.Copy)) {
            case LeftAnswer::Restore:
                restore(std::move(left), first);
                break;
            case LeftAnswer::Discard:
                keeper.discard(left);
                break;
            case LeftAnswer::SaveAs:
            case LeftAnswer::NotNow:
                break;
        }
    }
}

// As long as its records are not read, the copy stays where it is, and no other program takes it.
void BookWindows::restore(RecoveryStore::Left left, BookWindow& first) {
    const bool is_free = IsEmpty(first) && !first.worker().isBusy();
    BookWindow& window = is_free ? first : open({});
    BookKeeper* const keeper = of(&window)->Keeper.get();
    BookWindow::Input input{.Name = BookKeeper::nameOf(left.Copy),
                            .Bytes = std::string(left.Copy.Text),
                            .Form = book::Format::VCard,
                            .IsUnsaved = true};
    left.Copy.Text = {};
    const auto held = std::make_shared<RecoveryStore::Left>(std::move(left));
    connect(
        &window,
        &BookWindow::unsavedRead,
        keeper,
        [keeper, held] { keeper->adopt(std::move(*held)); },
        Qt::SingleShotConnection);
    std::vector<BookWindow::Input> inputs;
    inputs.push_back(std::move(input));
    window.open(std::move(inputs));
}

}  // namespace orvik
