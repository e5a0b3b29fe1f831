#include <algorithm>
#include <array>
#include <cstddef>

#include "app/printable.h"
#include "book/address_check.h"
#include "book/typed_views.h"
#include "book_cli/json_lines.h"
#include "book_cli/told.h"
#include "book_cli/verbs.h"

namespace orvik::book_cli {
namespace {

using book::AddressClass;
using book::CheckedAddress;

// How many addresses of each class there are.
using Counts = std::array<std::size_t, 4>;

// A text with blanks up to a width in letters, and two more.
std::string Padded(std::string text, std::size_t width) {
    const auto letters =
        static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
            return (static_cast<unsigned char>(c) & 0xC0U) != 0x80;
        }));
    text.append(2 + width - std::min(width, letters), ' ');
    return text;
}

// "bad: two @", "valid: al@xn--bcher-kva.example in ASCII".
std::string VerdictOf(const AddressEntry& entry) {
    std::string verdict = std::string(entry.Class) + ": " + Printable(entry.Reason);
    if (!entry.Ascii.empty()) {
        verdict += entry.Reason.empty() ? "" : "; ";
        verdict += Printable(Shortened(entry.Ascii)) + " in ASCII";
    }
    return verdict;
}

std::string TextOf(const Console& console, const AddressEntry& entry) {
    constexpr std::size_t kAddressWidth = 22;
    constexpr std::size_t kReasonWidth = 29;
    const std::string verdict = VerdictOf(entry);
    const std::string padded = Padded(verdict, kReasonWidth);
    const bool bad = entry.Class == NameOf(AddressClass::Bad);
    const bool flagged = entry.Class != NameOf(AddressClass::Valid);
    return Printable(entry.File) + ":" + std::to_string(entry.Line) + "  " +
           Padded(Printable(Shortened(entry.Address)), kAddressWidth) +
           (bad ? console.Alarming(verdict) : verdict) + padded.substr(verdict.size()) +
           (flagged ? "kept, flagged\n" : "kept\n");
}

std::string SummaryOf(const Counts& counts) {
    std::size_t all = 0;
    for (const std::size_t count : counts) {
        all += count;
    }
    std::string text = std::to_string(all) + " checked: ";
    for (const AddressClass which :
         {AddressClass::Valid, AddressClass::Odd, AddressClass::Deprecated, AddressClass::Bad}) {
        const std::size_t count = counts[static_cast<std::size_t>(which)];
        // Hardly a book has any of these.
        if (which != AddressClass::Deprecated || count > 0) {
            text += (which == AddressClass::Valid ? "" : ", ") + std::to_string(count) + " " +
                    std::string(NameOf(which));
        }
    }
    return text + "\n";
}

// Goes through the addresses of a book: those of its people, and those of members of lists who are
// no record of it.
class Checker {
 public:
    Checker(const Arguments& arguments, const Console& console, const book::Book& book)
        : arguments_(arguments), console_(console), catalogue_(book) {}

    void CheckAll() {
        for (const book::Contact& contact : catalogue_.Book().Contacts) {
            for (const book::Property* const field : book::AddressFieldsOf(contact)) {
                CheckOne(*field, field->Value);
            }
            for (const book::ListMember& one : catalogue_.Members().MembersOf(contact)) {
                // Those of Evolution are addresses of the list.
                if (one.Record == book::ListMember::kNobody && !one.Address.empty() &&
                    one.Field->Name != book::field::kEmail) {
                    CheckOne(*one.Field, one.Address);
                }
            }
            if (!console_.Out()) {
                break;
            }
        }
    }

    [[nodiscard]] const Counts& Found() const { return counts_; }
    // An object for each address, if there is to be a report.
    [[nodiscard]] const std::string& Report() const { return report_; }

 private:
    void CheckOne(const book::Property& field, std::string_view address) {
        const CheckedAddress checked = book::CheckAddress(address);
        ++counts_[static_cast<std::size_t>(checked.Class())];
        const std::string reason(checked.Reason());
        const AddressEntry entry{catalogue_.Book().SourceAt(field.File).Name(),
                                 field.Line,
                                 address,
                                 NameOf(checked.Class()),
                                 reason,
                                 checked.Ascii};
        if (!arguments_.Report.empty()) {
            report_ += AddressLine(entry);
        }
        if (arguments_.Json) {
            console_.Out() << AddressLine(entry);
        } else if (checked.Class() != AddressClass::Valid || !checked.Ascii.empty()) {
            console_.Out() << TextOf(console_, entry);
        }
    }

    const Arguments& arguments_;
    const Console& console_;
    Catalogue catalogue_;
    Counts counts_{};
    std::string report_;
};

}  // namespace

cli::ExitStatus Check(const Arguments& arguments, Console& console, Outputs& outputs) {
    Loaded loaded;
    Load(console, arguments.Files, arguments.Charset, loaded, arguments.Columns);
    Checker checker(arguments, console, loaded.Book);
    checker.CheckAll();
    if (!arguments.Json && !loaded.Inputs.empty()) {
        console.Out() << SummaryOf(checker.Found());
    }
    cli::ExitStatus status = Worse(outputs.FinishPrinting(), loaded.Status);
    TellColumns(console, loaded);
    TellCharsets(console, loaded);
    TellRemarks(console, loaded);
    if (!arguments.Report.empty() && !loaded.Inputs.empty()) {
        status = Worse(status,
                       outputs.WriteReport(InputsReport(loaded) + checker.Report() +
                                           RemarksReport(loaded.Book)));
    }
    const bool has_bad = checker.Found()[static_cast<std::size_t>(AddressClass::Bad)] > 0;
    status = Worse(status, has_bad ? cli::ExitStatus::Problem : cli::ExitStatus::Done);
    return Worse(status, StatusOf(loaded.Book));
}

}  // namespace orvik::book_cli
