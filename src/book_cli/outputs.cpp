#include "book_cli/outputs.h"

#include <algorithm>
#include <functional>
#include <optional>

#include "app/file_calls.h"
#include "app/printable.h"
#include "app/run_time_error.h"
#include "book_cli/told.h"

namespace orvik::book_cli {
namespace {

using cli::ExitStatus;

// The standard streams under names that lead to what they are.
constexpr const char* kInputPath = "/dev/stdin";
constexpr const char* kOutputPath = "/dev/stdout";

// Runs what writes or tries to; a failure is told.
ExitStatus Trap(Console& console, const std::function<void()>& act) {
    ExitStatus status = ExitStatus::Done;
    TrapFailure(act, [&](const RunTimeError& failure) {
        PassLackOfMemory(failure);
        console.Tell(cli::WithDetail(failure.what(), failure.Detail()));
        status = cli::StatusOf(failure.Cause(), true);
    });
    return status;
}

}  // namespace

ExitStatus Outputs::Check() {
    const bool writes = arguments_.What == Verb::Convert || arguments_.What == Verb::Find;
    book_.Name = writes && arguments_.Output != kStandardStream ? arguments_.Output : "";
    report_.Name = arguments_.Report;
    if (IsRead(kOutputPath)) {
        return Refuse("Standard output is a file that is read", kStandardStream);
    }
    if (AreOneFile()) {
        return Refuse("The report and the book would be one file", report_.Name);
    }
    const ExitStatus status = CheckFile(book_);
    return status == ExitStatus::Done ? CheckFile(report_) : status;
}

ExitStatus Outputs::CheckFile(Target& target) {
    if (target.Name.empty()) {
        return ExitStatus::Done;
    }
    if (IsRead(target.Name)) {
        return Refuse("This file is read, and a book is never written over itself", target.Name);
    }
    console_.Begin(target.Name);
    FileKind kind = FileKind::Missing;
    ExitStatus status =
        Trap(console_, [&] { kind = StatusOf(console_.Files(), target.Name).Kind; });
    if (kind == FileKind::Folder) {
        return Refuse("This is a folder; a file in it needs a name", target.Name);
    }
    status = status != ExitStatus::Done
                 ? status
                 : Trap(console_, [&] { console_.Slot().TryWriting(target.Name); });
    target.MayReplace = arguments_.Force || kind != FileKind::Regular;
    if (status == ExitStatus::Done && !target.MayReplace) {
        target.MayReplace = console_.Ask(Printable(target.Name) + " is there already. Replace it?");
        if (!target.MayReplace) {
            console_.Tell("The file is there already; --force replaces it");
            status = ExitStatus::CannotCreate;
        }
    }
    // One that was not there is still to be new when it is written.
    target.MayReplace = target.MayReplace && kind != FileKind::Missing;
    console_.End();
    return status;
}

// A terminal or a null device may well be both.
bool Outputs::IsRead(const std::string& name) const {
    FileStatus status;
    if (Persist([&] { return console_.Files().Status(name, status); }) ||
        status.Kind != FileKind::Regular) {
        return false;
    }
    return std::any_of(
        arguments_.Files.begin(), arguments_.Files.end(), [&](const std::string& file) {
            return console_.Files().IsSame(file == kStandardStream ? kInputPath : file, name);
        });
}

bool Outputs::AreOneFile() const {
    if (book_.Name.empty() || report_.Name.empty()) {
        return false;
    }
    FileSystem& files = console_.Files();
    return files.IsSame(book_.Name, report_.Name) ||
           files.ResolveLinks(book_.Name).lexically_normal() ==
               files.ResolveLinks(report_.Name).lexically_normal();
}

ExitStatus Outputs::WriteBook(const SharedText& contents) {
    if (!book_.Name.empty()) {
        return WriteFile(book_, contents);
    }
    console_.Out() << contents.View();
    return ExitStatus::Done;
}

ExitStatus Outputs::WriteReport(const SharedText& contents) {
    return report_.Name.empty() ? ExitStatus::Done : WriteFile(report_, contents);
}

ExitStatus Outputs::WriteFile(const Target& target, const SharedText& contents) {
    console_.Begin(target.Name);
    const ExitStatus status = Trap(console_, [&] {
        if (target.MayReplace || arguments_.Force) {
            console_.Slot().Replace(target.Name, contents);
            return;
        }
        console_.Slot().Rewrite(target.Name, [&](const std::optional<std::string>& old) {
            if (old) {
                throw RunTimeError(Failure::PermissionDenied, "The file is there by now.");
            }
            return std::optional<SharedText>(contents);
        });
    });
    console_.End();
    return status;
}

ExitStatus Outputs::FinishPrinting() {
    if (console_.Out().flush()) {
        return ExitStatus::Done;
    }
    console_.Tell("Standard output cannot be written to");
    return ExitStatus::InputOutput;
}

ExitStatus Outputs::Refuse(const std::string& text, const std::string& name) {
    console_.Begin(name);
    console_.Tell(text);
    console_.End();
    return ExitStatus::CannotCreate;
}

}  // namespace orvik::book_cli
