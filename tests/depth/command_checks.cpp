// What holds after the commands that change the book.

#include <algorithm>
#include <string_view>

#include "app/encoding.h"
#include "depth/checks.h"
#include "fuzz/fuzz_target.h"
#include "listops/upper_case.h"

namespace orvik::depth {
namespace {

using fuzz::Check;

constexpr std::size_t kMostSorted = 500;

Entries InOrder(Entries entries) {
    std::sort(entries.begin(), entries.end());
    return entries;
}

}  // namespace

// The entries in the order of their keys, in upper case and with the lines' ends; entries with the
// same key stay in theirs.
void Checks::CheckSort(const Step& step, bool by_address) const {
    std::optional<Entries> entries = EntriesOf(step.Before.Text);
    const bool native = step.Before.Mode == mode::kNative || step.Before.Mode == mode::kAscii;
    if (!entries || !native || entries->size() >= kMostSorted || step.Before.Count > kMostSorted) {
        return;
    }
    const Encoding encoding = EncodingOf(step.Before.Text);
    const auto key_of = [&](const Entry& entry) {
        return ToUpper((by_address ? entry.Address : entry.Nickname) + "\r\n", encoding);
    };
    std::vector<std::pair<std::string, Entry>> keyed;
    for (const Entry& entry : *entries) {
        keyed.emplace_back(key_of(entry), entry);
    }
    std::stable_sort(keyed.begin(), keyed.end(), [](const auto& one, const auto& other) {
        return one.first < other.first;
    });
    std::transform(
        keyed.begin(), keyed.end(), entries->begin(), [](const auto& pair) { return pair.second; });
    Check(step.After.Text == NativeOf(*entries), "a sort keeps each nickname at its address");
}

void Checks::CheckEntryCommand(const Step& step) const {
    std::optional<Entries> entries = EntriesOf(step.Before.Text);
    if (!entries || step.After.Text == step.Before.Text) {
        return;
    }
    if (step.Act == "edit-entry") {
        (*entries)[step.Rows.front()] = step.NewEntry;
    } else {
        for (auto row = step.Rows.rbegin(); row != step.Rows.rend(); ++row) {
            entries->erase(entries->begin() + static_cast<std::ptrdiff_t>(*row));
        }
    }
    const std::string expected = entries->empty() ? std::string() : NativeOf(*entries);
    Check(step.After.Text == expected, "the other entries stay");
    Check(step.After.Mode == (expected.empty() ? mode::kNone : mode::kNative), "as does the mode");
}

void Checks::CheckExtraction(const Step& step) const {
    const std::string& file = person_.seen.Content.Text;
    if (!person_.seen.Failures.empty() || person_.seen.Stopped || person_.seen.Cancelled ||
        person_.seen.Opened.empty() || step.After.Caption == step.Before.Caption) {
        return;
    }
    const std::size_t lines = EntriesOf(step.After.Text) ? step.After.Count : 0;
    Check(lines == 0 || lines == static_cast<std::size_t>(Module().AddressCount),
          "each address is counted");
    constexpr std::size_t kScannedAtOnce = 32000;
    if (file.empty() || file.size() > kScannedAtOnce) {
        return;
    }
    const std::vector<std::string> found = AddressesIn(file);
    std::string block;
    for (const std::string& address : found) {
        block.append(address).append("\r\n");
    }
    Check(step.After.Text == (found.empty() ? "" : block + "-nick-\r\n" + block),
          "every address of a file is found");
}

void Checks::CheckPaste(const Step& step) const {
    const bool pastes = step.Act == "Form1.mnuClearPaste_Click" ||
                        step.Act == "Form1.mnuClearPasteNet4_Click" ||
                        step.Act == "Form1.mnuPasteJuno_Click";
    if (!pastes || !pasted || step.Before.Editing || !step.ByCr || !ArePlain(*pasted) ||
        person_.seen.Cancelled || !person_.seen.Failures.empty() || step.After.Caption != "Orvik" ||
        step.After.Text == step.Before.Text) {
        return;
    }
    Check(step.After.Shown() == *pasted, "a pasted book is shown");
}

void Checks::CheckOpened(const Step& step) {
    const std::string name = std::exchange(saved_name_, {});
    const ChancePerson::Seen& seen = person_.seen;
    const bool loads = Module().OpenMode <= 2 && !Module().AutoExtract && step.ByCr;
    if (!seen.Failures.empty() || !loads || step.Before.Editing || seen.SaveWas || seen.Cancelled ||
        program_.Root().form3.Visible()) {
        return;
    }
    // It may have been written anew in between.
    if (!name.empty() && seen.Content.Text.empty() &&
        step.After.Caption == Form1::CaptionOf(name)) {
        Check(step.After.Shown() == saved_, "a saved book is opened as it was");
    }
    const std::optional<Entries>& exact = seen.Content.Exact;
    if (name.empty() && exact && ArePlain(*exact) && !seen.Opened.ends_with("htm") &&
        !seen.Opened.ends_with("html") && !seen.Opened.ends_with(".xtr") &&
        !seen.Opened.ends_with(".dat") && seen.Content.Text.size() < 30000 &&
        step.After.Caption == Form1::CaptionOf(seen.Opened)) {
        Check(step.After.Shown() == *exact, "an opened book is shown");
    }
}

void Checks::CheckMerge(const Step& step) const {
    const std::optional<Entries> old = EntriesOf(step.Before.Text);
    const ChancePerson::Seen& seen = person_.seen;
    const std::optional<Entries>& added = seen.Content.Exact;
    const bool loads = Module().OpenMode <= 2 && !Module().AutoExtract && step.ByCr;
    if (!old || !added || !ArePlain(*old) || !ArePlain(*added) || !loads || step.Before.Editing ||
        step.Before.Mode != mode::kNative || !seen.Failures.empty() ||
        step.After.Text == step.Before.Text || program_.Root().form3.Visible() ||
        !(seen.Opened.ends_with(".ldif") || seen.Opened.ends_with(".nv") ||
          seen.Opened.ends_with(".txt"))) {
        return;
    }
    Entries both = *old;
    both.insert(both.end(), added->begin(), added->end());
    const std::optional<Entries> merged = EntriesOf(step.After.Text);
    Check(merged && InOrder(*merged) == InOrder(both), "a merged book has the entries of both");
}

}  // namespace orvik::depth
