// What orvik-book find tells of its search: to a person, and in a report.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "book/mail/mail_search.h"
#include "book_cli/book_arguments.h"
#include "book_cli/console.h"
#include "cli/exit_status.h"

namespace orvik::book_cli {

// What was found, besides the people that are written.
struct FindCounts {
    std::size_t Addresses = 0;
    std::size_t Twice = 0;  // seen twice or more
    std::size_t NoReply = 0;
    std::size_t Mine = 0;
};

// FoundText: the search in two lines, and what was left out only if there is any.
//   "51 798 messages, 102 MB: 104 596 addresses, 5 231 seen twice or more"
//   "left out: 51 798 Message-IDs, 212 no-reply, 3 in undecodable parts (listed with --report)"
[[nodiscard]] std::string FoundText(const book::SearchTotals& totals,
                                    const FindCounts& counts,
                                    bool has_report);

// Follows a search: names what cannot be read, shows how far it is, and keeps the report.
class FindTold {
 public:
    // Both must outlive this.
    FindTold(Console& console, bool has_report) : console_(console), has_report_(has_report) {}

    void Begin();
    void Take(const book::SearchNote& note);
    void ShowHowFar(const std::string& path,
                    std::size_t messages,
                    std::uint64_t done,
                    std::uint64_t all) const;
    // An address that is left out, which was seen first there.
    void AddLeftOut(const std::string& place, const std::string& address, const char* reason);
    // Says what was not told each.
    void End();

    [[nodiscard]] const std::string& Report() const { return report_; }
    // Of the first file that could not be read, or of what could not be decoded.
    [[nodiscard]] cli::ExitStatus Status() const { return status_; }

 private:
    void TakeWalk(const book::SearchNote& note);
    void TellPart(const book::SearchNote& note);
    void AddLine(const std::string& line);

    Console& console_;
    bool has_report_;
    std::string report_;
    std::size_t lines_ = 0;
    std::array<std::size_t, 2> told_{};
    std::size_t failed_ = 0;  // files and folders that could not be read
    cli::ExitStatus status_ = cli::ExitStatus::Done;
};

}  // namespace orvik::book_cli
