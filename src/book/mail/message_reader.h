// Reads a message for the people that it names, by GMime. Nothing that it refers to is opened.

#pragma once

#include <memory>
#include <string_view>

#include "book/mail/mail_findings.h"

namespace orvik::book {

class MessageReader {
 public:
    // With headers_only texts are not looked at; enclosed messages neither.
    explicit MessageReader(bool headers_only);
    MessageReader(const MessageReader&) = delete;
    MessageReader& operator=(const MessageReader&) = delete;
    MessageReader(MessageReader&&) = delete;
    MessageReader& operator=(MessageReader&&) = delete;
    ~MessageReader();

    // Any bytes. marker is the line "From ..." before the message in a folder, or empty; it has a
    // date where the header has none.
    [[nodiscard]] MailFindings Read(std::string_view message, std::string_view marker);

    // A text that is no message, or what was too long of one: adds what stands there.
    void ReadText(std::string_view text, MailFindings& findings);

 private:
    class Walk;
    struct Library;
    std::unique_ptr<Library> library_;
    bool headers_only_;
};

}  // namespace orvik::book
