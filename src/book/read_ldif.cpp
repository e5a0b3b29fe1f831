#include "book/read_ldif.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "book/detect.h"
#include "book/ldif_contact.h"
#include "book/ldif_lines.h"

namespace orvik::book {
namespace {

class Reader {
 public:
    Reader(Book& book, std::uint32_t file, Charset& charset)
        : book_(book), file_(file), contacts_(book, charset, file) {}

    void Read() {
        const Source& source = book_.SourceAt(file_);
        LdifLines lines(source, book_);
        for (LdifLine line; lines.Next(line);) {
            if (line.Text.empty()) {
                End(false);
                continue;
            }
            // A name begins a record, also where no empty line parts it from the last one.
            if (BeginsLdifRecord(line.Text)) {
                End(true);
            }
            Take(line);
        }
        End(false);
    }

 private:
    void Take(const LdifLine& line) {
        const Source& source = book_.SourceAt(file_);
        if (rows_.All().empty()) {
            from_ = {file_, line.Number, 0, source.OffsetOf(line.Span.data()), 0};
        }
        from_.Lines = line.Last - from_.Line + 1;
        from_.Bytes = source.OffsetOf(line.Span.data() + line.Span.size()) - from_.Offset;
        doubt_ = line.Doubt;
        if (doubt_ != Reason::None) {
            Tell(What::Doubtful, doubt_, line.Text);
        }
        rows_.Add(line.Text, line.Number, line.Text.data() != line.Span.data());
    }

    void End(bool by_next) {
        if (rows_.All().empty()) {
            return;
        }
        const bool named = BeginsLdifRecord(rows_.All().front().Text);
        if (by_next && named && doubt_ != Reason::LineOfBlanks) {
            Tell(What::Doubtful, Reason::NotEnded, rows_.All().front().Text);
        }
        if (!named && !Has("objectclass")) {
            SkipAll();
        } else if (const auto first = FirstOfContent()) {
            contacts_.Add(rows_.All(), *first, from_);
        }
        rows_.Clear();
        doubt_ = Reason::None;
    }

    // Where the attributes of the record begin; nothing for one that only changes another.
    std::optional<std::size_t> FirstOfContent() {
        for (std::size_t i = 1; i < rows_.All().size(); ++i) {
            const auto parts = SplitLdifLine(rows_.All()[i].Text);
            if (parts && SameName(parts->Name, "control")) {
                continue;
            }
            if (!parts || !SameName(parts->Name, "changetype")) {
                break;
            }
            TakeControls(i);
            if (!SameName(parts->Value, "add")) {
                Tell(What::Skipped, Reason::ChangeRecord, parts->Value);
                return std::nullopt;
            }
            Tell(What::Doubtful, Reason::Added, parts->Value);
            // The name stays the first row, right before the attributes.
            rows_.All()[i] = rows_.All().front();
            return i;
        }
        return 0;
    }

    // Controls tell a server how to make the change.
    void TakeControls(std::size_t end) {
        for (std::size_t i = 1; i < end; ++i) {
            Tell(What::Doubtful, Reason::Control, rows_.All()[i].Text);
        }
    }

    [[nodiscard]] bool Has(std::string_view name) const {
        return std::any_of(rows_.All().begin(), rows_.All().end(), [name](const TextRow& row) {
            const auto parts = SplitLdifLine(row.Text);
            return parts && SameName(parts->Name, name);
        });
    }

    void SkipAll() {
        for (const TextRow& row : rows_.All()) {
            const auto parts = SplitLdifLine(row.Text);
            const bool version = parts && SameName(parts->Name, "version");
            if (version && parts->Value == "1") {
                continue;
            }
            from_.Line = row.Number;
            Tell(What::Skipped, version ? Reason::OtherVersion : Reason::NotBegun, row.Text);
        }
    }

    void Tell(What what, Reason reason, std::string_view value) {
        book_.Told.Add({{}, value, file_, from_.Line, FieldNames::kNone, what, reason});
    }

    Book& book_;
    std::uint32_t file_;
    LdifContacts contacts_;
    TextRows rows_;
    Origin from_;
    Reason doubt_ = Reason::None;
};

}  // namespace

void ReadLdif(Book& book, std::uint32_t file, Charset& charset) {
    Reader(book, file, charset).Read();
}

}  // namespace orvik::book
