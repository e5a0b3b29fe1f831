#include "book/read_vcard.h"

#include <cstddef>
#include <string>
#include <string_view>

#include "book/detect.h"
#include "book/value_form.h"
#include "book/vcard_contact.h"
#include "book/vcard_lines.h"

namespace orvik::book {
namespace {

class Cards {
 public:
    Cards(Book& book, std::uint32_t file, Charset& charset)
        : book_(book),
          file_(file),
          lines_(book.SourceAt(file), book),
          contacts_(book, charset, file) {}

    void Read() {
        for (VCardLine line; lines_.Next(line);) {
            if (BeginsCard(line.Text)) {
                Close(Reason::NotEnded);
                Open(line);
            } else if (EndsCard(line.Text)) {
                if (open_) {
                    Extend(line);
                    TellBlanks(line, "END:VCARD");
                    Close(Reason::None);
                } else {
                    Skip(line, Reason::NotNested);
                }
            } else if (!open_) {
                Skip(line, Reason::NotBegun);
            } else {
                Extend(line);
                Take(line);
            }
        }
        Close(Reason::CutOff);
    }

 private:
    void Open(const VCardLine& line) {
        open_ = true;
        has_version_ = false;
        form_ = lines_.PeekForm();
        lines_.SetForm(form_);
        from_ = {file_, line.Number, 0, book_.SourceAt(file_).OffsetOf(line.Span.data()), 0};
        Extend(line);
        TellBlanks(line, "BEGIN:VCARD");
    }

    void TellBlanks(const VCardLine& line, std::string_view wanted) {
        if (!SameName(line.Text, wanted)) {
            Tell(What::Doubtful, Reason::Blanks, line.Text);
        }
    }

    void Extend(const VCardLine& line) {
        from_.Lines = line.Last - from_.Line + 1;
        const char* const end = line.Span.data() + line.Span.size();
        from_.Bytes = book_.SourceAt(file_).OffsetOf(end) - from_.Offset;
    }

    void Take(const VCardLine& line) {
        const auto parts = SplitVCardLine(line.Text);
        if (parts && form_ == Dialect::None && SameName(parts->Name, "VERSION")) {
            has_version_ = true;
            form_ = VersionOf(parts->Value);
            lines_.SetForm(form_);
        }
        const bool agent = parts && SameName(parts->Name, "AGENT") &&
                           parts->Value.find_first_not_of(' ') == std::string_view::npos;
        const bool nested = agent && lines_.NextBeginsCard();
        const std::string_view text = nested ? WithCard(line.Text) : line.Text;
        rows_.Add(text, line.Number, text.data() != line.Span.data());
    }

    // A card inside of a value becomes one line, as vCard 3.0 writes it.
    std::string_view WithCard(std::string_view head) {
        std::string text(head);
        std::size_t depth = 0;
        Line line;
        do {
            if (!lines_.NextRaw(line)) {
                break;
            }
            depth += BeginsCard(line.Text) ? 1U : 0U;
            depth -= EndsCard(line.Text) ? 1U : 0U;
            AppendEscaped(line.Text, text);
            text += "\\n";
            Extend({line.Text, line.WithEnd, line.Number, line.Number});
        } while (depth > 0);
        return book_.Keep(text);
    }

    void Close(Reason reason) {
        if (!open_) {
            return;
        }
        open_ = false;
        const std::string_view last =
            rows_.All().empty() ? std::string_view{} : rows_.All().back().Text;
        if (rows_.All().empty()) {
            Tell(What::Skipped, Reason::Empty, last);
        } else {
            if (reason != Reason::None) {
                Tell(What::Doubtful, reason, last);
            }
            if (form_ == Dialect::None && !has_version_) {
                Tell(What::Doubtful, Reason::NoVersion, {});
            }
            contacts_.Add(rows_.All(), form_, from_);
        }
        rows_.Clear();
    }

    void Skip(const VCardLine& line, Reason reason) {
        from_.Line = line.Number;
        Tell(What::Skipped, reason, line.Text);
    }

    void Tell(What what, Reason reason, std::string_view value) {
        book_.Told.Add({{}, value, file_, from_.Line, FieldNames::kNone, what, reason});
    }

    Book& book_;
    std::uint32_t file_;
    VCardLines lines_;
    VCardContacts contacts_;
    TextRows rows_;
    Origin from_;
    Dialect form_ = Dialect::None;
    bool open_ = false;
    bool has_version_ = false;
};

}  // namespace

void ReadVCard(Book& book, std::uint32_t file, Charset& charset) {
    Cards(book, file, charset).Read();
}

}  // namespace orvik::book
