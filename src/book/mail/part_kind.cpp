#include "book/mail/part_kind.h"

#include <array>

#include "app/text.h"
#include "book/field_names.h"

namespace orvik::book {
namespace {

struct TypeRow {
    std::string_view Type;
    std::string_view Subtype;  // empty for all others
    PartKind Kind;
};
constexpr std::array kTypes = {TypeRow{"text", "html", PartKind::Html},
                               TypeRow{"text", "calendar", PartKind::Folded},
                               TypeRow{"text", "vcard", PartKind::Folded},
                               TypeRow{"text", "x-vcard", PartKind::Folded},
                               TypeRow{"text", "directory", PartKind::Folded},
                               TypeRow{"text", "rfc822-headers", PartKind::Header},
                               TypeRow{"text", "", PartKind::Text},
                               TypeRow{"message", "global-headers", PartKind::Header},
                               TypeRow{"message", "rfc822", PartKind::Message},
                               TypeRow{"message", "global", PartKind::Message},
                               TypeRow{"message", "news", PartKind::Message},
                               TypeRow{"message", "", PartKind::Text},
                               TypeRow{"application", "xhtml+xml", PartKind::Html},
                               TypeRow{"application", "pgp-encrypted", PartKind::Encrypted},
                               TypeRow{"application", "pkcs7-mime", PartKind::Encrypted},
                               TypeRow{"application", "x-pkcs7-mime", PartKind::Encrypted}};

struct EndingRow {
    std::string_view Ending;
    PartKind Kind;
};
constexpr std::array kEndings = {EndingRow{".eml", PartKind::Message},
                                 EndingRow{".txt", PartKind::Text},
                                 EndingRow{".csv", PartKind::Text},
                                 EndingRow{".ldif", PartKind::Text},
                                 EndingRow{".htm", PartKind::Html},
                                 EndingRow{".html", PartKind::Html},
                                 EndingRow{".vcf", PartKind::Folded},
                                 EndingRow{".ics", PartKind::Folded}};

}  // namespace

PartKind KindOfPart(std::string_view type,
                    std::string_view subtype,
                    const std::function<std::string_view()>& file) {
    for (const TypeRow& row : kTypes) {
        if (SameName(row.Type, type) && (row.Subtype.empty() || SameName(row.Subtype, subtype))) {
            return row.Kind;
        }
    }
    if (SameName(type, "application") && SameName(subtype, "octet-stream")) {
        const std::string_view name = file();
        for (const EndingRow& row : kEndings) {
            if (HasEnding(name, row.Ending)) {
                return row.Kind;
            }
        }
    }
    return PartKind::Other;
}

bool MayHoldAddress(std::string_view bytes, PartKind kind) {
    const auto has = [bytes](std::string_view what) {
        return bytes.find(what) != std::string_view::npos;
    };
    return has("@") || has("-----BEGIN PGP MESSAGE") ||
           (kind == PartKind::Html && (has("&#") || has("&commat;") || has("%40")));
}

}  // namespace orvik::book
