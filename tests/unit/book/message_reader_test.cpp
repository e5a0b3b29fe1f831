#include "book/mail/message_reader.h"

#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "book/mail/mail_kind.h"
#include "book/mail/part_kind.h"

namespace orvik::book {
namespace {

// "From:Ada <a@b.example> body:c@d.example", and notes in brackets.
std::string PeopleOf(const std::string& message, bool headers_only = false) {
    MessageReader reader(headers_only);
    const MailFindings findings = reader.Read(message, {});
    std::string text;
    for (const Mention& one : findings.Mentions) {
        text += (text.empty() ? "" : " ") + std::string(NameOf(one.Field)) + ":" + one.Name +
                (one.Name.empty() ? "" : " ") + "<" + one.Address + ">";
    }
    for (const PartNote& one : findings.Notes) {
        text += " [" + one.Part + " " + one.Reason + "]";
    }
    return text;
}

struct MessageCase {
    const char* What;
    std::string Message;
    const char* People;
};

void Check(const std::vector<MessageCase>& cases) {
    for (const MessageCase& one : cases) {
        EXPECT_EQ(one.People, PeopleOf(one.Message)) << one.What;
    }
}

TEST(MessageReader, ReadsTheHeadersOfPeople) {
    Check({
        {"each",
         "From: a@x.example\nSender: b@x.example\nReply-To: c@x.example\nTo: d@x.example\n"
         "CC: e@x.example\nBcc: f@x.example\nResent-To: g@x.example\n\n",
         "From:<a@x.example> Sender:<b@x.example> Reply-To:<c@x.example> To:<d@x.example> "
         "Cc:<e@x.example> Bcc:<f@x.example> Resent:<g@x.example>"},
        {"no others",
         "Return-Path: <a@x.example>\nReceived: for <b@x.example>\nX-To: c@x.example\n"
         "List-Post: <mailto:d@x.example>\nDelivered-To: e@x.example\nErrors-To: f@x.example\n"
         "Message-ID: <g@x.example>\nReferences: <h@x.example>\nSubject: i@x.example\n\n",
         ""},
        {"folded",
         "To: Ada\n Abbott\n\t<a@x.example>,\n b@x.example\n\n",
         "To:Ada Abbott <a@x.example> To:<b@x.example>"},
        {"encoded",
         "From: =?iso-8859-1?q?J=F6rg?=\n =?utf-8?b?IE3DvGxsZXI=?= <a@x.example>\n\n",
         "From:J\xC3\xB6rg M\xC3\xBCller <a@x.example>"},
        {"encoded in quotes",
         "From: \"=?utf-8?q?J=C3=B6rg?=\" <a@x.example>\n\n",
         "From:J\xC3\xB6rg <a@x.example>"},
        {"bytes of windows-1252",
         "From: J\xF6rg <a@x.example>\n\n",
         "From:J\xC3\xB6rg <a@x.example>"},
        {"a group",
         "To: Crew: a@x.example, Bo <b@x.example>;, c@x.example\n\n",
         "To:<a@x.example> To:Bo <b@x.example> To:<c@x.example>"},
        {"an empty group", "To: undisclosed-recipients:;\n\n", ""},
        {"comments",
         "From: a@x.example (Ada \\) Abbott)\nTo: (x) b(y)@x.example\n\n",
         "From:Ada ) Abbott <a@x.example> To:<b@x.example>"},
        {"blanks in brackets", "From: Ada < a @ x . example >\n\n", "From:Ada <a@x.example>"},
        {"quotes around all", "From: 'Ada' <'a@x.example'>\n\n", "From:Ada <a@x.example>"},
        {"no brackets", "From: Ada Abbott a@x.example\n\n", "From:<a@x.example>"},
        {"square brackets", "From: Ada [a@x.example]\n\n", "From:<a@x.example>"},
        {"a link", "From: <mailto:a@x.example>\n\n", "From:<a@x.example>"},
        {"other letters",
         "From: a@b\xC3\xBC"
         "cher.example\n\n",
         "From:<a@b\xC3\xBC"
         "cher.example>"},
        {"twice", "To: a@x.example\nTo: b@x.example\n\n", "To:<a@x.example> To:<b@x.example>"},
        {"CRLF",
         "From: a@x.example\r\nTo: b@x.example\r\n\r\nc@x.example\r\n",
         "From:<a@x.example> To:<b@x.example> body:<c@x.example>"},
    });
}

TEST(MessageReader, ReadsTextsInAnyCodingAndSet) {
    Check({
        {"quoted-printable",
         "Content-Type: text/plain\nContent-Transfer-Encoding: "
         "quoted-printable\n\na=40x.exam=\nple\n",
         "body:<a@x.example>"},
        {"base64",
         "Content-Type: text/plain\nContent-Transfer-Encoding: base64\n\nYUB4LmV4YW1w\nbGU=\n",
         "body:<a@x.example>"},
        {"base64 with a footer",
         "Content-Type: text/plain\nContent-Transfer-Encoding: "
         "BASE64\n\nYUB4LmV4YW1wbGU=\n____\nlist: b@x.example\n",
         "body:<a@x.example> body:<b@x.example> [1 (text/plain) holds lines that are no base64]"},
        {"an encoding that nobody knows",
         "Content-Type: text/plain\nContent-Transfer-Encoding: x-foo\n\na@x.example\n",
         "body:<a@x.example> [1 (text/plain) nobody knows the encoding x-foo]"},
        {"uuencode",
         "Content-Type: text/plain\nContent-Transfer-Encoding: x-uuencode\n\nbegin 644 "
         "x\n+84!X+F5X86UP;&4 \n`\nend\n",
         "body:<a@x.example>"},
        {"UTF-16",
         "Content-Type: text/plain; charset=utf-16le\nContent-Transfer-Encoding: "
         "base64\n\nYQBAAHgALgBlAHgAYQBtAHAAbABlAA==\n",
         "body:<a@x.example>"},
        {"UTF-7",
         "Content-Type: text/plain; charset=utf-7\n\na+AEA-x.example\n",
         "body:<a@x.example>"},
        {"ISO-2022-JP",
         "Content-Type: text/plain; charset=iso-2022-jp\n\n\x1B$B@@A@\x1B(B a@x.example\n",
         "body:<a@x.example>"},
        {"Latin letters",
         "Content-Type: text/plain; charset=iso-8859-1\n\na@b\xFC"
         "cher.example\n",
         "body:<a@b\xC3\xBC"
         "cher.example>"},
        {"a set that nobody knows",
         "Content-Type: text/plain; charset=klingon\n\n\xE9 a@x.example\n",
         "body:<a@x.example> [1 (text/plain) nobody knows the character set klingon]"},
        {"HTML",
         "Content-Type: text/html\n\n<a href=\"mailto:b@x.example\">a<b>@x.example</b></a>\n",
         "body:<b@x.example> body:<a@x.example>"},
        {"a calendar",
         "Content-Type: text/calendar\n\nUID:1@x.example\nATTENDEE:mailto:a@x.exam\n ple\n",
         "body:<a@x.example>"},
        {"no type", "Subject: x\n\na@x.example\n", "body:<a@x.example>"},
        {"no header", "a@x.example\nb@x.example\n", "body:<a@x.example> body:<b@x.example>"},
        {"nothing", "", ""},
    });
}

const std::string kMixed = "Content-Type: multipart/mixed; boundary=b\n\n";

TEST(MessageReader, ReadsTheParts) {
    Check({
        {"texts",
         kMixed + "--b\n\na@x.example\n--b\nContent-Type: "
                  "text/html\n\nb@x.example\n--b--\nc@x.example\n",
         "body:<a@x.example> body:<b@x.example> body:<c@x.example>"},
        {"no pictures",
         kMixed + "--b\nContent-Type: image/png; name=\"a@x.example\"\nContent-ID: "
                  "<c@x.example>\n\nb@x.example\n--b--\n",
         ""},
        {"an enclosed message",
         kMixed + "--b\nContent-Type: message/rfc822\n\nFrom: Ada <a@x.example>\nMessage-ID: "
                  "<i@x.example>\n\nb@x.example\n--b--\n",
         "From:Ada <a@x.example> body:<b@x.example>"},
        {"an enclosed message in base64",
         kMixed + "--b\nContent-Type: message/rfc822\nContent-Transfer-Encoding: "
                  "base64\n\nRnJvbTogYUB4LmV4YW1wbGUKCng=\n--b--\n",
         "From:<a@x.example>"},
        {"one that is none",
         kMixed + "--b\nContent-Type: message/rfc822\n\nsee a@x.example here\n--b--\n",
         "body:<a@x.example>"},
        {"a header alone",
         kMixed + "--b\nContent-Type: text/rfc822-headers\n\nFrom: Ada <a@x.example>\nMessage-ID: "
                  "<i@x.example>\n--b--\n",
         "From:Ada <a@x.example>"},
        {"a file",
         kMixed + "--b\nContent-Type: application/octet-stream; name=\"x.eml\"\n\nFrom: "
                  "a@x.example\n\nx\n--b--\n",
         "From:<a@x.example>"},
        {"without its boundary", kMixed + "a@x.example\n", "body:<a@x.example>"},
        {"without a boundary at all",
         "Content-Type: multipart/mixed\n\n--x\nContent-ID: <i@x.example>\n\na@x.example\n",
         "body:<a@x.example>"},
        {"encrypted",
         "Content-Type: multipart/encrypted; boundary=b; "
         "protocol=\"application/pgp-encrypted\"\n\n--b\n\na@x.example\n--b--\n",
         " [1 (multipart/encrypted) is encrypted]"},
        {"encrypted in a text",
         "Content-Type: text/plain\n\na@x.example\n-----BEGIN PGP MESSAGE-----\n",
         "body:<a@x.example> [1 (text/plain) is encrypted]"},
        {"S/MIME",
         kMixed + "--b\nContent-Type: application/pkcs7-mime\n\nx\n--b--\n",
         " [1.1 (application/pkcs7-mime) is encrypted]"},
        {"a bounce",
         kMixed + "--b\nContent-Type: message/delivery-status\n\nFinal-Recipient: rfc822; "
                  "a@x.example\n--b--\n",
         "body:<a@x.example>"},
        {"an identifier in the text",
         "Message-ID: <i@x.example>\nReferences: <j@x.example>\n\nsee i@x.example and j@x.example "
         "and k@x.example\n",
         "body:<k@x.example>"},
    });
    EXPECT_EQ("From:<a@x.example>", PeopleOf("From: a@x.example\n\nb@x.example\n", true));
}

TEST(MessageReader, ReadsPartsThatAreTooDeepAsText) {
    std::string deep;
    for (int i = 0; i < 3000; ++i) {
        deep += "Content-Type: message/rfc822\n\n";
    }
    EXPECT_THAT(PeopleOf(deep + "From: a@x.example\nMessage-ID: <b@x.example>\n\n"),
                testing::StartsWith("body:<a@x.example> ["));
    std::string parts;
    for (int i = 0; i < 3000; ++i) {
        const std::string number = std::to_string(i);
        parts += "Content-Type: multipart/mixed; boundary=b" + number + "\n\n--b" + number + "\n";
    }
    EXPECT_THAT(PeopleOf(parts + "\na@x.example\n"), testing::StartsWith("body:<a@x.example> ["));
}

TEST(MessageReader, IsNotHarmedByMessages) {
    std::string groups = "To: ";
    std::string parts = "From: a@x.example\n" + kMixed + "b@x.example\n";
    for (int i = 0; i < 100'000; ++i) {
        groups += "a:";
        parts += "--b\n\n";
    }
    EXPECT_EQ("body:<c@x.example> [1 has too many groups to be mail]",
              PeopleOf(groups + " c@x.example\n\n"));
    EXPECT_EQ("From:<a@x.example> body:<b@x.example> [1 has too many parts to be mail]",
              PeopleOf(parts));
    EXPECT_EQ("From:<a@x.example> [1 has too many parts to be mail]", PeopleOf(parts, true));
}

TEST(MessageReader, KnowsTheDate) {
    MessageReader reader(false);
    EXPECT_EQ(883645200, reader.Read("Date: Thu, 1 Jan 1998 10:00:00 +0100\n\n", {}).Time);
    EXPECT_EQ(kNoTime, reader.Read("Date: soon\n\n", {}).Time);
    EXPECT_EQ(883648800, reader.Read("To: x\n\n", "From a@b Thu Jan  1 10:00:00 1998").Time);
    const MailFindings found =
        reader.Read("Date: Thu, 1 Jan 1998 10:00:00 +0100\n" + kMixed +
                        "--b\nContent-Type: message/rfc822\n\nDate: Thu, 1 Jan 1987 10:00:00 "
                        "+0000\nFrom: a@x.example\n\n--b\n\nb@x.example\n--b--\n",
                    {});
    ASSERT_EQ(2U, found.Mentions.size());
    EXPECT_EQ(536493600, found.Mentions[0].Time);
    EXPECT_EQ(883645200, found.Mentions[1].Time);
}

TEST(MailKind, IsWhatTheContentSays) {
    using enum MailKind;
    const struct {
        std::string Bytes;
        const char* Name;
        MailKind Kind;
    } cases[] = {
        {"From a Thu Jan  1 10:00:00 1998\nTo: x\n", "x", Folder},
        {"\n\nFrom \nTo: x\n", "x", Folder},
        {"\xEF\xBB\xBF"
         "From: a@x.example\n\n",
         "x",
         Message},
        {"Subject: x\n folded\n\nbody", "x.txt", Message},
        {"Colour: red\n\nbody", "x", Text},
        {"Colour: red\n\nbody", "x.EML", Message},
        {"Dear Al,\nTo: you\n", "x", Text},
        {"", "x", Text},
        {"\1\1\1\1\nTo: x\n", "x", Folder},
        {"12  \nTo: x\n\nbody<?xml?>", "1.emlx", Message},
        {"12  \nTo: x\n\nbody<?xml?>", "1", Text},
        {"Hello\n", "1.emlx", Text},
        {std::string("\x89PNG\0", 5), "x", Binary},
        {std::string("\xFF\xFE"
                     "a\0",
                     4),
         "x",
         WideText},
        {std::string("Subject: x\n\n\0", 13), "x", Message},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(one.Kind, KindOfMail(one.Bytes, one.Name)) << one.Bytes;
    }
}

TEST(MailKind, FindsTheMessageBetweenItsLengthAndAPropertyList) {
    EXPECT_EQ("To: x\n\nbody", EmlxMessage("11        \nTo: x\n\nbody<?xml?>"));
    EXPECT_EQ("To: x", EmlxMessage("99\r\nTo: x"));
    for (const char* const text : {"", "5", "\nTo: x", "To: x\n", "5 x\nTo: x", "-5\nTo: x"}) {
        EXPECT_EQ("", EmlxMessage(text)) << text;
    }
    EXPECT_EQ("", EmlxMessage("99999999999999999999999\nTo: x"));
}

}  // namespace
}  // namespace orvik::book
