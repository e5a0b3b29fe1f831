// Reads cards, gives each contact one more nickname, and writes them, so that each is written anew:
//
//   orvik-book-touch 3|4 FILE
//
// A file that holds no card gives an empty one.

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "book/write_vcard.h"
#include "unit/book/shown_book.h"

int main(int argc, char** argv) {
    using namespace orvik::book;
    if (argc != 3) {
        return 2;
    }
    std::ifstream file(argv[2], std::ios::binary);
    test::ReadBook read(ReadVCard, {std::istreambuf_iterator<char>(file), {}});
    for (Contact& contact : read.book.Contacts) {
        read.book.Add(contact, field::kNickname, "touched");
    }
    const bool newer = std::string(argv[1]) == "4";
    std::cout << WriteVCard(read.book, newer ? Dialect::VCard40 : Dialect::VCard30) << std::flush;
    return std::cout ? 0 : 1;
}
