#include "desktop/book/worker_console.h"

#include <chrono>
#include <system_error>
#include <utility>

namespace orvik {
namespace {

// Each message begins with it, and is shown without.
constexpr const char* kProgram = "orvik";

QStringList LinesOf(const std::string& text) {
    return QString::fromStdString(text).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

}  // namespace

WorkerConsole::WorkerConsole(FileSystem& files, const BookWorker::Watch& watch, Ask ask)
    : messages_(kProgram, err_, false, std::chrono::milliseconds(0)),
      around_{
          files,
          out_,
          messages_,
          false,
          [](std::size_t, std::string&) {
              return std::make_error_code(std::errc::bad_file_descriptor);
          },
          [ask = std::move(ask)](const std::string& question) { return ask && ask(question); },
          [&watch](std::string_view, std::size_t done, std::size_t all) { watch.Tell(done, all); }},
      console_(around_) {}

QStringList WorkerConsole::told() const {
    QStringList lines = LinesOf(err_.str());
    const QString prefix = QString::fromLatin1(kProgram) + QStringLiteral(": ");
    for (QString& line : lines) {
        line.remove(0, line.startsWith(prefix) ? prefix.size() : 0);
    }
    return lines;
}

QStringList WorkerConsole::printed() const {
    return LinesOf(out_.str());
}

}  // namespace orvik
