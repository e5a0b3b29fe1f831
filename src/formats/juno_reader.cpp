#include "formats/juno_reader.h"

#include <utility>

#include "app/text.h"
#include "formats/keyed_lines.h"

namespace orvik {
namespace {

struct JunoList {
    std::string List;

    void Nickname(std::string_view name) { List.append("\"").append(name).append("\" "); }
    void Address(std::string_view email) {
        List.append("<").append(email).append(">").append(kCrLf);
    }
    void EmptyLine() {}
};

}  // namespace

std::string ReadJuno(std::string_view juno, UnreadEntries* left_out) {
    JunoList maker;
    ReadKeyedLines(juno, JunoLines(), maker, left_out);
    return std::move(maker.List);
}

}  // namespace orvik
