#include "desktop/windows/changed_entry.h"

#include <QObject>

#include "desktop/text/text_codec.h"
#include "listops/change_entries.h"

namespace orvik {
namespace {

QString NoLineBreak() {
    return QObject::tr("An entry has no line break in it.");
}

// One half of an entry, as it was and as it is to be.
struct Half {
    std::string_view Before;
    const QString& Letters;

    [[nodiscard]] bool IsChanged() const { return Letters != ToLetters(Before); }
    [[nodiscard]] bool Fits(Encoding encoding) const {
        return !IsChanged() || CanEncode(Letters, encoding);
    }
    [[nodiscard]] std::string BytesIn(Encoding encoding) const {
        return IsChanged() ? ToBytes(Letters, encoding) : std::string(Before);
    }
};

}  // namespace

ChangedEntry ToEntry(const QString& address,
                     const QString& nickname,
                     std::string_view address_before,
                     std::string_view nickname_before,
                     std::string_view working_text) {
    const Half first{address_before, address};
    const Half second{nickname_before, nickname};
    Encoding encoding = EncodingOf(working_text);
    ChangedEntry entry;
    if (first.Fits(encoding) && second.Fits(encoding)) {
        entry = {first.BytesIn(encoding), second.BytesIn(encoding), {}};
    } else {
        const QString whole = ToLetters(working_text, encoding);
        encoding = Encoding::Utf8;
        entry = {ToBytes(address, encoding), ToBytes(nickname, encoding), ToBytes(whole, encoding)};
    }
    entry.HasBoxLetter =
        encoding == Encoding::Utf8 && EncodingOf(entry.Address + entry.Nickname) != Encoding::Utf8;
    return entry;
}

QString WhyNotKept(const ChangedEntry& entry, std::string_view separator) {
    if (entry.HasBoxLetter) {
        return NoLineBreak();
    }
    switch (FaultOf(entry.Address, entry.Nickname, separator)) {
        case EntryFault::LineBreak:
            return NoLineBreak();
        case EntryFault::Quote:
            return QObject::tr("An entry has no double quote in it.");
        case EntryFault::AngleBracket:
            return QObject::tr("An address has neither < nor > in it.");
        case EntryFault::Separator:
            return QObject::tr("An address does not have in it what separates the entries.");
        case EntryFault::MiddleInAddress:
            return QObject::tr("An address does not have -nick- in it.");
        case EntryFault::MiddleAsNickname:
            return QObject::tr("No nickname can be -nick-.");
        case EntryFault::None:
            break;
    }
    return {};
}

}  // namespace orvik
