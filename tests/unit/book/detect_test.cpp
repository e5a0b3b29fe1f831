#include "book/detect.h"

#include <string>

#include <gtest/gtest.h>

namespace orvik::book {
namespace {

using namespace std::string_literals;

TEST(Detect, ContentDecidesAndSaysWhy) {
    const struct {
        std::string Bytes;
        Format Expected;
        std::string Evidence;
    } rows[] = {
        {"BEGIN:VCARD\r\nVERSION:3.0\r\nEND:VCARD\r\n", Format::VCard, "line 1 begins a card"},
        {"\xEF\xBB\xBF"
         "begin:vCard\n",
         Format::VCard,
         "line 1 begins a card"},
        {"junk\n\nBEGIN: VCARD \nEND:VCARD", Format::VCard, "line 3 begins a card"},
        {"\xFF\xFE"
         "B\0E\0G\0I\0N\0:\0V\0C\0A\0R\0D\0\n\0"s,
         Format::VCard,
         "line 1 begins a card"},
        {"dn: cn=Al\ncn: Al\n", Format::Ldif, "line 1 begins a record"},
        {"dn: 2.5.4.3=Al\n2.5.4.3: Al\n", Format::Ldif, "line 1 begins a record"},
        {"To: x\n\nDN:: YQ==\rObjectClass: top\r", Format::Ldif, "line 3 begins a record"},
        {"version: 1\n", Format::Ldif, "line 1 has the version of LDIF"},
        {"version: 1\n\n# ours\n  it is\nobjectclass: top\n",
         Format::Ldif,
         "line 1 has the version of LDIF"},
        {"version: 1\ndn:: YQ==\n", Format::Ldif, "line 1 has the version of LDIF"},
        {"version: 1\nservices:\n  cn: Al\n", Format::None, "a text"},
        {"version: 1\nx\n\ndn: cn=Al\ncn: Al\n", Format::Ldif, "line 4 begins a record"},
        {"version: 2\n", Format::None, "a text"},
        {"dn: what\nis this\n", Format::None, "a text"},
        {"dn: x\n\ncn: Al\n", Format::None, "a text"},
        {"First Name;Last Name;E-mail Address\nAda;Abbott;\n", Format::Csv, "line 1 names columns"},
        {"Name,Mail\nAda,ada@example.org\n", Format::Csv, "line 1 names columns"},
        {"E-mail\nada@example.org\n", Format::Csv, "line 1 names columns"},
        {"sep=|\nfoo|bar\n", Format::Csv, "line 1 names the separator"},
        {"Ada,ada@example.org\nBen,ben@example.org\n",
         Format::Csv,
         "line 1 begins rows with addresses"},
        {"Ada,ada@example.org\n", Format::None, "a text"},
        {"ada@example.org,ben@example.org\ncy@example.org,di@example.org\n",
         Format::PlainList,
         "line 1 begins a list of addresses"},
        {"Dear Ada,\nplease write to me, ada@example.org, soon\nYours,\nBen\n",
         Format::None,
         "a text"},
        {"a,b,c\n1,2,3\n", Format::None, "a text"},
        {"Name\nAda\n", Format::None, "a text"},
        {"Name,Mail\nBEGIN:VCARD\n", Format::VCard, "line 2 begins a card"},
        {"", Format::None, "an empty file"},
        {"\x89PNG\r\n\x1A\nBEGIN:VCARD\n", Format::None, "a PNG image"},
        {"\xFF\xD8\xFF\xE0", Format::None, "a JPEG image"},
        {"%PDF-1.4", Format::None, "a PDF document"},
        {"PK\x03\x04...", Format::None, "a ZIP archive"},
        {"\x7F"
         "ELF\2\1",
         Format::None,
         "a program"},
        {" <!doctype html>", Format::None, "an HTML or XML page"},
        {"<html>", Format::None, "an HTML page"},
        {"BEGIN:VCALENDAR", Format::None, "a calendar"},
        {std::string(500, '\1'), Format::None, "a binary file"},
        {"MZ\x90\0\3\0\0\0"s, Format::None, "a Windows program"},
        {"BMW\nBEGIN:VCARD\n", Format::VCard, "line 2 begins a card"},
        {std::string(257, 'x') + "ustar", Format::None, "a tar archive"},
    };
    for (const auto& row : rows) {
        const Source source("file", row.Bytes);
        const Detected detected = Detect(source);
        EXPECT_EQ(detected.Form, row.Expected) << testing::PrintToString(row.Bytes);
        EXPECT_EQ(detected.Evidence, row.Evidence) << testing::PrintToString(row.Bytes);
    }
}

}  // namespace
}  // namespace orvik::book
