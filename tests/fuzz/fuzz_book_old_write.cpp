// Reads any bytes as whatever book they are, and writes it in an old format: what was written is
// read again, and has as many records as were not told as lost. The first byte picks the format.

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "book/address_book.h"
#include "book/detect.h"
#include "book/old/old_formats.h"
#include "book/old/old_writers.h"
#include "fuzz/book_trip.h"
#include "fuzz/fuzz_target.h"

namespace {

using orvik::book::Book;
using orvik::book::ContactKind;
using orvik::book::Dialect;
using orvik::book::Format;
using orvik::fuzz::Check;

struct Target {
    char First;
    Dialect Form;
    Format Read;
    bool Signed;     // known among all others by its first lines
    bool AllPeople;  // an entry for each person, also of those who hold nothing
    bool AllLists;
};

constexpr std::array kTargets = {
    Target{'n', Dialect::Netscape3, Format::Netscape3, true, false, true},
    Target{'j', Dialect::Juno, Format::Juno, false, true, true},
    Target{'d', Dialect::PegasusList, Format::PegasusList, false, false, false},
    Target{'l', Dialect::PlainList, Format::PlainList, false, false, false},
    Target{'p', Dialect::PegasusText, Format::PegasusText, false, true, false},
    Target{'u', Dialect::Mutt, Format::Mutt, false, false, false},
    Target{'i', Dialect::Pine, Format::Pine, false, false, false},
    Target{'b', Dialect::Abook, Format::Abook, true, true, false},
};

orvik::fuzz::BookReader ReaderOf(std::string_view bytes) {
    using namespace orvik::book;
    const Detected found = Detect(Source("file", std::string(bytes)));
    const OldFormat* const old = OldFormatOf(found.Form);
    return old != nullptr                ? old->Read
           : found.Form == Format::Ldif  ? ReadLdif
           : found.Form == Format::VCard ? ReadVCard
           : found.Form == Format::Csv   ? orvik::fuzz::ReadTable
                                         : nullptr;
}

std::ptrdiff_t Count(const Book& book, ContactKind kind) {
    return std::count_if(book.Contacts.begin(), book.Contacts.end(), [kind](const auto& one) {
        return one.Kind == kind;
    });
}

void CheckWritten(const Target& target, Book& book) {
    const std::string text = orvik::book::OldWriterOf(target.Form)->Write(book);
    const auto back = orvik::fuzz::ReadBook(orvik::book::OldFormatOf(target.Read)->Read, text);
    if (target.Signed) {
        Check(orvik::book::Detect(orvik::book::Source("file", text)).Form == target.Read,
              "it is known for what it is");
    }
    if (target.AllPeople) {
        Check(Count(*back, ContactKind::Person) == Count(book, ContactKind::Person),
              "everybody is there");
    }
    if (target.AllLists) {
        Check(Count(*back, ContactKind::List) == Count(book, ContactKind::List),
              "each list is there");
    }
    if (target.Form == Dialect::PlainList) {
        Check(Count(*back, ContactKind::Person) == std::count(text.begin(), text.end(), '\n'),
              "each line is an entry");
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view bytes = orvik::fuzz::TextOf(data, size);
    const auto* const target =
        std::find_if(kTargets.begin(), kTargets.end(), [bytes](const Target& one) {
            return bytes.starts_with(one.First);
        });
    if (target == kTargets.end()) {
        return 0;
    }
    bytes.remove_prefix(1);
    if (const orvik::fuzz::BookReader reader = ReaderOf(bytes)) {
        const auto read = orvik::fuzz::ReadBook(reader, std::string(bytes));
        CheckWritten(*target, *read);
    }
    return 0;
}
