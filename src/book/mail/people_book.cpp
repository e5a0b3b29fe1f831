#include "book/mail/people_book.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <unordered_map>

#include "book/charset.h"
#include "book/identity.h"
#include "book/old/entry_builder.h"
#include "book/source.h"
#include "book/utf8.h"

namespace orvik::book {
namespace {

constexpr std::size_t kDay = std::string_view("2001-03-04").size();

std::string Padded(int number, std::size_t width) {
    const std::string digits = std::to_string(number);
    return std::string(width - std::min(width, digits.size()), '0') + digits;
}

// "Seen in 12 messages, 2001-03-04 to 2005-06-07: Inbox (From, To), sent (Cc)"
std::string NoteOf(const People& people, const Person& person) {
    std::string note = "Seen " + (person.Count == 1 ? std::string("once")
                                                    : std::to_string(person.Count) + " times");
    const std::string first = TimeText(person.First).substr(0, kDay);
    const std::string last = TimeText(person.Last).substr(0, kDay);
    note += first.empty() ? "" : ", " + first + (last == first ? "" : " to " + last);
    std::string_view between = ": ";
    for (const Person::Place& place : person.Places) {
        note.append(between).append(people.PlaceAt(place.File)).append(" (");
        std::string_view comma;
        for (const std::string_view field : FieldsOf(place)) {
            note.append(comma).append(field);
            comma = ", ";
        }
        note += ')';
        between = ", ";
    }
    return note + (person.MorePlaces ? " and others" : "");
}

}  // namespace

std::string TimeText(MailTime time) {
    using namespace std::chrono;
    // Years of four digits.
    constexpr MailTime kFirst = -62135596800;
    constexpr MailTime kLast = 253402300799;
    if (time < kFirst || time > kLast) {
        return {};
    }
    const sys_seconds point{seconds{time}};
    const auto day = floor<days>(point);
    const year_month_day date{day};
    const hh_mm_ss clock{point - day};
    return Padded(static_cast<int>(date.year()), 4) + "-" +
           Padded(static_cast<int>(static_cast<unsigned>(date.month())), 2) + "-" +
           Padded(static_cast<int>(static_cast<unsigned>(date.day())), 2) + "T" +
           Padded(static_cast<int>(clock.hours().count()), 2) + ":" +
           Padded(static_cast<int>(clock.minutes().count()), 2) + ":" +
           Padded(static_cast<int>(clock.seconds().count()), 2) + "Z";
}

std::vector<std::string_view> FieldsOf(const Person::Place& place) {
    std::vector<std::string_view> fields;
    for (std::size_t i = 0; i < kMailFields; ++i) {
        if ((place.Fields >> i & 1U) != 0) {
            fields.push_back(NameOf(static_cast<MailField>(i)));
        }
    }
    return fields;
}

void AddPeople(const People& people,
               const std::vector<std::uint32_t>& which,
               bool notes,
               Book& book) {
    std::unordered_map<std::uint32_t, std::uint32_t> sources;
    for (const std::uint32_t number : which) {
        const Person& person = people.All()[number].Who;
        const std::uint32_t place = person.Places.front().File;
        const auto [source, is_new] = sources.try_emplace(place);
        if (is_new) {
            source->second =
                book.AddSource(std::make_unique<Source>(people.PlaceAt(place), std::string()));
        }
        Charset letters(book.SourceAt(source->second), {});
        EntryBuilder builder(book, source->second, letters);
        builder.Begin(book.SourceAt(source->second).Text(), 0, 0, ContactKind::Person, {});
        const std::string_view name = person.BestName();
        if (name.empty()) {
            builder.Push(field::kFn, book.Keep(person.Address), 0);
        } else {
            builder.PushName(book.Keep(name), 0);
        }
        builder.PushKept(field::kEmail, person.Address, 0);
        if (notes) {
            std::string note;
            AppendUtf8(NoteOf(people, person), note);
            builder.PushKept(field::kNote, note, 0);
        }
        builder.PushKept(field::kUid,
                         "urn:uuid:" + TextOf(Version5Uuid("mailto:" + people.All()[number].Key)),
                         0);
        builder.End();
    }
}

}  // namespace orvik::book
