#include "formats/juno_reader.h"

#include "app/text.h"

namespace orvik {
namespace {

constexpr std::string_view kNameKey = "\r\nName:";
constexpr std::string_view kEmailKey = "\r\nEmail:";

}  // namespace

std::string ReadJuno(std::string_view juno) {
    std::string list;
    for (std::size_t i = FindFrom(juno, kCrLf, 1); i <= juno.size(); i = FindFrom(juno, kCrLf, i)) {
        const std::string_view rest = juno.substr(i - 1);
        if (rest.starts_with(kNameKey)) {
            i += kNameKey.size();
            list.append("\"").append(TakeUntil(juno, i, kCrLf)).append("\" ");
        } else if (rest.starts_with(kEmailKey)) {
            i += kEmailKey.size();
            list.append("<").append(TakeUntil(juno, i, kCrLf)).append(">").append(kCrLf);
        } else {
            ++i;
        }
    }
    return list;
}

}  // namespace orvik
