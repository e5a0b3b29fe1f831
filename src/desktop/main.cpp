// orvik [BOOK], orvik --book [FILE...]: the window program.

#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>
#include <QSessionManager>
#include <QTimer>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <new>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "app/printable.h"
#include "app/run_time_error.h"
#include "desktop/book/book_windows.h"
#include "desktop/help/help_key.h"
#include "desktop/session/application.h"
#include "desktop/session/desktop.h"
#include "desktop/session/end_signals.h"
#include "desktop/session/log_out.h"
#include "desktop/session/qt_platform.h"
#include "desktop/session/recovery_keeper.h"
#include "desktop/session/window_place.h"
#include "desktop/views/program_icon.h"
#include "desktop/windows/form1_window.h"
#include "desktop/windows/late_windows.h"
#include "platform/system_files.h"
#include "platform/system_process.h"
#include "program/program.h"
#include "store/recent_books.h"

namespace {

constexpr const char* kProgram = "orvik";

// As orvik-batch.
constexpr int kInputOutputStatus = 74;

// Runs before anything else is made, which may lack memory already.
[[gnu::constructor(101)]] void Prepare() {
    orvik::EndWhereMemoryLacks(kProgram);
}

// Qt ends the program once it has printed what was asked for, so this is looked at behind it.
void CheckStandardOutput() {
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        std::cerr << "orvik: Standard output cannot be written to\n";
        std::_Exit(kInputOutputStatus);
    }
}

bool IsAnyOf(std::span<const std::string_view> words, std::span<char*> arguments) {
    return std::any_of(arguments.begin(), arguments.end(), [&](const char* argument) {
        return std::find(words.begin(), words.end(), argument) != words.end();
    });
}

// Help and version are printed, so they work without a display.
bool OnlyPrints(std::span<char*> arguments) {
    constexpr std::array<std::string_view, 5> kPrinting = {
        "-h", "--help", "--help-all", "-v", "--version"};
    return IsAnyOf(kPrinting, arguments);
}

// Without a display Qt would end the program as if it had crashed.
bool HasDisplay(std::span<char*> arguments) {
    constexpr std::array<std::string_view, 4> kNaming = {
        "-platform", "--platform", "-display", "--display"};
    return IsAnyOf(kNaming, arguments) || !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

void NameProgram() {
    QCoreApplication::setApplicationName(QStringLiteral("orvik"));
    QCoreApplication::setOrganizationName(QStringLiteral("orvik"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVIK_VERSION));
}

struct Arguments {
    QStringList Books;  // absolute names
    bool OnlyBookWindow = false;
};

Arguments ParseArguments(const QCoreApplication& app) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::tr("Opens, sorts, merges and converts e-mail address books."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption book_window(
        QStringLiteral("book"),
        QCoreApplication::tr(
            "Opens every BOOK that is named with all of its fields, in a window of "
            "their own."));
    parser.addOption(book_window);
    parser.addPositionalArgument(QStringLiteral("BOOK"),
                                 QCoreApplication::tr("The address book to open."),
                                 QStringLiteral("[BOOK]"));
    if (!parser.parse(QCoreApplication::arguments())) {
        // What was given wrongly is quoted.
        std::cerr << orvik::Printable(parser.errorText().toStdString()) << '\n';
        std::exit(EXIT_FAILURE);
    }
    parser.process(app);
    Arguments arguments{parser.positionalArguments(), parser.isSet(book_window)};
    for (QString& book : arguments.Books) {
        book = QFileInfo(book).absoluteFilePath();
    }
    return arguments;
}

// Tests need not wait as long as a person may lose.
std::chrono::milliseconds RecoveryInterval() {
    bool is_number = false;
    const int wanted = qEnvironmentVariableIntValue("ORVIK_KEEP_WITHIN", &is_number);
    const std::chrono::milliseconds interval(wanted);
    return is_number && interval.count() > 0 ? std::min(interval, orvik::RecoveryKeeper::kInterval)
                                             : orvik::RecoveryKeeper::kInterval;
}

// What every window has behind it.
struct Base {
    explicit Base(orvik::Application& application) : app(application) {
        app.onOutOfMemory([this] {
            return desktop.run(
                [&] { platform.ReportFailure(orvik::RunTimeError(orvik::Failure::OutOfMemory)); });
        });
        QObject::connect(&book_windows,
                         &orvik::BookWindows::helpAsked,
                         &book_windows,
                         [this](const QString& topic) { showHelp(topic.toStdString()); });
    }
    Base(const Base&) = delete;
    Base& operator=(const Base&) = delete;
    Base(Base&&) = delete;
    Base& operator=(Base&&) = delete;
    ~Base() { app.onOutOfMemory({}); }

    void showHelp(std::string_view topic) { program.module.ShowHelpTopic(1, "Stripped", topic); }

    orvik::Application& app;
    orvik::Desktop desktop;
    orvik::SystemFiles files;
    orvik::RecentBooks recent = orvik::RecentBooks::OfUser(files);
    orvik::QtPlatform platform{desktop, files, recent};
    orvik::Program program{platform, files};
    orvik::HelpKey help_key{[this](std::string_view topic) { showHelp(topic); }};
    orvik::BookWindows book_windows{files, recent, orvik::WindowPlaceFile(), RecoveryInterval()};
};

// Directly, since the answer must be there when the signal has been sent.
template <class MayEnd, class Keep>
void AnswerLogOuts(QObject& context, MayEnd may_end, Keep keep) {
    QObject::connect(
        qApp,
        &QGuiApplication::commitDataRequest,
        &context,
        [may_end, keep](QSessionManager& manager) { orvik::AnswerLogOut(manager, may_end, keep); },
        Qt::DirectConnection);
}

std::vector<orvik::BookWindow::Input> InputsOf(const QStringList& names) {
    std::vector<orvik::BookWindow::Input> inputs;
    for (const QString& name : names) {
        inputs.push_back({QFile::encodeName(name).toStdString()});
    }
    return inputs;
}

// Ends with the last of the windows.
int RunBookWindows(orvik::Application& app, const QStringList& books) {
    Base base(app);
    orvik::BookWindows& windows = base.book_windows;
    const auto keep = [&windows] { windows.keepNow(); };
    const orvik::EndSignals end_signals(keep);
    AnswerLogOuts(
        windows,
        [&windows] {
            const bool ends = windows.mayLogOut();
            if (ends) {
                windows.endForLogOut();
                QCoreApplication::exit();
            }
            return ends;
        },
        keep);
    QGuiApplication::setQuitOnLastWindowClosed(true);
    // Inside the event loop, so that the program can end while it starts.
    QTimer::singleShot(0, &windows, [&windows, &books] { windows.open(InputsOf(books)); });
    return QApplication::exec();
}

int RunWindows(orvik::Application& app, const QStringList& books) {
    Base base(app);
    orvik::Desktop& desktop = base.desktop;
    orvik::Program& program = base.program;
    orvik::BookWindows& book_windows = base.book_windows;
    orvik::Form1Window window(program.module, desktop, base.recent);
    orvik::LateWindows small_windows(program, desktop, &window);
    orvik::RestorePlace(window, orvik::WindowPlaceFile());
    window.rememberIn(orvik::WindowPlaceFile());
    orvik::RecoveryKeeper keeper(base.files, RecoveryInterval());
    window.keepWith(keeper);
    base.platform.deleteWithSettings([&] {
        keeper.removeAll();
        book_windows.removeLeft();
    });
    const auto keep = [&] {
        keeper.keepNow();
        book_windows.keepNow();
    };
    const orvik::EndSignals end_signals(keep);
    AnswerLogOuts(
        window,
        [&] {
            if (!book_windows.mayLogOut()) {
                return false;
            }
            const bool ends = window.endForLogOut();
            if (ends) {
                book_windows.endForLogOut();
            } else {
                book_windows.stayAfterLogOut();
            }
            return ends;
        },
        keep);
    QObject::connect(&window,
                     &orvik::Form1Window::moveAsked,
                     &book_windows,
                     [&](const std::string& name, const std::string& lines) {
                         book_windows.openList(name, lines);
                     });
    QObject::connect(&window, &orvik::Form1Window::bookWindowAsked, &book_windows, [&] {
        book_windows.openEmpty();
    });
    const auto start = [&] {
        desktop.run([&] {
            program.module.RunEvent([&] { program.form1.Show(orvik::Showing::Modeless); });
        });
        if (!books.isEmpty()) {
            base.platform.rememberFolderOf(books.front());
        }
        window.openBooks(books);
        if (!desktop.hasEnded()) {
            window.offerLeftBooks();
            small_windows.makeInTurn();
        }
    };
    // Inside the event loop, so that the program can end while it starts.
    QTimer starter;
    starter.setSingleShot(true);
    QObject::connect(&starter, &QTimer::timeout, start);
    starter.start(0);
    int status = QApplication::exec();
    keeper.end(program.module);
    if (window.isVisible()) {
        orvik::KeepPlace(window, orvik::WindowPlaceFile());
    }
    if (book_windows.areOpen()) {
        window.hide();
        for (const auto& small : small_windows.made()) {
            small->hide();
        }
        QGuiApplication::setQuitOnLastWindowClosed(true);
        status = QApplication::exec();
    }
    try {
        desktop.rethrowEnd();
    } catch (const orvik::ProgramEnded&) {
        // As it should; anything else that was thrown is a mistake.
    }
    return status;
}

int Run(int argc, char** argv) {
    NameProgram();
    const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
    if (OnlyPrints(arguments)) {
        static_cast<void>(std::atexit(&CheckStandardOutput));
        const QCoreApplication app(argc, argv);
        ParseArguments(app);
        return 0;
    }
    if (!HasDisplay(arguments)) {
        const QCoreApplication app(argc, argv);
        ParseArguments(app);
        std::cerr << "orvik: There is no display. orvik-batch does the same without one.\n";
        return 1;
    }
    // Not every row has a picture that all desktops know, so none has one.
    QCoreApplication::setAttribute(Qt::AA_DontShowIconsInMenus);
    orvik::Application app(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("orvik"));
    QGuiApplication::setWindowIcon(orvik::ProgramIcon());
    // The window goes when the program ends; a box before it is shown is no last window.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const Arguments given = ParseArguments(app);
    return given.OnlyBookWindow ? RunBookWindows(app, given.Books) : RunWindows(app, given.Books);
}

}  // namespace

int main(int argc, char** argv) {
    orvik::ReserveStandardStreams();
    orvik::HandleSignals();
    try {
        return Run(argc, argv);
    } catch (const std::bad_alloc&) {
        orvik::EndOutOfMemory(kProgram);
    } catch (const std::length_error&) {
        orvik::EndOutOfMemory(kProgram);
    }
}
