#include "book/mail/mail_search.h"

#include <algorithm>
#include <utility>

#include "app/file_calls.h"
#include "app/text.h"
#include "book/detect.h"
#include "book/mail/mail_kind.h"
#include "book/mail/unseen_mail.h"
#include "book/source.h"

namespace orvik::book {
namespace {

constexpr std::size_t kPiece = 256UL * 1024;
// A text in wide letters is read as a whole.
constexpr std::size_t kLongestWide = 16UL * 1024 * 1024;
// A line of a text is not longer, or is looked at in pieces.
constexpr std::size_t kLongestTextLine = 1024UL * 1024;

// Line ends of old Macs become those that mail is parted by.
bool EndsLinesWithCr(std::string_view beginning) {
    return beginning.find('\n') == std::string_view::npos &&
           beginning.find('\r') != std::string_view::npos;
}

// A file, whose beginning is looked at before it is read.
class Pieces {
 public:
    Pieces(InputFile& file, std::uint64_t length, const MailSearch::Listener& listener)
        : file_(file), length_(length), listener_(listener) {}

    // Reads the beginning.
    std::error_code Begin() {
        const std::error_code error = ReadBytes(file_, kLookedAt, beginning_);
        old_mac_ = EndsLinesWithCr(beginning_);
        Translate(beginning_);
        return error;
    }
    [[nodiscard]] std::string_view Beginning() const { return beginning_; }

    bool Next(std::string& to) {
        if (!beginning_.empty()) {
            to += std::exchange(beginning_, {});
            return true;
        }
        if (error_) {
            return false;
        }
        error_ = Persist([&] { return file_.Read(kPiece, piece_); });
        if (error_ || piece_.empty()) {
            return false;
        }
        done_ += piece_.size();
        listener_.HowFar(done_, length_);
        Translate(piece_);
        to += piece_;
        return true;
    }

    [[nodiscard]] std::error_code Error() const { return error_; }
    [[nodiscard]] std::uint64_t Done() const { return done_; }

 private:
    void Translate(std::string& text) const {
        if (old_mac_) {
            std::replace(text.begin(), text.end(), '\r', '\n');
        }
    }

    InputFile& file_;
    std::uint64_t length_;
    const MailSearch::Listener& listener_;
    std::string beginning_;
    std::string piece_;
    std::uint64_t done_ = 0;
    std::error_code error_;
    bool old_mac_ = false;
};

bool IsAllBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

std::string ReadAll(const NextPiece& next, std::size_t most) {
    std::string bytes;
    while (bytes.size() < most && next(bytes)) {
    }
    return bytes;
}

}  // namespace

MailSearch::MailSearch(FileSystem& files, const SearchOptions& options, Listener listener)
    : files_(files),
      options_(options),
      listener_(std::move(listener)),
      reader_(options.HeadersOnly) {}

void MailSearch::Pass(const std::string& path, WalkNote note, std::error_code error) {
    totals_.Links += note == WalkNote::Link ? 1U : 0U;
    totals_.Deleted += note == WalkNote::Trashed ? 1U : 0U;
    listener_.Tell({SearchNote::Kind::Walk, path, 0, {}, {}, {}, note, error});
}

void MailSearch::Look(const MailWalk::File& file) {
    std::unique_ptr<InputFile> opened;
    std::error_code error = Persist([&] { return files_.OpenToRead(file.Path, opened); });
    if (error) {
        return Pass(file.Path, WalkNote::Failed, error);
    }
    listener_.Begin(file.Path);
    Pieces pieces(*opened, file.Length, listener_);
    error = pieces.Begin();
    totals_.Bytes += pieces.Beginning().size();
    const NextPiece next = [&pieces](std::string& to) { return pieces.Next(to); };
    if (!error) {
        switch (file.IsMessage ? MailKind::Message : KindOfMail(pieces.Beginning(), file.Path)) {
            case MailKind::Folder:
                LookAtFolder(file, next);
                break;
            case MailKind::Message:
                LookAtMessage(file, next);
                break;
            case MailKind::Text:
                LookAtText(file, next);
                break;
            case MailKind::WideText:
                LookAtWide(file, next);
                break;
            case MailKind::Binary:
                ++totals_.Binary;
                listener_.Tell({SearchNote::Kind::Binary,
                                file.Path,
                                0,
                                {},
                                {},
                                Detect(Source({}, std::string(pieces.Beginning()))).Evidence});
                break;
        }
    }
    totals_.Bytes += pieces.Done();
    error = error ? error : pieces.Error();
    if (error) {
        Pass(file.Path, WalkNote::Failed, error);
    }
}

void MailSearch::LookAtFolder(const MailWalk::File& file, const NextPiece& next) {
    MboxReader reader(next);
    for (MboxMessage message; reader.Next(message);) {
        if (message.IsRest) {
            TakeRest(file, message.Text, message.Line);
        } else if (!message.Marker.empty() || !IsAllBlank(message.Text)) {
            TakeMessage(file, message.Text, message.Marker, message.Line);
        }
    }
}

void MailSearch::LookAtMessage(const MailWalk::File& file, const NextPiece& next) {
    std::string text = ReadAll(next, kLongestMessage);
    // A message that was taken out of a folder may have kept what parts messages there.
    std::string_view message = text;
    std::string_view marker;
    if (HasEnding(file.Path, ".emlx") && !EmlxMessage(message).empty()) {
        message = EmlxMessage(message);
    }
    if (message.starts_with("From ")) {
        const std::size_t end = std::min(message.find('\n'), message.size() - 1) + 1;
        marker = message.substr(0, end);
        message.remove_prefix(end);
    }
    if (message.empty()) {
        return;
    }
    TakeMessage(file, message, marker, 1);
    text.clear();
    while (next(text)) {
        const std::size_t end = std::min(text.rfind('\n'), text.size() - 1) + 1;
        TakeRest(file, std::string_view(text).substr(0, end), 1);
        text.erase(0, end);
    }
    if (!text.empty()) {
        TakeRest(file, text, 1);
    }
}

void MailSearch::LookAtText(const MailWalk::File& file, const NextPiece& next) {
    MailFindings findings;
    std::string text;
    bool more = !options_.HeadersOnly;
    while (more) {
        more = next(text);
        const std::size_t line = text.rfind('\n');
        const bool cut = line == std::string::npos && text.size() > kLongestTextLine;
        // A line of any length is cut where no address is.
        const std::size_t place = cut ? text.find_last_of(" ,;<>\t") : line;
        const bool whole = !more || (cut && place == std::string::npos);
        const std::size_t end = whole ? text.size() : place == std::string::npos ? 0 : place + 1;
        reader_.ReadText(std::string_view(text).substr(0, end), findings);
        text.erase(0, end);
    }
    TakeText(file, findings);
}

void MailSearch::LookAtWide(const MailWalk::File& file, const NextPiece& next) {
    MailFindings findings;
    if (!options_.HeadersOnly) {
        const Source source({}, ReadAll(next, kLongestWide));
        reader_.ReadText(source.Text(), findings);
        if (std::string rest; next(rest)) {
            ++totals_.Undecodable;
            listener_.Tell(
                {SearchNote::Kind::TooLong, file.Path, 0, {}, {}, "is long; the end was not read"});
        }
    }
    TakeText(file, findings);
}

void MailSearch::TakeText(const MailWalk::File& file, const MailFindings& findings) {
    ++totals_.Texts;
    totals_.Ids += findings.IdCount;
    if (options_.Since != kNoTime) {
        ++totals_.Undated;
        return;
    }
    people_.Add(findings, file.Place);
}

bool MailSearch::IsPassedOver(const MailWalk::File& file, std::string_view text, std::size_t line) {
    const Unseen unseen = UnseenKindOf(text);
    if (unseen == Unseen::None) {
        return false;
    }
    const bool deleted = unseen == Unseen::Deleted;
    ++(deleted ? totals_.Deleted : totals_.FolderData);
    listener_.Tell({SearchNote::Kind::Unseen,
                    file.Path,
                    line,
                    {},
                    {},
                    deleted ? "is deleted" : "holds what a mail server keeps of the folder"});
    return true;
}

void MailSearch::TakeMessage(const MailWalk::File& file,
                             std::string_view text,
                             std::string_view marker,
                             std::size_t line) {
    last_left_out_ = IsPassedOver(file, text, line);
    if (last_left_out_) {
        return;
    }
    ++totals_.Messages;
    const MailFindings findings = reader_.Read(text, marker);
    last_time_ = findings.Time;
    last_left_out_ = options_.Since != kNoTime && findings.Time < options_.Since;
    if (last_left_out_) {
        ++(findings.Time == kNoTime ? totals_.Undated : totals_.Older);
        return;
    }
    for (const PartNote& note : findings.Notes) {
        ++(note.IsEncrypted ? totals_.Encrypted : totals_.Undecodable);
        listener_.Tell(
            {note.IsEncrypted ? SearchNote::Kind::Encrypted : SearchNote::Kind::Undecodable,
             file.Path,
             line,
             note.Part,
             findings.MessageId,
             note.Reason});
    }
    Keep(file, findings);
}

// A message that is too long goes on.
void MailSearch::TakeRest(const MailWalk::File& file, std::string_view text, std::size_t line) {
    if (last_left_out_ || options_.HeadersOnly) {
        return;
    }
    MailFindings findings;
    reader_.ReadText(text, findings);
    for (Mention& one : findings.Mentions) {
        one.Time = last_time_;
    }
    ++totals_.Undecodable;
    listener_.Tell({SearchNote::Kind::TooLong,
                    file.Path,
                    line,
                    {},
                    {},
                    "is part of a long message, and was read as text"});
    Keep(file, findings);
}

void MailSearch::Keep(const MailWalk::File& file, const MailFindings& findings) {
    totals_.Ids += findings.IdCount;
    people_.Add(findings, file.Place);
}

void SearchMail(FileSystem& files,
                const std::vector<std::string>& paths,
                const std::vector<std::string>& avoid,
                MailSearch& search) {
    MailWalk walk(files,
                  {[&](const MailWalk::File& file) { search.Look(file); },
                   [&](const std::string& path, WalkNote note, std::error_code error) {
                       search.Pass(path, note, error);
                   }});
    for (const std::string& one : avoid) {
        walk.Avoid(one);
    }
    walk.Walk(paths);
}

}  // namespace orvik::book
