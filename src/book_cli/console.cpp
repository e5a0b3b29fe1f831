#include "book_cli/console.h"

namespace orvik::book_cli {

void Console::End() {
    around_.Messages.EndStep();
    Begin({});
}

std::function<void(std::size_t, std::size_t)> Console::ProgressOf(std::string_view doing) {
    if (around_.HowFar) {
        return [this, doing = std::string(doing)](std::size_t done, std::size_t all) {
            around_.HowFar(doing, done, all);
        };
    }
    return [this, doing = std::string(doing), shown = std::size_t{0}](std::size_t done,
                                                                      std::size_t all) mutable {
        const std::size_t percent = all == 0 ? 100 : 100 * done / all;
        if (percent != shown) {
            shown = percent;
            around_.Messages.Progress(doing + ": " + std::to_string(percent) + "%");
        }
    };
}

std::string Console::Strong(const std::string& text) const {
    return Coloured("\x1B[1m", text);
}

std::string Console::Alarming(const std::string& text) const {
    return Coloured("\x1B[1;31m", text);
}

std::string Console::Coloured(std::string_view colour, const std::string& text) const {
    return around_.Colours ? std::string(colour) + text + "\x1B[0m" : text;
}

CopyAnswer Console::OfferCopy(const std::string& /*book*/, const std::string& copy) {
    Tell("A saving of this file was interrupted. Its old contents stand in " + copy);
    return CopyAnswer::NotNow;
}

}  // namespace orvik::book_cli
