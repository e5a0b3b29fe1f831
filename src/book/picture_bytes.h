// Bytes that stand in a record itself: pictures, sounds, keys. What a value only names is not
// looked for.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "book/address_book.h"

namespace orvik::book {

// EmbeddedBase64: the base64 of a value that is bytes; nothing for any other value.
//   PHOTO;ENCODING=b:/9j/ -> "/9j/";  PHOTO:data:image/png;base64,iVBO -> "iVBO"
//   PHOTO;VALUE=uri:https://... -> nothing
[[nodiscard]] std::optional<std::string_view> EmbeddedBase64(const Book& book, const Property& one);
// About how many bytes base64 stands for.
[[nodiscard]] std::size_t BytesOfBase64(std::string_view base64);

// How a picture is packed, by its first bytes.
enum class PictureForm : std::uint8_t { Unknown, Png, Jpeg, Gif, Bmp };
[[nodiscard]] PictureForm PictureFormOf(std::string_view bytes);

// PngToDraw: a PNG without all that is not drawn: a few bytes of text may stand for gigabytes.
[[nodiscard]] std::string PngToDraw(std::string_view png);
// JpegScans: how often all of a JPEG is drawn, each time finer: a small file may ask for millions.
[[nodiscard]] std::size_t JpegScans(std::string_view jpeg);

}  // namespace orvik::book
