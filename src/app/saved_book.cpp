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
        marked_ = AsItStands();
        unhashed_ = module_.WorkText;
        hash_ = EntrySum().Hash;
        differs_ = false;
        seen_ = Now();
        told_(file);
    }
}

bool SavedBook::Differs() {
    if (!told_ || seen_ == Now()) {
        return differs_;
    }
    seen_ = Now();
    if (marked_ == AsItStands()) {
        differs_ = false;
        return false;
    }
    HashMarked();
    const EntrySum sum = module_.Entries();
    differs_ = sum.Hash != hash_;
    count_ = sum.Count;
    return differs_;
}

SavedBook::Hash SavedBook::Compared() {
    HashMarked();
    return hash_;
}

void SavedBook::CompareWith(Hash hash) {
    hash_ = hash;
    marked_.reset();
    unhashed_.clear();
    seen_ = {};
}

void SavedBook::HashMarked() {
    if (!unhashed_.empty()) {
        hash_ = Module1::Entries(unhashed_, marked_->Mode, marked_->Separator).Hash;
        unhashed_.clear();
    }
}

SavedBook::Marked SavedBook::AsItStands() const {
    return {module_.WorkText.Revision(), module_.TextMode, module_.textSep};
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
