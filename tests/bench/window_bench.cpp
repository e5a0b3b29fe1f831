// What a person waits for in the window, one row per run of this program:
//
//   orvik-window-bench open|copy|find|save BOOK.ldif
//   orvik-window-bench start
//
// It prints seconds of the processor, seconds of the clock and the peak of memory in KiB of the row
// alone. Two builds are compared by running them in turn.

#include <QAction>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListView>
#include <QTemporaryDir>

#include <spawn.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "app/form1.h"
#include "bench/own_folder.h"
#include "desktop/session/application.h"
#include "desktop/session/desktop.h"
#include "desktop/session/qt_platform.h"
#include "desktop/session/recovery_keeper.h"
#include "desktop/session/window_place.h"
#include "desktop/views/program_icon.h"
#include "desktop/windows/form1_window.h"
#if __has_include("desktop/windows/late_windows.h")
#include "desktop/windows/late_windows.h"
#else
#include "desktop/windows/small_windows.h"
#endif
#include "platform/system_files.h"
#include "program/program.h"
#include "store/recent_books.h"

namespace orvik::bench {
namespace {

constexpr int kUsage = 64;
// In no row, though each letter is in many.
constexpr std::string_view kNoHit = "nobody at all";

double SecondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

double ProcessorSeconds(const rusage& used) {
    return SecondsOf(used.ru_utime) + SecondsOf(used.ru_stime);
}

double ProcessorSeconds() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    return ProcessorSeconds(used);
}

// The most that was ever held, in KiB.
long Peak() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == "VmHWM:") {
            long peak = 0;
            status >> peak;
            return peak;
        }
    }
    return 0;
}

void Print(double processor, double clock, long peak) {
    std::printf("%.4f %.4f %ld\n", processor, clock, peak);
}

// Measures one act. What was held at most before it counts no more.
void Measure(const std::function<void()>& act) {
    std::ofstream("/proc/self/clear_refs") << 5;
    const double before = ProcessorSeconds();
    QElapsedTimer clock;
    clock.start();
    act();
    const double seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
    Print(ProcessorSeconds() - before, seconds, Peak());
}

// The desktop of a person whose answers are known: the dialogs themselves are not measured.
class Answering : public QtPlatform {
 public:
    Answering(Desktop& desktop, FileSystem& files, RecentBooks& books)
        : QtPlatform(desktop, files, books), desktop_(desktop) {}

    void choose(std::string name) { name_ = std::move(name); }

    Answer ShowBox(const MessageBox& box) override {
        desktop_.syncAll();
        return box.Choice == Buttons::OK ? Answer::OK : Answer::No;
    }
    std::string ShowFileDialog(FileDialog& dialog) override {
        desktop_.syncAll();
        dialog.FilterIndex = 1;
        desktop_.fileChosen(name_);
        return name_;
    }

 private:
    Desktop& desktop_;
    std::string name_;
};

// Sees whether a widget is painted.
class PaintSeen : public QObject {
 public:
    explicit PaintSeen(QObject& widget) { widget.installEventFilter(this); }

    void wait() const {
        while (!painted_) {
            QCoreApplication::processEvents();
        }
    }

 protected:
    bool eventFilter(QObject* receiver, QEvent* event) override {
        painted_ = painted_ || event->type() == QEvent::Paint;
        return QObject::eventFilter(receiver, event);
    }

 private:
    bool painted_ = false;
};

// The program as its main function makes it.
class Window {
 public:
    Window() {
        RestorePlace(window_, WindowPlaceFile());
        window_.rememberIn(WindowPlaceFile());
        window_.keepWith(keeper_);
        desktop_.run(
            [&] { program_.module.RunEvent([&] { program_.form1.Show(Showing::Modeless); }); });
        shown_.wait();
    }

    // Returns when the list that came of it was painted.
    void open(const std::string& book) {
        platform_.choose(book);
        const PaintSeen listed(*find<QListView>("List1").viewport());
        trigger("mnuOpen");
        listed.wait();
        if (program_.form1.List1.Items().empty()) {
            throw std::runtime_error("nothing was opened");
        }
    }
    void copy() { trigger("mnuCopyConvert"); }
    void beginToFind() {
        trigger("find");
        find<QLineEdit>("findText")
            .setText(QString::fromUtf8(kNoHit.data(), static_cast<qsizetype>(kNoHit.size())));
    }
    void findNext() { trigger("findNext"); }
    void save(const std::string& book) {
        platform_.choose(book);
        trigger("mnuSave");
    }

 private:
    template <class Kind>
    [[nodiscard]] Kind& find(const char* name) const {
        auto* const found = window_.findChild<Kind*>(QLatin1String(name));
        if (found == nullptr) {
            throw std::runtime_error(std::string("there is no ") + name);
        }
        return *found;
    }
    void trigger(const char* action) {
        find<QAction>(action).trigger();
        QCoreApplication::processEvents();
    }

    Desktop desktop_;
    SystemFiles files_;
    RecentBooks recent_ = RecentBooks::OfUser(files_);
    Answering platform_{desktop_, files_, recent_};
    Program program_{platform_, files_};
    Form1Window window_{program_.module, desktop_, recent_};
#if __has_include("desktop/windows/late_windows.h")
    LateWindows small_windows_{program_, desktop_, &window_};
#else  // An older Orvik, which is measured beside this one.
    decltype(MakeSmallWindows(program_, desktop_, &window_)) small_windows_ =
        MakeSmallWindows(program_, desktop_, &window_);
#endif
    RecoveryKeeper keeper_{files_};
    // The lists are covered as long as there is no book.
    PaintSeen shown_{window_};
};

// Nothing of the user's is read or written. Somebody has made the settings already, so that the
// program asks for none.
void Settle(const QTemporaryDir& own) {
    const QDir folder(own.path());
    folder.mkpath(QStringLiteral("orvik"));
    std::ofstream(folder.filePath(QStringLiteral("orvik/orvik.conf")).toStdString())
        << "[Settings]\ntextSep=5\nOpen=1\nExtract=False\nSep=,\nAuto=False\n";
    LiveIn(own);
}

// What the child of `start` does: the program up to its first window, as it was painted.
void ShowFirstWindow(int argc, char** argv) {
    QCoreApplication::setAttribute(Qt::AA_DontShowIconsInMenus);
    const Application app(argc, argv);
    QGuiApplication::setWindowIcon(ProgramIcon());
    const Window window;
    std::_Exit(0);
}

// From outside, so that what the loader does counts too.
int MeasureStart(char* program) {
    const QTemporaryDir own;
    Settle(own);
    std::string row = "shown";
    const std::array<char*, 3> arguments = {program, row.data(), nullptr};
    QElapsedTimer clock;
    clock.start();
    pid_t child = 0;
    if (posix_spawn(&child, "/proc/self/exe", nullptr, nullptr, arguments.data(), environ) != 0) {
        return 1;
    }
    int status = 0;
    rusage used{};
    if (wait4(child, &status, 0, &used) != child || status != 0) {
        return 1;
    }
    Print(ProcessorSeconds(used), static_cast<double>(clock.nsecsElapsed()) / 1e9, used.ru_maxrss);
    return 0;
}

int MeasureBook(int argc, char** argv, std::string_view row, const std::string& book) {
    const QTemporaryDir own;
    Settle(own);
    const Application app(argc, argv);
    Window window;
    if (row == "open") {
        Measure([&] { window.open(book); });
        return 0;
    }
    window.open(book);
    if (row == "copy") {
        Measure([&] { window.copy(); });
    } else if (row == "find") {
        window.beginToFind();
        Measure([&] { window.findNext(); });
    } else if (row == "save") {
        const std::string saved = own.filePath(QStringLiteral("saved.ldif")).toStdString();
        Measure([&] { window.save(saved); });
    } else {
        return kUsage;
    }
    return 0;
}

int Run(int argc, char** argv) {
    const std::string_view row = argc > 1 ? argv[1] : "";
    if (row == "start" && argc == 2) {
        return MeasureStart(argv[0]);
    }
    if (row == "shown" && argc == 2) {
        ShowFirstWindow(argc, argv);
    }
    if (argc != 3) {
        std::cerr << "orvik-window-bench open|copy|find|save BOOK.ldif, or start\n";
        return kUsage;
    }
    return MeasureBook(argc, argv, row, argv[2]);
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
