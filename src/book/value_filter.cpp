#include "book/value_filter.h"

#include <algorithm>
#include <utility>

#include "book/match/folding.h"
#include "book/readable_value.h"
#include "book/typed_views.h"
#include "book/word_search.h"

namespace orvik::book {
namespace {

// Numbers that only programs read hold many a short name by chance.
bool IsForPrograms(const Book& book, const Property& one) {
    switch (one.Name) {
        case field::kPhoto:
        case field::kLogo:
        case field::kSound:
        case field::kKey:
            return true;
        case field::kMember:
        case field::kServerMember:
            return StartsAsName(one.Value, "urn:uuid:") || StartsAsName(one.Value, "x-orvik-line:");
        default:
            return IsHousekeeping(book, one) ||
                   SameName(ParamOf(book, one, field::kEncoding), "b") ||
                   SameName(ParamOf(book, one, field::kEncoding), "base64");
    }
}

class Searches {
 public:
    explicit Searches(const std::vector<std::string>& words) : all_(words.begin(), words.end()) {}

    // Whether all of the words are there.
    [[nodiscard]] bool AreIn(std::string_view text) const {
        return std::all_of(
            all_.begin(), all_.end(), [text](const WordSearch& one) { return one.IsIn(text); });
    }

 private:
    std::vector<WordSearch> all_;
};

}  // namespace

std::vector<std::string> FilterWords(std::string_view typed) {
    std::string folded;
    FoldText(typed, folded);
    std::vector<std::string> words;
    for (std::string_view rest = folded; !rest.empty();) {
        const std::size_t end = std::min(rest.find(' '), rest.size());
        if (end > 0) {
            words.emplace_back(rest.substr(0, end));
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return words;
}

bool IsNarrower(const std::vector<std::string>& words, const std::vector<std::string>& those) {
    return std::all_of(those.begin(), those.end(), [&words](const std::string& one) {
        return std::any_of(words.begin(), words.end(), [&one](const std::string& word) {
            return word.find(one) != std::string::npos;
        });
    });
}

ValueFilter::ValueFilter(const Book& book, const Book::Progress& how_far) {
    const std::size_t all = book.Contacts.size();
    texts_.reserve(all);
    for (const Contact& contact : book.Contacts) {
        Take(texts_.emplace_back(), book, contact);
        if (how_far) {
            how_far(texts_.size(), all);
        }
    }
}

void ValueFilter::Set(const Book& book, std::uint32_t record, const Contact& contact) {
    if (record == texts_.size()) {
        texts_.emplace_back();
    }
    Take(texts_[record], book, contact);
    DropOld();
}

void ValueFilter::Take(std::string_view& place, const Book& book, const Contact& contact) {
    text_.clear();
    for (const Property& one : contact.Properties) {
        if (!IsForPrograms(book, one)) {
            Append(book, one);
        }
    }
    used_ += text_.size();
    used_ -= place.size();
    old_ += place.size();
    place = kept_.Keep(text_);
}

void ValueFilter::Append(const Book& book, const Property& one) {
    if (ValueFormOf(book.Names, one.Name) == ValueForm::Text) {
        FoldText(one.Value, folded_);
    } else {
        FoldText(ReadableValue(book, one), folded_);
    }
    if (folded_.empty()) {
        return;
    }
    text_.append(folded_).append("\n");
    // People type numbers with and without what parts them.
    if (one.Name == field::kTel) {
        FoldPhone(one.Value, folded_);
        text_.append(folded_).append("\n");
    }
}

void ValueFilter::DropOld() {
    constexpr std::size_t kLittle = std::size_t{1} << 20U;
    if (old_ <= std::max(kLittle, used_)) {
        return;
    }
    Arena kept;
    for (std::string_view& text : texts_) {
        text = kept.Keep(text);
    }
    kept_ = std::move(kept);
    old_ = 0;
}

ValueFilter::Found ValueFilter::Find(const std::vector<std::string>& words) const {
    const Searches searches(words);
    Found found(texts_.size());
    for (std::size_t i = 0; i < texts_.size(); ++i) {
        found[i] = searches.AreIn(texts_[i]);
    }
    return found;
}

void ValueFilter::Narrow(const std::vector<std::string>& words, Found& found) const {
    const Searches searches(words);
    for (std::size_t i = 0; i < found.size(); ++i) {
        found[i] = found[i] && searches.AreIn(texts_[i]);
    }
}

}  // namespace orvik::book
