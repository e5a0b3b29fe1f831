#include "app/saved_book.h"

#include "app/entry_sum.h"
#include "app/module1.h"

namespace orvik {

void SavedBook::Follow(Told told) {
    told_ = std::move(told);
    seen_ = {};
}

void SavedBook::Mark(const std::string& file) {
    ++marks_;
    if (told_) {
        const EntrySum sum = module_.Entries();
        marked_ = sum.Hash;
        count_ = sum.Count;
        differs_ = false;
        seen_ = Now();
        told_(file);
    }
}

bool SavedBook::Differs() {
    if (told_ && seen_ != Now()) {
        seen_ = Now();
        const EntrySum sum = module_.Entries();
        differs_ = sum.Hash != marked_;
        count_ = sum.Count;
    }
    return differs_;
}

void SavedBook::CompareWith(Hash hash) {
    marked_ = hash;
    seen_ = {};
}

// Text is changed by commands, which the history counts, by the user in the text box, and by what
// the start of the program runs, which lists it.
SavedBook::Moment SavedBook::Now() const {
    const Form1& form = module_.form1;
    return {module_.history.TextRevision() + form.Text1.TextRevision() +
                form.List1.ItemsRevision() + form.List2.ItemsRevision(),
            module_.WorkText.size()};
}

}  // namespace orvik
