// Text on its way between the text boxes, the system clipboard and other programs.

#pragma once

#include <QString>
#include <QStringView>
#include <optional>
#include <string>
#include <string_view>

#include "desktop/text/text_codec.h"

class QMimeData;

namespace orvik {

// MimeFromBoxText: a box text for other programs, with CR LF for a paragraph break. Orvik's own
// boxes get it as it is, so a lone CR or LF survives. The caller owns the result.
[[nodiscard]] QMimeData* MimeFromBoxText(QStringView box_text);

// BoxTextFromMime: the text that another program or an own box offers. Another program's lone LF
// and paragraph separator are paragraph breaks.
//   "a\nb" -> "a" U+2029 "b"
[[nodiscard]] QString BoxTextFromMime(const QMimeData& data);

// The system clipboard. The bytes are those of a text in this encoding; letters that it lacks make
// them UTF-8.
[[nodiscard]] std::string ClipboardBytes(Encoding encoding);
// Without an encoding it is the one that EncodingOf finds. The letters are made when they are asked
// for.
void SetClipboardBytes(std::string_view bytes, std::optional<Encoding> encoding);
[[nodiscard]] QString ClipboardBoxText();

}  // namespace orvik
