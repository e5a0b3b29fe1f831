#include "book_cli/targets.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace orvik::book_cli {
namespace {

using book::Dialect;
using book::LdifAttributes;

constexpr std::array kAnyForms = {
    AnyForm{".vcf", Dialect::VCard30},
    AnyForm{".vcf", Dialect::VCard40},
    AnyForm{".ldif", Dialect::Ldif},
    AnyForm{".ldif", Dialect::Ldif, LdifAttributes::Mozilla},
    AnyForm{".ldif", Dialect::Ldif, LdifAttributes::Netscape},
    AnyForm{".ldif", Dialect::Ldif, LdifAttributes::KContacts},
    AnyForm{".ldif", Dialect::Ldif, LdifAttributes::Evolution},
    AnyForm{".htm", Dialect::Netscape3},
    AnyForm{".nv", Dialect::Juno},
    AnyForm{".pml", Dialect::PegasusList},
    AnyForm{".txt", Dialect::PlainList},
};

std::string_view WithoutFolder(std::string_view name) {
    return name.substr(name.find_last_of('/') + 1);
}

// A name that is all ending is none.
std::string_view WithoutEnding(std::string_view name) {
    const std::size_t dot = name.find_last_of('.');
    return dot == std::string_view::npos || dot == 0 ? name : name.substr(0, dot);
}

}  // namespace

std::span<const AnyForm> AnyForms() {
    return kAnyForms;
}

std::string EndedAs(std::string_view ending, std::string name) {
    if (!EndsAs(ending, name)) {
        name.append(ending);
    }
    return name;
}

std::string NameFor(std::span<const std::string> sources,
                    std::string_view whom,
                    std::string_view ending) {
    const bool known = !sources.empty() && sources.front() != kStandardStream;
    const std::string_view first = known ? WithoutEnding(WithoutFolder(sources.front())) : "";
    std::string name(first.empty() ? "addresses" : first);
    if (sources.size() > 1) {
        name += "-and-" + std::to_string(sources.size() - 1) + "-more";
    }
    if (!whom.empty()) {
        name.append("-").append(whom);
    }
    const auto is_source = [&] {
        return std::any_of(sources.begin(), sources.end(), [&](const std::string& one) {
            return WithoutFolder(one) == name + std::string(ending);
        });
    };
    while (is_source()) {
        name += "-new";
    }
    return name.append(ending);
}

}  // namespace orvik::book_cli
