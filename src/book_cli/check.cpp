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

std::string TextOf(const Console& console,
                   const std::string& file,
                   const book::Property& field,
                   const CheckedAddress& checked) {
    constexpr std::size_t kAddressWidth = 22;
    constexpr std::size_t kReasonWidth = 29;
    const std::string verdict =
        std::string(NameOf(checked.Class())) + ": " + Printable(checked.Reason());
    const std::string padded = Padded(verdict, kReasonWidth);
    const bool bad = checked.Class() == AddressClass::Bad;
    return Printable(file) + ":" + std::to_string(field.Line) + "  " +
           Padded(Printable(Shortened(field.Value)), kAddressWidth) +
           (bad ? console.Alarming(verdict) : verdict) + padded.substr(verdict.size()) +
           "kept, flagged\n";
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

void PrintAddress(const Arguments& arguments,
                  const Console& console,
                  const std::string& file,
                  const book::Property& field,
                  const CheckedAddress& checked) {
    if (arguments.Json) {
        console.Out() << AddressLine({file,
                                      field.Line,
                                      field.Value,
                                      NameOf(checked.Class()),
                                      checked.Reason(),
                                      checked.Ascii});
    } else if (checked.Class() != AddressClass::Valid) {
        console.Out() << TextOf(console, file, field, checked);
    }
}

}  // namespace

cli::ExitStatus Check(const Arguments& arguments, Console& console, Outputs& outputs) {
    Loaded loaded;
    Load(console, arguments.Files, arguments.Charset, loaded, arguments.Columns);
    Counts counts{};
    for (const book::Contact& contact : loaded.Book.Contacts) {
        for (const book::Property* const field : book::AddressFieldsOf(contact)) {
            const CheckedAddress checked = book::CheckAddress(field->Value);
            ++counts[static_cast<std::size_t>(checked.Class())];
            PrintAddress(
                arguments, console, loaded.Book.SourceAt(field->File).Name(), *field, checked);
        }
        if (!console.Out()) {
            break;
        }
    }
    if (!arguments.Json && !loaded.Inputs.empty()) {
        console.Out() << SummaryOf(counts);
    }
    cli::ExitStatus status = Worse(outputs.FinishPrinting(), loaded.Status);
    TellCharsets(console, loaded);
    TellRemarks(console, loaded);
    if (!arguments.Report.empty() && !loaded.Inputs.empty()) {
        status = Worse(status, outputs.WriteReport(ReportOf(loaded)));
    }
    const bool has_bad = counts[static_cast<std::size_t>(AddressClass::Bad)] > 0;
    status = Worse(status, has_bad ? cli::ExitStatus::Problem : cli::ExitStatus::Done);
    return Worse(status, StatusOf(loaded.Book));
}

}  // namespace orvik::book_cli
