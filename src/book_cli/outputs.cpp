#include "book_cli/outputs.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <set>

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
    const bool writes = arguments_.What == Verb::Convert || arguments_.What == Verb::Find ||
                        arguments_.What == Verb::Clean || arguments_.What == Verb::Dupes;
    const bool to_file = writes && arguments_.Output != kStandardStream;
    book_.Name = to_file && arguments_.Split == 0 ? arguments_.Output : "";
    report_.Name = arguments_.Report;
    if (IsRead(kOutputPath)) {
        return Refuse("Standard output is a file that is read", kStandardStream);
    }
    if (AreOneFile(book_.Name)) {
        return Refuse("The report and the book would be one file", report_.Name);
    }
    const ExitStatus status = CheckFile(book_);
    return status == ExitStatus::Done ? CheckFile(report_) : status;
}

ExitStatus Outputs::CheckFile(Target& target) {
    if (target.Name.empty()) {
        return ExitStatus::Done;
    }
    bool needs_leave = false;
    const ExitStatus status = Probe(target, needs_leave);
    if (status != ExitStatus::Done || !needs_leave) {
        return status;
    }
    console_.Begin(target.Name);
    target.MayReplace = console_.Ask(Printable(target.Name) + " is there already. Replace it?");
    if (!target.MayReplace) {
        console_.Tell("The file is there already; --force replaces it");
    }
    console_.End();
    return target.MayReplace ? ExitStatus::Done : ExitStatus::CannotCreate;
}

ExitStatus Outputs::Probe(Target& target, bool& needs_leave) {
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
    if (status == ExitStatus::Done) {
        status = Trap(console_, [&] { console_.Slot().TryWriting(target.Name); });
    }
    console_.End();
    needs_leave = !arguments_.Force && kind == FileKind::Regular;
    // One that was not there is still to be new when it is written.
    target.MayReplace = !needs_leave && kind != FileKind::Missing;
    return status;
}

ExitStatus Outputs::CheckParts(const std::vector<FilePart>& parts, std::vector<Target>& targets) {
    std::vector<Target*> there;
    std::set<std::string> files;
    targets.reserve(parts.size());
    for (const FilePart& part : parts) {
        Target& target = targets.emplace_back(Target{part.Name, false});
        if (AreOneFile(part.Name)) {
            return Refuse("The report and the book would be one file", report_.Name);
        }
        // Links may lead two names to one file.
        if (!files.insert(KeyOf(part.Name)).second) {
            return Refuse("This is the same file as another part of the book", part.Name);
        }
        bool needs_leave = false;
        if (const ExitStatus status = Probe(target, needs_leave); status != ExitStatus::Done) {
            return status;
        }
        if (needs_leave) {
            there.push_back(&target);
        }
    }
    if (there.empty()) {
        return ExitStatus::Done;
    }
    const std::string first = Printable(there.front()->Name);
    const bool leave = there.size() == 1
                           ? console_.Ask(first + " is there already. Replace it?")
                           : console_.Ask(first + " and others, " + std::to_string(there.size()) +
                                          " in all, are there already. Replace them?");
    for (Target* const target : there) {
        target->MayReplace = leave;
    }
    return leave ? ExitStatus::Done
                 : Refuse("The file is there already; --force replaces it", there.front()->Name);
}

std::string Outputs::KeyOf(const std::string& name) const {
    FileStatus status;
    const bool known = !Persist([&] { return console_.Files().Status(name, status); });
    return known && status.Kind == FileKind::Regular
               ? std::to_string(status.Identity.Device) + ":" +
                     std::to_string(status.Identity.Number)
               : console_.Files().ResolveLinks(name).lexically_normal().string();
}

// A terminal or a null device may well be both.
bool Outputs::IsRead(const std::string& name) const {
    FileStatus status;
    if (Persist([&] { return console_.Files().Status(name, status); }) ||
        status.Kind != FileKind::Regular) {
        return false;
    }
    const auto is_it = [&](const std::string& file) {
        return console_.Files().IsSame(file == kStandardStream ? kInputPath : file, name);
    };
    const bool is_plan =
        arguments_.What == Verb::Clean && !arguments_.Plan.empty() && is_it(arguments_.Plan);
    return is_plan || std::any_of(arguments_.Files.begin(), arguments_.Files.end(), is_it) ||
           std::any_of(arguments_.NewSince.begin(), arguments_.NewSince.end(), is_it);
}

bool Outputs::AreOneFile(const std::string& book) const {
    if (book.empty() || report_.Name.empty()) {
        return false;
    }
    FileSystem& files = console_.Files();
    return files.IsSame(book, report_.Name) ||
           files.ResolveLinks(book).lexically_normal() ==
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

ExitStatus Outputs::WriteParts(const std::vector<FilePart>& parts) {
    std::vector<Target> targets;
    ExitStatus status = CheckParts(parts, targets);
    for (std::size_t i = 0; i < parts.size() && status == ExitStatus::Done; ++i) {
        status = WriteFile(targets[i], parts[i].Contents);
        if (status != ExitStatus::Done && i > 0) {
            console_.Tell("Written are only " + RangeOf(parts.front().Name, parts[i - 1].Name));
        }
    }
    return status;
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
