// Looks through mail for people: folders, messages and texts, one after the other.

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include "book/mail/mail_walk.h"
#include "book/mail/mbox.h"
#include "book/mail/message_reader.h"
#include "book/mail/people.h"
#include "platform/file_system.h"

namespace orvik::book {

struct SearchOptions {
    bool HeadersOnly = false;
    // Mail from before is left out, and what has no date; kNoTime for all.
    MailTime Since = kNoTime;
};

// How much was looked at, and what was left out.
struct SearchTotals {
    std::size_t Messages = 0;
    std::size_t Texts = 0;  // files that are no mail
    std::uint64_t Bytes = 0;
    std::size_t Ids = 0;
    std::size_t Undecodable = 0;
    std::size_t Encrypted = 0;
    std::size_t Binary = 0;
    std::size_t Deleted = 0;     // messages that no mail program shows; not among Messages
    std::size_t FolderData = 0;  // nor are what servers write into folders
    std::size_t Older = 0;       // messages from before Since
    std::size_t Undated = 0;     // messages and texts without a date, where one is asked for
    std::size_t Links = 0;
};

// What is told of a search as it goes on.
struct SearchNote {
    enum class Kind : std::uint8_t { Undecodable, Encrypted, TooLong, Binary, Unseen, Walk };
    Kind What = Kind::Walk;
    const std::string& Path;
    std::size_t Line = 0;  // on which the message begins in its file, 0 for none
    std::string Part;
    std::string Message;  // its identifier
    std::string Reason;
    WalkNote Walk = WalkNote::Failed;
    std::error_code Error = {};
};

class MailSearch {
 public:
    struct Listener {
        std::function<void(const SearchNote& note)> Tell;
        // A file is begun, and so many of its bytes are read.
        std::function<void(const std::string& path)> Begin;
        std::function<void(std::uint64_t done, std::uint64_t all)> HowFar;
    };

    MailSearch(FileSystem& files, const SearchOptions& options, Listener listener);

    // Looks at one file of a walk.
    void Look(const MailWalk::File& file);
    // What a walk leaves out.
    void Pass(const std::string& path, WalkNote note, std::error_code error);

    [[nodiscard]] const People& Found() const { return people_; }
    [[nodiscard]] const SearchTotals& Totals() const { return totals_; }

 private:
    void LookAtFolder(const MailWalk::File& file, const NextPiece& next);
    void LookAtMessage(const MailWalk::File& file, const NextPiece& next);
    void LookAtText(const MailWalk::File& file, const NextPiece& next);
    void LookAtWide(const MailWalk::File& file, const NextPiece& next);
    void TakeMessage(const MailWalk::File& file,
                     std::string_view text,
                     std::string_view marker,
                     std::size_t line);
    // Whether a message is passed over, which is told.
    bool IsPassedOver(const MailWalk::File& file, std::string_view text, std::size_t line);
    void TakeText(const MailWalk::File& file, const MailFindings& findings);
    void TakeRest(const MailWalk::File& file, std::string_view text, std::size_t line);
    void Keep(const MailWalk::File& file, const MailFindings& findings);

    FileSystem& files_;
    SearchOptions options_;
    Listener listener_;
    MessageReader reader_;
    People people_;
    SearchTotals totals_;
    // The date of the message whose rest comes, and whether it is left out.
    MailTime last_time_ = kNoTime;
    bool last_left_out_ = false;
};

// Looks through files and folders, in their order; what is called so in avoid is passed over.
void SearchMail(FileSystem& files,
                const std::vector<std::string>& paths,
                const std::vector<std::string>& avoid,
                MailSearch& search);

}  // namespace orvik::book
