// What a person waits for in the Book window:
//
//   orvik-book-window-bench BOOK
//
// It opens the book and prints a line for each act: opening, typing in the filter, sorting, and 200
// Page Downs with the longest paint, three times each where the middle one counts; last, the most
// memory that was held, in sizes of the file.

#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <functional>
#include <iostream>
#include <string>

#include "bench/memory.h"
#include "bench/own_folder.h"
#include "desktop/book/book_table.h"
#include "desktop/book/book_window.h"
#include "desktop/session/application.h"
#include "platform/system_files.h"
#include "store/recent_books.h"

namespace orvik::bench {
namespace {

constexpr int kUsage = 64;
constexpr int kRuns = 3;
constexpr int kPages = 200;

double Milliseconds(const QElapsedTimer& clock) {
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

// Knows how long the longest paint event took.
class TimedApplication : public Application {
 public:
    using Application::Application;

    bool notify(QObject* receiver, QEvent* event) override {
        if (event->type() != QEvent::Paint) {
            return Application::notify(receiver, event);
        }
        QElapsedTimer clock;
        clock.start();
        const bool done = Application::notify(receiver, event);
        longest = std::max(longest, Milliseconds(clock));
        return done;
    }

    double longest = 0;
};

// The middle one of three runs.
double Middle(const std::function<double()>& run) {
    std::array<double, kRuns> all{};
    for (double& one : all) {
        one = run();
    }
    std::sort(all.begin(), all.end());
    return all[kRuns / 2];
}

void Print(const char* act, double milliseconds) {
    std::printf("%-34s %9.1f ms\n", act, milliseconds);
}

class Bench {
 public:
    explicit Bench(TimedApplication& app) : app_(app) {
        window_.show();
        table_ = window_.findChild<BookTable*>(QStringLiteral("bookTable"));
        filter_ = window_.findChild<QLineEdit*>(QStringLiteral("filterText"));
    }

    double open(const std::string& book) {
        return measure([&] {
            window_.open({{book}});
            wait();
        });
    }
    [[nodiscard]] std::size_t people() { return window_.document().thereCount(); }
    double type(const char* text) {
        return measure([&] {
            filter_->setText(QString::fromLatin1(text));
            wait();
        });
    }
    double sort(int column) {
        return measure([&] {
            table_->horizontalHeader()->setSortIndicator(column, Qt::AscendingOrder);
            wait();
        });
    }
    // The longest paint.
    double pages() {
        table_->setFocus();
        table_->selectRow(0);
        QCoreApplication::processEvents();
        app_.longest = 0;
        for (int i = 0; i < kPages; ++i) {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
            QApplication::sendEvent(table_, &press);
            QCoreApplication::processEvents();
        }
        return app_.longest;
    }

 private:
    static double measure(const std::function<void()>& act) {
        QElapsedTimer clock;
        clock.start();
        act();
        QCoreApplication::processEvents();
        return Milliseconds(clock);
    }
    // Until nothing is worked on, and what came of it is painted.
    void wait() {
        do {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
        } while (window_.worker().isBusy() || window_.rows().isBusy());
        QCoreApplication::processEvents();
    }

    TimedApplication& app_;
    SystemFiles files_;
    RecentBooks recent_;
    BookWindow window_{files_, recent_};
    BookTable* table_ = nullptr;
    QLineEdit* filter_ = nullptr;
};

int Run(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "orvik-book-window-bench BOOK\n";
        return kUsage;
    }
    const std::string book = argv[1];
    const QTemporaryDir own;
    LiveIn(own);
    TimedApplication app(argc, argv);
    Bench bench(app);
    ForgetMost();
    const std::size_t before = Resident("VmRSS:");
    Print("open", bench.open(book));
    std::printf("%-34s %9zu\n", "people", bench.people());
    const auto in_files = [&](std::size_t bytes) {
        const auto size = static_cast<double>(QFileInfo(QString::fromStdString(book)).size());
        return static_cast<double>(bytes - std::min(bytes, before)) / size;
    };
    std::printf("%-34s %9.2f x the file\n", "most memory, opened", in_files(Resident("VmHWM:")));
    Print("first letter", bench.type("m"));
    double longest = 0;
    for (const char* const text : {"mi", "mil", "mill", "mille", "mi", "e", "m", "", "ng 9", "x"}) {
        const double key = bench.type(text);
        std::printf(
            "  \"%s\"%*s %9.1f ms\n", text, static_cast<int>(30 - std::strlen(text)), "", key);
        longest = std::max(longest, key);
    }
    Print("longest of these", longest);
    bench.type("");
    Print("sort by name", bench.sort(0));
    Print("sort by address", bench.sort(2));
    Print("a letter, sorted", Middle([&] {
              bench.type("");
              return bench.type("m");
          }));
    bench.type("");
    Print("longest paint of 200 Page Downs", Middle([&] { return bench.pages(); }));
    std::printf("%-34s %9.2f x the file\n", "most memory, all", in_files(Resident("VmHWM:")));
    return 0;
}

}  // namespace
}  // namespace orvik::bench

int main(int argc, char** argv) {
    try {
        return orvik::bench::Run(argc, argv);
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
