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

    // Whether the entries are others than at the last mark, or than none. Reads the text only if
    // something has changed since it was asked last.
    [[nodiscard]] bool Differs();

 private:
    // What moves with every change of the text.
    using Moment = std::pair<Revision, std::size_t>;
    [[nodiscard]] Moment Now() const;

    const Module1& module_;
    Told told_;
    std::uint64_t marked_ = 0;
    Moment seen_;
    bool differs_ = false;
};

}  // namespace orvik
