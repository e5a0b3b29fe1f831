#include "book/mail/message_reader.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include <gmime/gmime.h>

#include "book/field_names.h"
#include "book/mail/gmime_use.h"
#include "book/mail/hostile_message.h"
#include "book/mail/mail_headers.h"
#include "book/mail/page_text.h"
#include "book/mail/part_kind.h"
#include "book/mail/part_text.h"
#include "book/mail/raw_part.h"
#include "book/mail/text_addresses.h"

namespace orvik::book {
namespace {

// Deeper ones are no mail of people.
constexpr int kDeepest = 40;

std::string_view TextOf(const char* text) {
    return text == nullptr ? std::string_view() : std::string_view(text);
}

void UnrefBytes(GByteArray* bytes) {
    g_byte_array_unref(bytes);
}

}  // namespace

struct MessageReader::Library {
    GRef<GMimeParser> Parser{g_mime_parser_new()};
    GByteArray* Bytes = g_byte_array_new();
    PartLetters Letters;

    Library() = default;
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    Library(Library&&) = delete;
    Library& operator=(Library&&) = delete;
    ~Library() { g_byte_array_unref(Bytes); }

    // The message as an object whose texts stay in the bytes; nothing for one without a header.
    GRef<GMimeObject> Parse(GByteArray* bytes) const {
        const GRef<GMimeStream> stream(g_mime_stream_mem_new_with_byte_array(bytes));
        g_mime_stream_mem_set_owner(GMIME_STREAM_MEM(stream.get()), FALSE);
        g_mime_parser_init_with_stream(Parser.get(), stream.get());
        g_mime_parser_set_persist_stream(Parser.get(), TRUE);
        return GRef<GMimeObject>(g_mime_parser_construct_part(Parser.get(), MailOptions()));
    }
};

// One message, with those that it encloses.
class MessageReader::Walk {
 public:
    Walk(Library& library, bool headers_only, MailFindings& findings)
        : library_(library), headers_only_(headers_only), findings_(findings) {}

    void Take(GMimeObject* root, std::string_view marker) {
        TakeHeader(root, marker);
        findings_.Time = time_;
        if (!headers_only_) {
            TakeObject(root, "1", 0);
        }
    }

    void TakeText(std::string_view text) {
        TextAddresses search([this](std::string_view address, std::string_view name) {
            findings_.Mentions.push_back(
                {std::string(address), DecodedName(name), MailField::Body, time_});
        });
        search.Look(text);
        findings_.IdCount += search.Ids();
    }

 private:
    void TakeHeader(GMimeObject* object, std::string_view marker) {
        GMimeHeaderList* const headers = g_mime_object_get_header_list(object);
        const int count = g_mime_header_list_get_count(headers);
        MailTime time = kNoTime;
        for (int i = 0; i < count && time == kNoTime; ++i) {
            GMimeHeader* const one = g_mime_header_list_get_header_at(headers, i);
            if (SameName(TextOf(g_mime_header_get_name(one)), "Date")) {
                time = TimeOf(g_mime_header_get_raw_value(one));
            }
        }
        if (const std::size_t date = marker.find(' ', std::string_view("From ").size());
            time == kNoTime && date != std::string_view::npos) {
            time = TimeOf(std::string(marker.substr(date)).c_str());
        }
        // An enclosed message without a date came no later than the one around it.
        time_ = time == kNoTime ? time_ : time;
        for (int i = 0; i < count; ++i) {
            GMimeHeader* const one = g_mime_header_list_get_header_at(headers, i);
            AddHeader(TextOf(g_mime_header_get_name(one)),
                      g_mime_header_get_raw_value(one),
                      time_,
                      findings_);
        }
    }

    // Mail stands in mail: followed as deep as kDeepest.
    // NOLINTBEGIN(misc-no-recursion)
    void TakeEnclosed(GMimeObject* header,
                      GMimeObject* body,
                      const std::string& number,
                      int depth) {
        const MailTime before = time_;
        TakeHeader(header, {});
        const bool headless =
            g_mime_header_list_get_count(g_mime_object_get_header_list(header)) == 0;
        if (headless) {
            TakeHeadless(body);
        }
        TakeObject(body, number, depth);
        time_ = before;
    }

    // An enclosed text that is called a message, but has no header.
    void TakeHeadless(GMimeObject* body) {
        const RawPart raw = GMIME_IS_PART(body) != 0 ? RawOf(GMIME_PART(body)) : RawPart();
        if (raw.Begin > 0) {
            return TakeAny(LinesBefore(raw));
        }
        // The library has lost where it was.
        TakeAll();
    }

    // All of the message as text, once.
    void TakeAll() {
        if (!std::exchange(saw_all_, true)) {
            const GByteArray* const bytes = library_.Bytes;
            const std::string_view all(reinterpret_cast<const char*>(bytes->data), bytes->len);
            TakeAny(all.substr(std::min(all.find("\n\n"), all.size())));
        }
    }

    void TakeObject(GMimeObject* object, const std::string& number, int depth) {
        if (object == nullptr) {
            return;
        }
        if (depth > kDeepest) {
            Note(object, number, "parts stand too deep in each other");
            return TakeAll();
        }
        // What stands inside of a part may name it.
        if (const char* const id = g_mime_object_get_content_id(object); id != nullptr) {
            findings_.Ids.emplace_back(id);
        }
        if (GMIME_IS_MESSAGE_PART(object) != 0) {
            GMimeMessage* const message =
                g_mime_message_part_get_message(GMIME_MESSAGE_PART(object));
            if (message != nullptr) {
                TakeEnclosed(GMIME_OBJECT(message),
                             g_mime_message_get_mime_part(message),
                             number + ".1",
                             depth + 1);
            }
        } else if (GMIME_IS_MULTIPART(object) != 0) {
            TakeMultipart(GMIME_MULTIPART(object), number, depth);
        } else if (GMIME_IS_PART(object) != 0) {
            TakePart(GMIME_PART(object), number, depth);
        }
    }

    void TakeMultipart(GMimeMultipart* parts, const std::string& number, int depth) {
        GMimeObject* const object = GMIME_OBJECT(parts);
        if (GMIME_IS_MULTIPART_ENCRYPTED(object) != 0) {
            return NoteEncrypted(object, number);
        }
        const int count = g_mime_multipart_get_count(parts);
        // Without its boundary all of it stands before the first part.
        if (count == 0) {
            TakeAny(TextOf(g_mime_multipart_get_prologue(parts)));
        }
        for (int i = 0; i < count; ++i) {
            TakeObject(g_mime_multipart_get_part(parts, i),
                       number + "." + std::to_string(i + 1),
                       depth + 1);
        }
        TakeAny(TextOf(g_mime_multipart_get_epilogue(parts)));
    }

    void TakeAny(std::string_view bytes) {
        if (bytes.find('@') != std::string_view::npos) {
            bool known = false;
            std::string text;
            TakeText(library_.Letters.Text(bytes, {}, text, known));
        }
    }

    void TakePart(GMimePart* part, const std::string& number, int depth) {
        GMimeObject* const object = GMIME_OBJECT(part);
        GMimeContentType* const type = g_mime_object_get_content_type(object);
        const PartKind kind = KindOfPart(TextOf(g_mime_content_type_get_media_type(type)),
                                         TextOf(g_mime_content_type_get_media_subtype(type)),
                                         [part] { return TextOf(g_mime_part_get_filename(part)); });
        if (kind == PartKind::Encrypted) {
            return NoteEncrypted(object, number);
        }
        if (kind == PartKind::Other) {
            return;
        }
        std::string bytes;
        const std::string_view content = ContentOf(part, number, bytes);
        if (kind == PartKind::Message || kind == PartKind::Header) {
            return TakeMessage(content, number, depth);
        }
        const char* const charset = g_mime_content_type_get_parameter(type, "charset");
        TakeContent(object, number, kind, content, TextOf(charset));
    }

    // The bytes that a part stands for; bytes holds them where they are not in the message.
    std::string_view ContentOf(GMimePart* part, const std::string& number, std::string& bytes) {
        const std::string_view raw = RawOf(part).Text();
        bool whole = true;
        switch (g_mime_part_get_content_encoding(part)) {
            case GMIME_CONTENT_ENCODING_BASE64:
                bytes = Untransferred(raw, Transfer::Base64, whole);
                if (!whole) {
                    Note(GMIME_OBJECT(part), number, "holds lines that are no base64");
                }
                return bytes;
            case GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE:
                bytes = Untransferred(raw, Transfer::QuotedPrintable, whole);
                return bytes;
            case GMIME_CONTENT_ENCODING_UUENCODE:
                bytes = Uudecoded(part);
                return bytes;
            default:
                break;
        }
        if (g_mime_part_get_content_encoding(part) == GMIME_CONTENT_ENCODING_DEFAULT) {
            const std::string_view stated =
                TextOf(g_mime_object_get_header(GMIME_OBJECT(part), "Content-Transfer-Encoding"));
            if (!stated.empty()) {
                Note(
                    GMIME_OBJECT(part), number, "nobody knows the encoding " + std::string(stated));
            }
        }
        return raw;
    }

    static std::string Uudecoded(GMimePart* part) {
        const GRef<GMimeStream> stream(g_mime_stream_mem_new());
        g_mime_data_wrapper_write_to_stream(g_mime_part_get_content(part), stream.get());
        const GByteArray* const bytes =
            g_mime_stream_mem_get_byte_array(GMIME_STREAM_MEM(stream.get()));
        return {reinterpret_cast<const char*>(bytes->data), bytes->len};
    }

    void TakeContent(GMimeObject* object,
                     const std::string& number,
                     PartKind kind,
                     std::string_view content,
                     std::string_view charset) {
        // Most texts have no address, and need no letters.
        if (HasPlainAscii(charset) && !MayHoldAddress(content, kind)) {
            return;
        }
        std::string letters;
        bool known = true;
        const std::string_view text = library_.Letters.Text(content, charset, letters, known);
        if (!known) {
            Note(object, number, "nobody knows the character set " + std::string(charset));
        }
        if (kind == PartKind::Html) {
            std::string plain;
            AppendHtmlText(text, plain);
            TakeText(plain);
        } else {
            TakeText(kind == PartKind::Folded ? Unfolded(text) : text);
        }
        constexpr std::string_view kArmour = "-----BEGIN PGP MESSAGE-----";
        if (text.find(kArmour) != std::string_view::npos) {
            NoteEncrypted(object, number);
        }
    }

    // A part that holds a message, or the header of one, without the library knowing.
    void TakeMessage(std::string_view content, const std::string& number, int depth) {
        const GRefOf<GByteArray, UnrefBytes> bytes(g_byte_array_new());
        g_byte_array_append(bytes.get(),
                            reinterpret_cast<const guint8*>(content.data()),
                            static_cast<guint>(content.size()));
        if (const GRef<GMimeObject> message = library_.Parse(bytes.get())) {
            TakeEnclosed(message.get(), message.get(), number + ".1", depth + 1);
        }
    }
    // NOLINTEND(misc-no-recursion)

    static std::string Called(GMimeObject* object, const std::string& number) {
        const GText type(g_mime_content_type_get_mime_type(g_mime_object_get_content_type(object)));
        return number + " (" + std::string(TextOf(type.get())) + ")";
    }

    void Note(GMimeObject* object, const std::string& number, std::string reason) {
        findings_.Notes.push_back({false, Called(object, number), std::move(reason)});
    }

    void NoteEncrypted(GMimeObject* object, const std::string& number) {
        findings_.Notes.push_back({true, Called(object, number), "is encrypted"});
    }

    Library& library_;
    bool headers_only_;
    MailFindings& findings_;
    MailTime time_ = kNoTime;
    bool saw_all_ = false;
};

MessageReader::MessageReader(bool headers_only) : headers_only_(headers_only) {
    static_cast<void>(MailOptions());
    library_ = std::make_unique<Library>();
}

MessageReader::~MessageReader() = default;

MailFindings MessageReader::Read(std::string_view message, std::string_view marker) {
    MailFindings findings;
    const bool groups = HasTooManyGroups(message);
    const bool parts = !groups && HasTooManyParts(message);
    if (groups || parts) {
        findings.Notes.push_back(
            {false,
             "1",
             groups ? "has too many groups to be mail" : "has too many parts to be mail"});
    }
    // Of a message with too many parts the header is read as that of any other.
    const std::size_t gap = std::min(message.find("\n\n"), message.find("\n\r\n"));
    const std::size_t length = parts ? std::min(gap, message.size()) : message.size();
    g_byte_array_set_size(library_->Bytes, 0);
    g_byte_array_append(library_->Bytes,
                        reinterpret_cast<const guint8*>(message.data()),
                        static_cast<guint>(groups ? 0 : length));
    if (const GRef<GMimeObject> root = library_->Parse(library_->Bytes)) {
        Walk(*library_, headers_only_, findings).Take(root.get(), marker);
        message.remove_prefix(groups ? 0 : length);
    }
    if (!headers_only_) {
        ReadText(message, findings);
    }
    // A text may repeat the identifiers that the headers hold.
    std::vector<std::string>& ids = findings.Ids;
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    const auto is_id = [&ids](const Mention& one) {
        return one.Field == MailField::Body &&
               std::binary_search(ids.begin(), ids.end(), one.Address);
    };
    findings.IdCount += ids.size();
    std::erase_if(findings.Mentions, is_id);
    return findings;
}

void MessageReader::ReadText(std::string_view text, MailFindings& findings) {
    std::string letters;
    bool known = true;
    const std::string_view plain = library_->Letters.Text(text, {}, letters, known);
    Walk(*library_, headers_only_, findings).TakeText(plain);
}

}  // namespace orvik::book
