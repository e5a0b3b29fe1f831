// Whether the working text holds other entries than the file that it was opened from or saved to.

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "app/controls.h"

namespace orvik {

class Module1;

class SavedBook {
 public:
    // module must outlive this.
    explicit SavedBook(const Module1& module) : module_(module) {}

    // From now on the book is compared, and told is given the name of each file that it is opened
    // from or saved to. Until then nothing is computed.
    using Told = std::function<void(const std::string& file)>;
    void Follow(Told told);

    // The commands say so: the entries are those of a file.
    void Mark(const std::string& file);
    // How often that was said.
    [[nodiscard]] std::uint64_t Marks() const { return marks_; }

    // Whether the entries are others than at the last mark, or than none. Reads the text only if
    // something has changed since it was asked last.
    [[nodiscard]] bool Differs();
    // How many entries there were when Differs was asked last.
    [[nodiscard]] std::size_t Count() const { return count_; }

    // What the entries are compared with, for a book that takes another's place and goes again.
    using Hash = std::uint64_t;
    static constexpr Hash kNoFile = 0;
    [[nodiscard]] Hash Compared() const { return marked_; }
    void CompareWith(Hash hash);

    // What became of the question whether to save: the user did not want to, or wanted to and the
    // book was not saved. Both are forgotten when the command is over.
    enum class Fate { Unknown, GivenUp, NotSaved };
    void SetFate(Fate fate) { fate_ = fate; }
    [[nodiscard]] Fate GetFate() const { return fate_; }

 private:
    // What moves with every change of the text.
    using Moment = std::pair<Revision, std::size_t>;
    [[nodiscard]] Moment Now() const;

    const Module1& module_;
    Told told_;
    std::uint64_t marks_ = 0;
    Hash marked_ = kNoFile;
    Moment seen_;
    bool differs_ = false;
    std::size_t count_ = 0;
    Fate fate_ = Fate::Unknown;
};

}  // namespace orvik
