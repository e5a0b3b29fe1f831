// The first byte says which reader or writer gets the bytes behind it. What the readers leave out
// of them is counted for every format.

#include <array>
#include <string>
#include <string_view>

#include "app/text.h"
#include "app/working_text.h"
#include "files/list_filters.h"
#include "files/netscape3_merge.h"
#include "files/something_else.h"
#include "formats/csv_reader.h"
#include "formats/juno_reader.h"
#include "formats/juno_writer.h"
#include "formats/netscape3_reader.h"
#include "formats/netscape3_writer.h"
#include "formats/pim_export.h"
#include "formats/unread.h"
#include "fuzz/checked_progress.h"
#include "fuzz/fuzz_target.h"

namespace orvik::fuzz {
namespace {

int CountOf(std::string_view text, std::string_view part) {
    int count = 0;
    for (std::size_t p = text.find(part); p != std::string_view::npos;
         p = text.find(part, p + part.size())) {
        ++count;
    }
    return count;
}

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

// A list can be split, or it has no entry.
void CheckList(std::string_view list, std::string_view separator) {
    const int failure = FailureOf([&] { static_cast<void>(SplitBlocks(list, separator)); });
    Check(failure == 0 || failure == 5, "a list without entry is failure 5");
}

void CheckNetscape3Reader(std::string_view text) {
    const std::string by_comma = ReadNetscape3(text, ",");
    const std::string by_cr = ReadNetscape3(text, "\r");
    Check(by_comma.size() == by_cr.size(), "only the separators differ");
    CheckList(by_comma, ",");
    CheckList(by_cr, "\r");
}

void CheckJunoReader(std::string_view text) {
    const std::string list = ReadJuno(text);
    Check(CountOf(text, "\r\nEmail:") >= CountOf(list, ">\r\n"), "an entry has its key");
    CheckList(list, "\r");
}

void CheckCsvReader(std::string_view text) {
    const auto native = CsvToNative(text);
    Check(!native || !Contains(*native, ","), "a value has no comma");
}

void CheckWordPerfectReader(std::string_view text) {
    const auto native = WordPerfectToNative(text);
    Check(!native || !(Contains(*native, ",") || Contains(*native, "\"")),
          "a value has no comma and no quote");
}

void CheckPegasusFilter(std::string_view text) {
    const std::string list = FilterPegasus(text);
    Check(list.size() <= text.size(), "a filter adds nothing");
    // Behind a comment that a lone CR ends, a backslash begins no line.
    Check(CountOf(text, "\r") > CountOf(text, kCrLf) || !Contains(list, "\r\n\\"),
          "no comment is left");
    CheckList(list, "\r");
}

void CheckAliasFilter(std::string_view text) {
    const std::string list = FilterAliases(text);
    Check(list.size() <= text.size(), "an entry is shorter than its alias line");
    CheckList(list, "\r");
}

void CheckNetscape3Writer(std::string_view text) {
    std::string book;
    const int failure = FailureOf([&] { book = WriteNetscape3(text); });
    if (failure != 0) {
        Check(failure == 5, "a lone line feed is failure 5");
        return;
    }
    Check(book.ends_with("\r\n</DL><p>"), "a book has its end");
    const auto merged = MergeNetscape3(text, book);
    Check(!merged || merged->size() > book.size() - kNetscape3HeaderLength,
          "the new book is in the merged one");
    const auto twice = MergeNetscape3(book, book);
    Check(!Contains(book, "<DD>") || (twice && twice->size() > book.size()),
          "a book can be added to itself");
    CheckNetscape3Reader(book);
}

void CheckJunoWriter(std::string_view text) {
    for (const std::string_view separator : {"\r", ","}) {
        CheckedProgress progress;
        const std::string book = WriteJuno(text, separator, progress);
        Check(progress.LastPercent() == 100, "the walk comes to its end");
        Check(book.starts_with(kCrLf), "a book begins with a line break");
        if (separator == "\r") {
            Check(CountOf(book, "\r\nEmail:") == progress.Records(), "a record has one address");
        }
        CheckJunoReader(book);
    }
}

void CheckPimExport(std::string_view text) {
    std::size_t reached = 0;
    const std::string lines = ExportPim(text, "|", [&](std::size_t position) {
        Check(position > reached && position <= text.size(), "the walk goes on");
        reached = position;
    });
    // Each separator stands for a line break and what is before its colon.
    Check(lines.size() <= text.size(), "an export is no longer than its book");
}

void CheckUnread(const Unread& unread, std::string_view text) {
    Check(unread.Entries <= unread.Attributes, "each entry has an attribute");
    Check(unread.Attributes <= text.size(), "each attribute is written somewhere");
}

void CheckNote(std::string_view text) {
    for (const Format format : {Format::Netscape3,
                                Format::Netscape4,
                                Format::TextList,
                                Format::Csv,
                                Format::WordPerfect,
                                Format::Juno,
                                Format::Pegasus,
                                Format::AnyFile}) {
        CheckUnread(CountUnread(format, text), text);
    }
    CheckUnread(CountUnreadOfAliases(text), text);
    Check(PlainlySomethingElse(text).empty() || text.size() > 2,
          "a kind of file shows in its bytes");
}

constexpr std::array kTargets = {
    &CheckNetscape3Reader,
    &CheckJunoReader,
    &CheckCsvReader,
    &CheckWordPerfectReader,
    &CheckPegasusFilter,
    &CheckAliasFilter,
    &CheckNetscape3Writer,
    &CheckJunoWriter,
    &CheckPimExport,
};

}  // namespace
}  // namespace orvik::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orvik::fuzz;
    if (size > 0) {
        const std::string_view text = TextOf(data + 1, size - 1);
        kTargets[data[0] % kTargets.size()](text);
        CheckNote(text);
    }
    return 0;
}
