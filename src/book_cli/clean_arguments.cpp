#include "book_cli/clean_arguments.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "book_cli/option_checks.h"

namespace orvik::book_cli {
namespace {

using book::SortBy;

constexpr std::array<std::pair<std::string_view, SortBy>, 5> kOrders = {
    {{"name", SortBy::Name},
     {"family", SortBy::Family},
     {"address", SortBy::Address},
     {"domain", SortBy::Domain},
     {"none", SortBy::None}}};

std::string CheckLocale(const std::string& name) {
    return book::IsLocale(name) ? "" : "nobody knows the locale " + name;
}

// The order that people here expect.
std::string LocaleOfTheUser() {
    for (const char* const name : {"LC_ALL", "LC_COLLATE", "LANG"}) {
        const char* const value = std::getenv(name);
        if (value != nullptr && *value != '\0') {
            return book::IsLocale(value) ? value : "";
        }
    }
    return {};
}

}  // namespace

void CleanOptions::AddToDupes(CLI::App* verb) {
    Single(verb->add_option("--plan", plan_, "Write what was found as a plan to be edited"))
        ->type_name("FILE")
        ->check(&CheckNoStream);
    AddMerge(verb);
}

void CleanOptions::AddToClean(CLI::App* verb) {
    verb->get_option("FILES")->required(false);
    Single(verb->add_option("--plan", plan_, "Do what a plan says, with the files that it names"))
        ->type_name("FILE")
        ->check(&CheckNoStream);
    AddMerge(verb);
    AddOrder(verb);
}

void CleanOptions::AddMerge(CLI::App* verb) {
    Single(verb->add_option("--merge", merge_, "Merge those who agree without asking, too"))
        ->type_name("agree")
        ->check(CLI::IsMember({"agree"}));
}

void CleanOptions::AddOrder(CLI::App* verb) {
    std::vector<std::string> names;
    names.reserve(kOrders.size());
    for (const auto& [name, order] : kOrders) {
        names.emplace_back(name);
    }
    Single(verb->add_option("--sort", sort_, "Sort by name, family, address, domain or none"))
        ->type_name("ORDER")
        ->check(CLI::IsMember(names));
    Single(verb->add_option("--locale", locale_, "Sort names as people there do, as de or sv_SE"))
        ->type_name("LOCALE")
        ->check(&CheckLocale);
}

void CleanOptions::Take(Arguments& arguments) const {
    const auto* const order = std::find_if(
        kOrders.begin(), kOrders.end(), [this](const auto& one) { return one.first == sort_; });
    arguments.Sort = order->second;
    arguments.Locale = locale_.empty() ? LocaleOfTheUser() : locale_;
    arguments.Plan = plan_;
    arguments.MergesAgreeing = !merge_.empty();
    if (arguments.What == Verb::Dupes || arguments.What == Verb::Clean) {
        CheckFiles(arguments);
    }
    if (arguments.What == Verb::Dupes) {
        arguments.Output = plan_.empty() ? kStandardStream : plan_;
    }
}

void CleanOptions::CheckFiles(const Arguments& arguments) const {
    const bool planned = arguments.What == Verb::Clean && !plan_.empty();
    if (planned && !arguments.Files.empty()) {
        throw CLI::ValidationError("--plan", "the plan names its files itself");
    }
    if (planned && !merge_.empty()) {
        throw CLI::ValidationError("--merge", "the plan says what is merged");
    }
    if (!planned && arguments.Files.empty()) {
        throw CLI::ValidationError("clean", "needs --plan FILE, or address books");
    }
    // A plan names a record by its file.
    std::unordered_set<std::string_view> there;
    for (const std::string& name : arguments.Files) {
        if (!there.insert(name).second) {
            throw CLI::ValidationError(name, "is named twice");
        }
    }
}

}  // namespace orvik::book_cli
