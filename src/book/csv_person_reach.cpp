// How a person is reached: addresses, phones and pages go to columns by their kinds.

#include <algorithm>
#include <bit>

#include "book/csv_person.h"
#include "book/typed_views.h"
#include "book/value_form.h"

namespace orvik::book {
namespace {

constexpr KindBits kPlaces = kind::kHome | kind::kWork | kind::kOther;

// The label of a numbered value; a star is for the preferred one.
std::string NumberedLabel(const KindOfProperty& kind, const KindWord& word) {
    const std::string text = kind.Label.empty() ? word.Text : std::string(kind.Label);
    return kind.IsPreferred() ? "* " + text : text;
}

}  // namespace

// A value in the notes, with its kind: "Other phone (Home Fax): +1 555 0100".
void CsvPersonWriter::CarryReach(const Reach& reach) {
    const Property& one = *reach.One;
    const KindWord word = WordOfKind(reach.Kind.Bits);
    const std::string_view what = one.Name == field::kEmail ? "Other address"
                                  : one.Name == field::kTel ? "Other phone"
                                  : one.Name == field::kAdr ? "Other postal address"
                                                            : "Other web page";
    std::string label(what);
    const std::string kind = reach.Kind.Label.empty() ? word.Text : std::string(reach.Kind.Label);
    if (!kind.empty()) {
        label.append(" (").append(kind).append(")");
    }
    Carry(one, label, ReadableValue(book_, one));
}

void CsvPersonWriter::WriteEmails() {
    if (google_) {
        return WriteNumbered(emails_, numbered_emails_);
    }
    std::stable_sort(emails_.begin(), emails_.end(), [](const Reach& one, const Reach& other) {
        return one.Kind.Rank < other.Kind.Rank;
    });
    std::size_t next = 0;
    for (const Reach& email : emails_) {
        if (next == numbered_emails_.size()) {
            CarryReach(email);
            continue;
        }
        Put(numbered_emails_[next++].Value, email.One->Value);
        WriteKindLabel(email, CsvLayout::kNone);
    }
}

// The kind of a value that is in its column: in the label beside it, else a label of the user's
// goes into the notes.
bool CsvPersonWriter::WriteKindLabel(const Reach& reach, std::size_t column) {
    const KindWord word = WordOfKind(reach.Kind.Bits);
    const std::string label = NumberedLabel(reach.Kind, word);
    const bool starred = reach.Kind.Label.starts_with('*');
    if (column != CsvLayout::kNone && !starred && Fits(label)) {
        row_.AppendLines(label, column);
        reach.Kind.Label.empty() && word.Left != 0 ? WithoutKind(*reach.One) : Kept(*reach.One);
        return true;
    }
    if (!reach.Kind.Label.empty()) {
        Carry(*reach.One, reach.Kind.Label, reach.One->Value);
    } else if (reach.Kind.Bits != 0) {
        WithoutKind(*reach.One);
    } else {
        Kept(*reach.One);
    }
    return false;
}

void CsvPersonWriter::WriteNumbered(std::vector<Reach>& all, std::span<const Numbered> columns) {
    std::size_t next = 0;
    for (const Reach& one : all) {
        const bool places = one.One->Name != field::kTel;
        Reach reach = one;
        reach.Kind.Bits &= places ? kPlaces : ~KindBits{0};
        if (next == columns.size() || !Put(columns[next].Value, one.One->Value)) {
            CarryReach(one);
            continue;
        }
        WriteKindLabel(reach, columns[next++].Label);
    }
}

void CsvPersonWriter::WritePhones() {
    if (google_) {
        return WriteNumbered(phones_, numbered_phones_);
    }
    // Those that a column is for come first, so that no other one takes it.
    for (const bool exact : {true, false}) {
        for (Reach& phone : phones_) {
            phone.Placed = phone.Placed || WritePhone(phone, exact);
        }
    }
    for (const Reach& phone : phones_) {
        if (!phone.Placed) {
            CarryReach(phone);
        }
    }
}

bool CsvPersonWriter::WritePhone(Reach& phone, bool exact) {
    const KindBits bits = phone.Kind.Bits;
    const auto fax = [](KindBits of) { return (of & kind::kFax) != 0; };
    const PhoneColumn* best = nullptr;
    std::uint32_t least = ~0U;
    for (const PhoneColumn& column : phone_columns_) {
        if (!row_.IsFree(column.Column) || fax(column.Bits) != fax(bits)) {
            continue;
        }
        // The fewer differences the better; a column that says something else is none.
        const KindBits more = column.Bits & ~bits & ~KindBits{kind::kOther};
        const bool vague = bits == 0 && (column.Bits == kind::kMain || column.Bits == kind::kWork);
        const bool fits = exact ? column.Bits == bits : more == 0 || vague;
        const auto left = static_cast<std::uint32_t>(std::popcount(bits & ~column.Bits)) * 2U +
                          static_cast<std::uint32_t>(std::popcount(column.Bits & ~bits));
        const std::uint32_t rank = left * 2U + (column.Bits == kind::kMain ? 0U : 1U);
        if (fits && rank < least) {
            best = &column;
            least = rank;
        }
    }
    if (best == nullptr) {
        return false;
    }
    Put(best->Column, phone.One->Value);
    const Property& one = *phone.One;
    if (!phone.Kind.Label.empty()) {
        Carry(one, phone.Kind.Label, one.Value);
    } else if ((bits & ~best->Bits) != 0) {
        WithoutKind(one);
    } else {
        Kept(one);
    }
    return true;
}

void CsvPersonWriter::PreparePosts() {
    std::map<std::pair<std::string_view, std::uint32_t>, std::size_t> places;
    const auto columns = layout_.Columns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const CsvField& field = *columns[i].Field;
        if (field.Property != field::kAdr) {
            continue;
        }
        const auto [place, is_new] =
            places.try_emplace({field.Types, columns[i].Number}, post_columns_.size());
        if (is_new) {
            post_columns_.emplace_back().Parts.fill(CsvLayout::kNone);
            post_columns_.back().Bits = BitsOfTypes(field.Types);
        }
        PostColumns& post = post_columns_[place->second];
        std::size_t& column = field.Meaning == CsvMeaning::PostMore    ? post.MoreStreet
                              : field.Meaning == CsvMeaning::PostWhole ? post.Whole
                              : field.Meaning == CsvMeaning::Kind      ? post.Label
                                                                       : post.Parts[field.Part];
        column = i;
    }
}

void CsvPersonWriter::WritePosts() {
    for (PostColumns& columns : post_columns_) {
        columns.Used = false;
    }
    for (const bool exact : {true, false}) {
        for (Reach& post : posts_) {
            for (PostColumns& columns : post_columns_) {
                const bool fits = google_ ||
                                  (exact && (post.Kind.Bits & kPlaces) == columns.Bits) ||
                                  (!exact && (post.Kind.Bits & kPlaces) == 0) ||
                                  (!exact && (post.Kind.Bits & columns.Bits) != 0);
                if (!post.Placed && !columns.Used && fits) {
                    post.Placed = WritePost(post, columns);
                    post.Post = static_cast<std::size_t>(&columns - post_columns_.data());
                    break;
                }
            }
        }
    }
    for (const Reach& post : posts_) {
        if (!post.Placed) {
            CarryReach(post);
        }
    }
    WritePostLabels();
}

bool CsvPersonWriter::WritePost(Reach& post, PostColumns& columns) {
    constexpr std::size_t kExtended = 1;
    if (google_ && !MayBeNumbered(book_, *post.One)) {
        return false;
    }
    columns.Used = true;
    bool whole = true;
    std::string_view parts = post.One->Value;
    TakenPart part{{}, true};
    for (std::size_t i = 0; part.More; ++i) {
        part = TakePart(parts, ';');
        std::string_view values = part.Text;
        for (TakenPart value{{}, true}; value.More;) {
            value = TakePart(values, ',');
            const std::string plain = Unescaped(value.Text);
            const std::string_view text = WithoutBlanksAround(plain);
            if (text.empty()) {
                continue;
            }
            std::size_t column = i < columns.Parts.size() ? columns.Parts[i] : CsvLayout::kNone;
            if (column == CsvLayout::kNone) {
                AddNote(i == 0 ? "Post box" : "More of a postal address", text);
                whole = false;
                continue;
            }
            const bool more = i == kExtended && columns.MoreStreet != CsvLayout::kNone;
            column = more && !row_.IsFree(column) ? columns.MoreStreet : column;
            row_.Cell(column).append(row_.IsFree(column) ? "" : ", ");
            row_.AppendLines(text, column);
        }
    }
    if (whole) {
        Reach kind = post;
        kind.Kind.Bits &= kPlaces & (columns.Label == CsvLayout::kNone ? ~columns.Bits : ~0U);
        WriteKindLabel(kind, columns.Label);
    } else {
        Tell(*post.One, What::Carried, Reason::NotInTarget, note_name_);
    }
    return true;
}

// A label that was printed belongs to the address before it, else to the first one of its kind.
bool CsvPersonWriter::WritePostLabel(const PostLabel& label) {
    const KindOfProperty kind = KindOf(book_, *label.One, labels_);
    const std::string word = WordOfKind(kind.Bits & kPlaces).Text;
    const auto takes = [&](const Reach& post) {
        return post.Placed && post.Kind.Label == kind.Label &&
               WordOfKind(post.Kind.Bits & kPlaces).Text == word &&
               Put(post_columns_[post.Post].Whole, label.One->Value);
    };
    if (label.Behind > 0 && takes(posts_[label.Behind - 1])) {
        return true;
    }
    // Those behind are not in the table.
    const auto last = posts_.begin() + std::ssize(post_columns_);
    return std::find_if(posts_.begin(),
                        std::ssize(post_columns_) < std::ssize(posts_) ? last : posts_.end(),
                        takes) != posts_.end();
}

void CsvPersonWriter::WritePostLabels() {
    for (const PostLabel& label : post_labels_) {
        google_&& WritePostLabel(label) ? Kept(*label.One)
                                        : Carry(*label.One, "Address label", label.One->Value);
    }
}

void CsvPersonWriter::WriteUrls() {
    if (google_) {
        return WriteNumbered(urls_, numbered_urls_);
    }
    const auto columns = layout_.Columns();
    for (const bool exact : {true, false}) {
        for (Reach& url : urls_) {
            for (std::size_t i = 0; i < columns.size() && !url.Placed; ++i) {
                const CsvField& field = *columns[i].Field;
                const KindBits bits = BitsOfTypes(field.Types);
                const bool fits = !exact || bits == (url.Kind.Bits & kPlaces);
                if (field.Property == field::kUrl && fits &&
                    Put(i, WithPlainColons(url.One->Value))) {
                    url.Placed = true;
                    url.Kind.Bits &= kPlaces & ~bits;
                    WriteKindLabel(url, CsvLayout::kNone);
                }
            }
        }
    }
    for (const Reach& url : urls_) {
        if (!url.Placed) {
            CarryReach(url);
        }
    }
}

}  // namespace orvik::book
