#include "book_cli/find_told.h"

#include <vector>

#include "app/file_calls.h"
#include "app/printable.h"
#include "app/run_time_error.h"
#include "book/report.h"
#include "book_cli/json_lines.h"
#include "book_cli/told.h"

namespace orvik::book_cli {
namespace {

using Kind = book::SearchNote::Kind;

// Nobody reads more at a terminal; the report has all, up to a number that nobody reads either.
constexpr std::size_t kMostPartsTold = 20;
constexpr std::size_t kMostLines = 200'000;

// What progress is about.
constexpr const char* kReading = "reading";

std::string SizeText(std::uint64_t bytes) {
    constexpr std::uint64_t kThousand = 1000;
    constexpr std::uint64_t kMillion = 1'000'000;
    return bytes >= kMillion    ? Grouped((bytes + kMillion / 2) / kMillion) + " MB"
           : bytes >= kThousand ? Grouped((bytes + kThousand / 2) / kThousand) + " kB"
                                : std::to_string(bytes) + " bytes";
}

const char* ReasonOf(book::WalkNote note) {
    switch (note) {
        case book::WalkNote::Link:
            return "is a link, and only those that are named are followed";
        case book::WalkNote::NoFile:
        case book::WalkNote::NoInput:
            return "is a pipe, a device or another thing without an end";
        case book::WalkNote::Unsent:
            return "is where programs are still writing";
        case book::WalkNote::OfServer:
            return "belongs to the mail server";
        case book::WalkNote::Trashed:
            return "is deleted";
        case book::WalkNote::Again:
            return "was read already";
        case book::WalkNote::Failed:
            break;
    }
    return "cannot be read";
}

}  // namespace

std::string FoundText(const book::SearchTotals& totals, const FindCounts& counts, bool has_report) {
    std::string text = GroupedCount(totals.Messages, "message", "messages");
    if (totals.Texts > 0) {
        text += " and " + GroupedCount(totals.Texts, "other text", "other texts");
    }
    text += ", " + SizeText(totals.Bytes) + ": " +
            GroupedCount(counts.Addresses, "address", "addresses") + ", " + Grouped(counts.Twice) +
            " seen twice or more\n";
    std::vector<std::string> left_out;
    const auto add = [&left_out](std::size_t count, const char* one, const char* many) {
        if (count > 0) {
            left_out.push_back(GroupedCount(count, one, many));
        }
    };
    add(totals.Ids, "Message-ID", "Message-IDs");
    add(counts.NoReply, "no-reply", "no-reply");
    add(counts.Mine, "of --me", "of --me");
    add(totals.Older, "older message", "older messages");
    add(totals.Undated, "without a date", "without a date");
    add(totals.Deleted, "deleted message", "deleted messages");
    add(totals.FolderData,
        "message of a folder about itself",
        "messages of folders about themselves");
    add(totals.Links, "link", "links");
    add(totals.Binary, "file that is no text", "files that are no text");
    add(totals.Encrypted, "encrypted part", "encrypted parts");
    add(totals.Undecodable, "in undecodable parts", "in undecodable parts");
    if (left_out.empty()) {
        return text;
    }
    std::string_view between = "left out: ";
    for (const std::string& one : left_out) {
        text.append(between).append(one);
        between = ", ";
    }
    const bool listed =
        totals.Undecodable + totals.Encrypted + totals.Binary + totals.Deleted + totals.FolderData >
        0;
    return text + (listed && !has_report ? " (listed with --report)\n" : "\n");
}

void FindTold::AddLine(const std::string& line) {
    if (has_report_ && ++lines_ <= kMostLines) {
        report_ += line;
    }
}

void FindTold::AddLeftOut(const std::string& place,
                          const std::string& address,
                          const char* reason) {
    AddLine(ReportLine({NameOf(book::What::Skipped), place, 0, "EMAIL", address, {}, reason}));
}

void FindTold::TakeWalk(const book::SearchNote& note) {
    std::string reason = ReasonOf(note.Walk);
    if (note.Walk == book::WalkNote::Failed) {
        TrapFailure([&] { CheckFile(console_.Files(), note.Error, note.Path); },
                    [&](const RunTimeError& failure) {
                        PassLackOfMemory(failure);
                        reason = cli::WithDetail(failure.what(), failure.Detail());
                        status_ = Worse(status_, cli::StatusOf(failure.Cause(), false));
                    });
    }
    if (note.Walk == book::WalkNote::NoInput) {
        status_ = Worse(status_, cli::ExitStatus::NoInput);
    }
    const bool fails = note.Walk == book::WalkNote::Failed || note.Walk == book::WalkNote::NoInput;
    // Another program may take a whole folder away meanwhile.
    if (fails && ++failed_ <= kMostPartsTold) {
        console_.Begin(note.Path);
        console_.Tell(reason);
        console_.Begin(kReading);
    }
    AddLine(ReportLine({NameOf(book::What::Skipped), note.Path, 0, {}, {}, {}, reason}));
}

void FindTold::TellPart(const book::SearchNote& note) {
    std::size_t& told = told_[note.What == Kind::Encrypted ? 1 : 0];
    if (++told > kMostPartsTold) {
        return;
    }
    console_.Begin(note.Path);
    console_.Tell((note.Line > 0 ? "line " + std::to_string(note.Line) + ": " : "") +
                  Printable((note.Part.empty() ? "it " : "part " + note.Part + " ") + note.Reason));
    console_.Begin(kReading);
}

void FindTold::Begin() {
    console_.Begin(kReading);
}

void FindTold::Take(const book::SearchNote& note) {
    if (note.What == Kind::Walk) {
        return TakeWalk(note);
    }
    const std::string reason =
        note.What == Kind::Binary ? "is " + note.Reason + ", no text" : note.Reason;
    AddLine(ReportLine(
        {NameOf(book::What::Skipped), note.Path, note.Line, note.Part, note.Message, {}, reason}));
    if (note.What != Kind::Binary && note.What != Kind::Unseen) {
        TellPart(note);
    }
    if (note.What == Kind::Undecodable || note.What == Kind::TooLong) {
        status_ = Worse(status_, cli::ExitStatus::Problem);
    }
}

void FindTold::ShowHowFar(const std::string& path,
                          std::size_t messages,
                          std::uint64_t done,
                          std::uint64_t all) const {
    constexpr std::uint64_t kAll = 100;
    const std::string percent =
        all == 0 ? "" : std::to_string(std::min(kAll * done / all, kAll)) + "%, ";
    console_.ShowProgress(Printable(path) + ": " + percent +
                          GroupedCount(messages, "message", "messages"));
}

void FindTold::End() {
    console_.End();
    for (const std::size_t told : told_) {
        if (told > kMostPartsTold) {
            console_.Tell(std::to_string(told - kMostPartsTold) +
                          " more parts; --report FILE names all");
        }
    }
    if (failed_ > kMostPartsTold) {
        console_.Tell(std::to_string(failed_ - kMostPartsTold) +
                      " more cannot be read; --report FILE names all");
    }
    if (lines_ > kMostLines) {
        AddLine({});
        report_ += ReportLine({NameOf(book::What::Skipped),
                               {},
                               0,
                               {},
                               std::to_string(lines_ - 1 - kMostLines),
                               {},
                               "more are not listed"});
    }
}

}  // namespace orvik::book_cli
