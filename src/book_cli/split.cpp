#include "book_cli/split.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace orvik::book_cli {
namespace {

// Records that stay together.
class Clusters {
 public:
    explicit Clusters(std::size_t records) : parents_(records), sizes_(records, 1) {
        std::iota(parents_.begin(), parents_.end(), std::size_t{0});
    }

    std::size_t RootOf(std::size_t record) {
        while (parents_[record] != record) {
            parents_[record] = parents_[parents_[record]];
            record = parents_[record];
        }
        return record;
    }
    [[nodiscard]] std::size_t SizeAt(std::size_t root) const { return sizes_[root]; }

    // Joins a list with its members, unless they are more than there may be.
    bool Join(const ListGroup& list, std::size_t most) {
        std::vector<std::size_t> roots = {RootOf(list.List)};
        for (const std::size_t member : list.Members) {
            roots.push_back(RootOf(member));
        }
        std::sort(roots.begin(), roots.end());
        roots.erase(std::unique(roots.begin(), roots.end()), roots.end());
        std::size_t size = 0;
        for (const std::size_t root : roots) {
            size += sizes_[root];
        }
        if (size > most) {
            return false;
        }
        const std::size_t largest =
            *std::max_element(roots.begin(), roots.end(), [this](std::size_t a, std::size_t b) {
                return sizes_[a] < sizes_[b];
            });
        for (const std::size_t root : roots) {
            parents_[root] = largest;
        }
        sizes_[largest] = size;
        return true;
    }

 private:
    std::vector<std::size_t> parents_;
    std::vector<std::size_t> sizes_;
};

// Joins the lists that can be, and returns the others.
std::vector<std::size_t> JoinAll(Clusters& clusters,
                                 std::size_t most,
                                 std::span<const ListGroup> lists) {
    std::vector<const ListGroup*> shortest_first;
    for (const ListGroup& one : lists) {
        shortest_first.push_back(&one);
    }
    std::stable_sort(shortest_first.begin(),
                     shortest_first.end(),
                     [](const ListGroup* one, const ListGroup* other) {
                         return one->Members.size() < other->Members.size();
                     });
    std::vector<std::size_t> torn;
    for (const ListGroup* const one : shortest_first) {
        if (!clusters.Join(*one, most)) {
            torn.push_back(one->List);
        }
    }
    std::sort(torn.begin(), torn.end());
    return torn;
}

}  // namespace

Layout LayOut(std::size_t records, std::size_t most, std::span<const ListGroup> lists) {
    Clusters clusters(records);
    Layout layout;
    layout.Torn = JoinAll(clusters, most, lists);
    std::vector<std::vector<std::size_t>> together(records);
    for (std::size_t i = 0; i < records; ++i) {
        together[clusters.RootOf(i)].push_back(i);
    }
    auto& files = layout.Files;
    // What belongs together comes first; the rest fills the files up.
    for (std::size_t i = 0; i < records; ++i) {
        const auto& cluster = together[clusters.RootOf(i)];
        if (cluster.size() > 1 && cluster.front() == i) {
            if (files.empty() || files.back().size() + cluster.size() > most) {
                files.emplace_back();
            }
            files.back().insert(files.back().end(), cluster.begin(), cluster.end());
        }
    }
    std::vector<bool> is_torn(records, false);
    for (const std::size_t list : layout.Torn) {
        is_torn[list] = true;
    }
    std::size_t file = 0;
    const auto fill = [&](std::size_t record) {
        while (file < files.size() && files[file].size() == most) {
            ++file;
        }
        if (file == files.size()) {
            files.emplace_back();
        }
        files[file].push_back(record);
    };
    for (std::size_t i = 0; i < records; ++i) {
        if (clusters.SizeAt(clusters.RootOf(i)) == 1 && !is_torn[i]) {
            fill(i);
        }
    }
    for (auto& one : files) {
        std::sort(one.begin(), one.end());
    }
    for (const std::size_t list : layout.Torn) {
        if (clusters.SizeAt(clusters.RootOf(list)) == 1) {
            fill(list);
        }
    }
    return layout;
}

std::vector<std::string> PartNames(const std::string& name, std::size_t count) {
    const std::size_t dot = name.find_last_of("./");
    const bool has_ending = dot != std::string::npos && name[dot] == '.';
    const std::size_t cut = has_ending ? dot : name.size();
    const std::size_t digits = std::to_string(count).size();
    std::vector<std::string> names;
    names.reserve(count);
    for (std::size_t i = 1; i <= count; ++i) {
        std::string number = std::to_string(i);
        number.insert(0, digits - number.size(), '0');
        names.push_back(name.substr(0, cut) + "-" + number + name.substr(cut));
    }
    return names;
}

}  // namespace orvik::book_cli
