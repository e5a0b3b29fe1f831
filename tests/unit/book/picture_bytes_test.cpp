#include "book/picture_bytes.h"

#include <string>

#include <gtest/gtest.h>

#include "unit/book/shown_book.h"

namespace orvik::book {
namespace {

using namespace std::string_literals;
using test::ReadBook;

std::string EmbeddedIn(const std::string& line) {
    const ReadBook read(ReadVCard,
                        "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Al\r\n" + line + "\r\nEND:VCARD\r\n");
    const auto found = EmbeddedBase64(read.book, read.book.Contacts.front().Properties.back());
    return found ? std::string(*found) : "none";
}

TEST(PictureBytesTest, OnlyWhatStandsInTheRecord) {
    EXPECT_EQ(EmbeddedIn("PHOTO;ENCODING=b;TYPE=JPEG:/9j/"), "/9j/");
    EXPECT_EQ(EmbeddedIn("PHOTO:data:image/png;base64,iVBO"), "iVBO");
    EXPECT_EQ(EmbeddedIn("PHOTO;VALUE=uri:https://example.org/al.png"), "none");
    EXPECT_EQ(EmbeddedIn("PHOTO;VALUE=uri:file:///etc/hostname"), "none");
    EXPECT_EQ(EmbeddedIn("NOTE:/9j/"), "none");
    EXPECT_EQ(BytesOfBase64("QWRh"), 3U);
    EXPECT_EQ(BytesOfBase64(""), 0U);
}

TEST(PictureBytesTest, FirstBytesTellTheForm) {
    EXPECT_EQ(PictureFormOf("\x89PNG\r\n\x1A\n..."), PictureForm::Png);
    EXPECT_EQ(PictureFormOf("\xFF\xD8\xFF\xE0"), PictureForm::Jpeg);
    EXPECT_EQ(PictureFormOf("GIF89a"), PictureForm::Gif);
    EXPECT_EQ(PictureFormOf("BM...."), PictureForm::Bmp);
    // These may name other files.
    EXPECT_EQ(PictureFormOf("<svg xmlns=\"http://www.w3.org/2000/svg\"/>"), PictureForm::Unknown);
    EXPECT_EQ(PictureFormOf(""), PictureForm::Unknown);
}

std::string Piece(const std::string& name, const std::string& data) {
    return std::string("\0\0\0", 3) + static_cast<char>(data.size()) + name + data + "SUM.";
}

TEST(PictureBytesTest, OfAPngOnlyWhatIsDrawnStays) {
    const std::string start = "\x89PNG\r\n\x1A\n";
    const std::string size = Piece("IHDR", "1234567890123");
    const std::string pixels = Piece("IDAT", "xyz");
    const std::string end = Piece("IEND", "");
    EXPECT_EQ(PngToDraw(start + size + Piece("zTXt", "bomb") + pixels + Piece("iCCP", "p") + end),
              start + size + pixels + end);
    // Cut off inside of a piece.
    const std::string cut = pixels.substr(0, pixels.size() - 2);
    EXPECT_EQ(PngToDraw(start + size + "\xFF\xFF\xFF\xFFIDAT0123"s),
              start + size + "\xFF\xFF\xFF\xFFIDAT0123"s);
    EXPECT_EQ(PngToDraw(start + size + cut), start + size + cut);
    EXPECT_EQ(PngToDraw(start + size + "\xFF\xFF\xFF\xFFzTXt0123"s), start + size);
    EXPECT_EQ(PngToDraw(""), "");
}

TEST(PictureBytesTest, ScansOfAJpeg) {
    EXPECT_EQ(JpegScans(""), 0U);
    EXPECT_EQ(JpegScans("\xFF\xD8\xFF\xDA..\xFF\xD9"), 1U);
    EXPECT_EQ(JpegScans("\xFF\xDA\xFF\x00\xDA\xFF\xDA"s), 2U);
}

}  // namespace
}  // namespace orvik::book
