#include "book/charset_converter.h"

#include <algorithm>
#include <array>
#include <utility>

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>
#include <unicode/ucnv_err.h>

namespace orvik::book {
namespace {

using Converter = std::unique_ptr<UConverter, void (*)(UConverter*)>;

Converter OpenConverter(const char* name) {
    UErrorCode error = U_ZERO_ERROR;
    return {ucnv_open(name, &error), ucnv_close};
}

// U+FFFD for each piece that is no letter, and a count of them.
void U_CALLCONV CountBad(const void* count,
                         UConverterToUnicodeArgs* arguments,
                         const char* /*bytes*/,
                         int32_t /*length*/,
                         UConverterCallbackReason reason,
                         UErrorCode* error) {
    if (reason > UCNV_IRREGULAR) {
        return;
    }
    *error = U_ZERO_ERROR;
    ++*static_cast<std::size_t*>(const_cast<void*>(count));
    constexpr UChar kReplacement = 0xFFFD;
    ucnv_cbToUWriteUChars(arguments, &kReplacement, 1, 0, error);
}

// Sets whose plain letters would be read as something else.
constexpr std::array kRefused = {
    UCNV_UTF7, UCNV_IMAP_MAILBOX, UCNV_HZ, UCNV_SCSU, UCNV_BOCU1, UCNV_CESU8};

// Each byte of plain text is itself, but in wide sets, which are read all the same.
bool IsWideType(UConverterType type) {
    return (type >= UCNV_UTF16_BigEndian && type <= UCNV_UTF32_LittleEndian) ||
           type == UCNV_UTF16 || type == UCNV_UTF32;
}

bool IsUsable(UConverter* converter) {
    const UConverterType type = ucnv_getType(converter);
    if (std::find(kRefused.begin(), kRefused.end(), type) != kRefused.end()) {
        return false;
    }
    if (IsWideType(type)) {
        return true;
    }
    std::array<UChar, 8> letters{};
    constexpr std::string_view kPlain = "aZ09:;@.";
    UErrorCode error = U_ZERO_ERROR;
    const int32_t count = ucnv_toUChars(converter,
                                        letters.data(),
                                        letters.size(),
                                        kPlain.data(),
                                        static_cast<int32_t>(kPlain.size()),
                                        &error);
    ucnv_reset(converter);
    return U_SUCCESS(error) != 0 && count == static_cast<int32_t>(kPlain.size()) &&
           std::equal(kPlain.begin(), kPlain.end(), letters.begin());
}

std::string ShownName(UConverter* converter, std::string_view asked) {
    UErrorCode error = U_ZERO_ERROR;
    const char* const own = ucnv_getName(converter, &error);
    for (const char* const standard : {"MIME", "IANA"}) {
        UErrorCode ignored = U_ZERO_ERROR;
        const char* const name = ucnv_getStandardName(own, standard, &ignored);
        if (U_SUCCESS(ignored) != 0 && name != nullptr) {
            return name;
        }
    }
    return std::string(asked);
}

}  // namespace

struct CharsetConverter::Open {
    std::unique_ptr<UConverter, void (*)(UConverter*)> From;
    std::unique_ptr<UConverter, void (*)(UConverter*)> To;
    std::size_t Bad = 0;
};

CharsetConverter::CharsetConverter(std::unique_ptr<Open> open, std::string name)
    : open_(std::move(open)), name_(std::move(name)) {}
CharsetConverter::CharsetConverter(CharsetConverter&&) noexcept = default;
CharsetConverter& CharsetConverter::operator=(CharsetConverter&&) noexcept = default;
CharsetConverter::~CharsetConverter() = default;

std::optional<CharsetConverter> CharsetConverter::Named(std::string_view name) {
    // A name that holds options or a NUL would open another set.
    constexpr std::size_t kLongestName = 60;
    constexpr std::string_view kOtherLetters{",=\0", 3};
    if (name.empty() || name.size() > kLongestName ||
        name.find_first_of(kOtherLetters) != std::string_view::npos) {
        return std::nullopt;
    }
    auto open = std::make_unique<Open>(
        Open{OpenConverter(std::string(name).c_str()), OpenConverter("UTF-8")});
    if (!open->From || !open->To || !IsUsable(open->From.get())) {
        return std::nullopt;
    }
    UErrorCode error = U_ZERO_ERROR;
    ucnv_setToUCallBack(open->From.get(), CountBad, &open->Bad, nullptr, nullptr, &error);
    if (U_FAILURE(error) != 0) {
        return std::nullopt;
    }
    std::string shown = ShownName(open->From.get(), name);
    return CharsetConverter(std::move(open), std::move(shown));
}

bool CharsetConverter::IsWide() const {
    return IsWideType(ucnv_getType(open_->From.get()));
}

std::size_t CharsetConverter::Append(std::string_view bytes, std::string& text) {
    open_->Bad = 0;
    std::array<char, 4096> piece;   // NOLINT: filled before it is read
    std::array<UChar, 2048> pivot;  // NOLINT
    UChar* pivot_from = pivot.data();
    UChar* pivot_to = pivot.data();
    const char* from = bytes.data();
    const char* const end = from + bytes.size();
    for (UBool reset = 1;; reset = 0) {
        char* to = piece.data();
        UErrorCode error = U_ZERO_ERROR;
        ucnv_convertEx(open_->To.get(),
                       open_->From.get(),
                       &to,
                       to + piece.size(),
                       &from,
                       end,
                       pivot.data(),
                       &pivot_from,
                       &pivot_to,
                       pivot.data() + pivot.size(),
                       reset,
                       1,
                       &error);
        text.append(piece.data(), static_cast<std::size_t>(to - piece.data()));
        if (error != U_BUFFER_OVERFLOW_ERROR) {
            return open_->Bad;
        }
    }
}

}  // namespace orvik::book
