// Reads a book and writes it as the CSV of a program, with what was told about it behind:
//
//   orvik-book-csv thunderbird|google|outlook|outlook-new FILE
//
// The ending of the file says what it is: .ldif, .vcf, or CSV for any other.

#include <fstream>
#include <iostream>
#include <iterator>
#include <new>
#include <string>

#include "book/read_csv.h"
#include "book/write_csv.h"
#include "unit/book/shown_book.h"

namespace {

void ReadTable(orvik::book::Book& book, std::uint32_t file, orvik::book::Charset& charset) {
    ReadCsv(book, file, charset, {});
}

int Run(const std::string& program, const std::string& name) {
    using namespace orvik::book;
    std::ifstream file(name, std::ios::binary);
    const auto reader = name.ends_with(".ldif")  ? ReadLdif
                        : name.ends_with(".vcf") ? ReadVCard
                                                 : ReadTable;
    test::ReadBook read(reader, {std::istreambuf_iterator<char>(file), {}});
    std::cout << WriteCsv(read.book,
                          program == "google"        ? CsvProgram::Google
                          : program == "outlook"     ? CsvProgram::Outlook
                          : program == "outlook-new" ? CsvProgram::OutlookNew
                                                     : CsvProgram::Thunderbird)
              << std::flush;
    std::cerr << test::Told(read.book) << "kept " << read.book.Told.Count(What::Kept) << "\n";
    return std::cout ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return argc == 3 ? Run(argv[1], argv[2]) : 2;
    } catch (const std::bad_alloc&) {
        std::cerr << "orvik-book-csv: Out of memory\n";
        constexpr int kNoMemory = 71;
        return kNoMemory;
    }
}
