#include "book_cli/inputs.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

#include "app/printable.h"
#include "app/run_time_error.h"
#include "book/charset.h"
#include "book/charset_converter.h"
#include "book/charset_guess.h"
#include "book/old/old_formats.h"
#include "book/old/read_abx.h"
#include "book/read_csv.h"
#include "book/read_ldif.h"
#include "book/read_vcard.h"
#include "book/source.h"
#include "book_cli/book_arguments.h"

namespace orvik::book_cli {
namespace {

using cli::ExitStatus;

class Loader {
 public:
    Loader(Console& console,
           const std::string& charset,
           Loaded& loaded,
           std::span<const book::CsvMapping> columns)
        : console_(console), charset_(charset), loaded_(loaded), columns_(columns) {}

    void Load(const std::string& name) {
        console_.Begin(name);
        if (std::optional<std::string> bytes = Bytes(name)) {
            Detect(std::make_unique<book::Source>(name, std::move(*bytes)));
        }
        console_.End();
    }

    void Load(const std::string& name, std::string bytes, book::Format form) {
        console_.Begin(name);
        auto source = std::make_unique<book::Source>(name, std::move(bytes));
        if (form == book::Format::None) {
            Detect(std::move(source));
        } else {
            Take(std::move(source), {form, "known beforehand"});
        }
        console_.End();
    }

    std::optional<std::string> Bytes(const std::string& name) {
        std::optional<std::string> bytes;
        TrapFailure([&] { bytes = name == kStandardStream ? ReadStream() : ReadFile(name); },
                    [&](const RunTimeError& failure) { Fail(failure); });
        return bytes;
    }

 private:
    std::optional<std::string> ReadStream() {
        std::string bytes;
        const std::error_code error = console_.ReadInput(book::kLongestSource, bytes);
        if (error == std::errc::bad_file_descriptor) {
            Fail("Standard input is closed", ExitStatus::NoInput);
            return std::nullopt;
        }
        CheckFile(console_.Files(), error, ".");
        return IsShortEnough(bytes.size()) ? std::optional(std::move(bytes)) : std::nullopt;
    }

    std::optional<std::string> ReadFile(const std::string& name) {
        switch (StatusOf(console_.Files(), name).Kind) {
            case FileKind::Folder:
                Fail("This is a folder, no address book", ExitStatus::NoInput);
                return std::nullopt;
            case FileKind::CharacterDevice:
                Fail("This is a device, no address book", ExitStatus::NoInput);
                return std::nullopt;
            case FileKind::Other:
                Fail("This is a pipe or another thing without an end; - reads standard input",
                     ExitStatus::NoInput);
                return std::nullopt;
            default:
                break;
        }
        FileSlot& slot = console_.Slot();
        slot.OpenForInput(name);
        if (!IsShortEnough(slot.Length())) {
            return std::nullopt;
        }
        std::string bytes = slot.Read(slot.Length());
        slot.Close();
        return bytes;
    }

    bool IsShortEnough(std::size_t length) {
        if (length > book::kLongestSource) {
            Fail("The file has 4 GiB or more", ExitStatus::NoInput);
            return false;
        }
        return true;
    }

    void Detect(std::unique_ptr<book::Source> source) {
        book::Detected found = book::Detect(*source);
        if (found.Form == book::Format::None) {
            Fail("this is " + found.Evidence +
                     (found.Advice.empty() ? ", no address book" : ": " + found.Advice),
                 ExitStatus::NoBook);
            return;
        }
        Take(std::move(source), std::move(found));
    }

    void Take(std::unique_ptr<book::Source> source, book::Detected found) {
        const std::size_t bad = source->BadLetters();
        const std::uint32_t file = loaded_.Book.AddSource(std::move(source));
        book::Charset letters(loaded_.Book.SourceAt(file), AskedFor(loaded_.Book.SourceAt(file)));
        loaded_.Book.HowFar = console_.ProgressOf("reading");
        const book::CsvFound table = Read(found.Form, file, letters);
        loaded_.Book.HowFar = nullptr;
        if (bad > 0) {
            Doubt(file, std::to_string(bad), book::Reason::NoLetter);
        }
        const std::string twice = book::WordsEncodedTwice(loaded_.Book.SourceAt(file).Text());
        if (!twice.empty()) {
            Doubt(file, twice, book::Reason::EncodedTwice);
        }
        loaded_.Inputs.push_back({found.Form,
                                  std::move(found.Evidence),
                                  letters.Sentence(NounOf(found.Form)),
                                  letters.IsDoubtful(),
                                  table.Program,
                                  table.Sentence});
    }

    // The set for what is not UTF-8. Lines of a plain file, read in letters of 16 bits, would
    // become other letters without a doubt.
    std::string_view AskedFor(const book::Source& source) {
        const auto asked = book::CharsetConverter::Named(charset_);
        if (!asked || !asked->IsWide() || source.Wide() != book::WideForm::None) {
            return charset_;
        }
        console_.Tell("--charset: the file is not in " + asked->Name());
        return {};
    }

    static std::string_view NounOf(book::Format form) {
        const book::OldFormat* const old = book::OldFormatOf(form);
        return old != nullptr                ? old->Noun
               : form == book::Format::Ldif  ? "record"
               : form == book::Format::VCard ? "card"
                                             : "row";
    }

    book::CsvFound Read(book::Format form, std::uint32_t file, book::Charset& letters) {
        if (form == book::Format::Csv || form == book::Format::WordPerfect) {
            const auto read = form == book::Format::Csv ? book::ReadCsv : book::ReadAbx;
            book::CsvFound found = read(loaded_.Book, file, letters, columns_);
            for (const std::string& header : found.NotThere) {
                console_.Tell("--map: there is no column " + Printable(header));
            }
            return found;
        }
        const book::OldFormat* const old = book::OldFormatOf(form);
        (old != nullptr               ? old->Read
         : form == book::Format::Ldif ? book::ReadLdif
                                      : book::ReadVCard)(loaded_.Book, file, letters);
        return {};
    }

    // Tells something of a file as a whole.
    void Doubt(std::uint32_t file, const std::string& value, book::Reason reason) {
        book::Book& book = loaded_.Book;
        book.Told.Add(
            {{}, book.Keep(value), file, 1, book::FieldNames::kNone, book::What::Doubtful, reason});
    }

    void Fail(const RunTimeError& failure) {
        PassLackOfMemory(failure);
        Fail(cli::WithDetail(failure.what(), failure.Detail()),
             cli::StatusOf(failure.Cause(), false));
    }

    void Fail(const std::string& text, ExitStatus status) {
        console_.Tell(text);
        if (loaded_.Status == ExitStatus::Done) {
            loaded_.Status = status;
        }
    }

    Console& console_;
    const std::string& charset_;
    Loaded& loaded_;
    std::span<const book::CsvMapping> columns_;
};

// The same file under another name would give each contact twice; of many files the first are
// looked at.
void TellOfTwin(Console& console, std::span<const std::string> before, const std::string& name) {
    constexpr std::size_t kMostCompared = 64;
    const auto some = before.first(std::min(before.size(), kMostCompared));
    const auto twin = std::find_if(some.begin(), some.end(), [&](const std::string& one) {
        return console.Files().IsSame(one, name);
    });
    if (twin != some.end()) {
        console.Begin(name);
        console.Tell("This is the same file as " + Printable(*twin) + ", and is read again");
        console.End();
    }
}

}  // namespace

std::vector<book::Format> Loaded::Formats() const {
    std::vector<book::Format> formats;
    formats.reserve(Inputs.size());
    for (const Input& one : Inputs) {
        formats.push_back(one.Form);
    }
    return formats;
}

std::optional<std::string> ReadBytes(Console& console,
                                     const std::string& name,
                                     ExitStatus& status) {
    Loaded nothing;
    const std::string no_charset;
    Loader loader(console, no_charset, nothing, {});
    console.Begin(name);
    std::optional<std::string> bytes = loader.Bytes(name);
    console.End();
    status = nothing.Status;
    return bytes;
}

void LoadBytes(Console& console,
               const std::string& name,
               std::string bytes,
               Loaded& loaded,
               book::Format form) {
    const std::string no_charset;
    Loader(console, no_charset, loaded, {}).Load(name, std::move(bytes), form);
}

void Load(Console& console,
          std::span<const std::string> names,
          const std::string& charset,
          Loaded& loaded,
          std::span<const book::CsvMapping> columns) {
    Loader loader(console, charset, loaded, columns);
    std::vector<std::string> before;
    for (std::size_t i = 0; i < loaded.Book.SourceCount(); ++i) {
        before.push_back(loaded.Book.SourceAt(static_cast<std::uint32_t>(i)).Name());
    }
    for (const std::string& name : names) {
        TellOfTwin(console, before, name);
        loader.Load(name);
        before.push_back(name);
    }
}

}  // namespace orvik::book_cli
