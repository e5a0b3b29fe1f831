#include "book/picture_bytes.h"

#include <algorithm>
#include <array>

#include "book/typed_views.h"
#include "book/vcard_fields.h"

namespace orvik::book {
namespace {

constexpr std::string_view kPngStart = "\x89PNG\r\n\x1A\n";

std::size_t BigEndianAt(std::string_view bytes, std::size_t at) {
    constexpr std::size_t kLength = 4;
    constexpr unsigned kBits = 8;
    std::size_t number = 0;
    for (const char c : bytes.substr(at, kLength)) {
        number = (number << kBits) | static_cast<unsigned char>(c);
    }
    return number;
}

}  // namespace

std::optional<std::string_view> EmbeddedBase64(const Book& book, const Property& one) {
    const std::string_view encoding = ParamOf(book, one, field::kEncoding);
    if (SameName(encoding, "b") || SameName(encoding, "base64")) {
        return one.Value;
    }
    if (const auto uri = SplitDataUri(one.Value)) {
        return uri->Base64;
    }
    return std::nullopt;
}

std::size_t BytesOfBase64(std::string_view base64) {
    constexpr std::size_t kDigits = 4;
    constexpr std::size_t kBytes = 3;
    return base64.size() / kDigits * kBytes;
}

PictureForm PictureFormOf(std::string_view bytes) {
    if (bytes.starts_with(kPngStart)) {
        return PictureForm::Png;
    }
    if (bytes.starts_with("\xFF\xD8\xFF")) {
        return PictureForm::Jpeg;
    }
    if (bytes.starts_with("GIF8")) {
        return PictureForm::Gif;
    }
    return bytes.starts_with("BM") ? PictureForm::Bmp : PictureForm::Unknown;
}

std::string PngToDraw(std::string_view png) {
    constexpr std::size_t kAround = 12;  // length, name and check sum of a piece
    constexpr std::array<std::string_view, 5> kDrawn = {"IHDR", "PLTE", "tRNS", "IDAT", "IEND"};
    std::string drawn(png.substr(0, kPngStart.size()));
    std::string_view rest = png.substr(drawn.size());
    while (rest.size() >= kAround) {
        // The last piece may be cut off: what is there of it is drawn.
        const std::size_t length = std::min(BigEndianAt(rest, 0), rest.size() - kAround);
        const std::string_view name = rest.substr(4, 4);
        if (std::find(kDrawn.begin(), kDrawn.end(), name) != kDrawn.end()) {
            drawn += rest.substr(0, length + kAround);
        }
        rest.remove_prefix(length + kAround);
    }
    return drawn;
}

std::size_t JpegScans(std::string_view jpeg) {
    constexpr std::string_view kStart = "\xFF\xDA";
    std::size_t scans = 0;
    for (std::size_t at = jpeg.find(kStart); at != std::string_view::npos;
         at = jpeg.find(kStart, at + kStart.size())) {
        ++scans;
    }
    return scans;
}

}  // namespace orvik::book
