#include "bench/mail.h"

#include <array>
#include <string_view>

#include "book/transfer.h"

namespace orvik::bench {
namespace {

constexpr std::array<std::string_view, 8> kFirst = {
    "Mary", "John", "Anne-Marie", "Li", "Fatima", "Oluwaseun", "Jo", "Alexander"};
constexpr std::array<std::string_view, 7> kLast = {
    "Miller", "Obrien", "Ng", "Garcia", "Papadopoulos", "Lee", "Berg"};
constexpr std::array<std::string_view, 4> kHosts = {
    "mail.example", "example.org", "students.university.example", "x.example"};
constexpr std::size_t kPeople = 20'000;

std::string NameOf(std::size_t number) {
    return std::string(kFirst[number % kFirst.size()]) + " " +
           std::string(kLast[number % kLast.size()]);
}

std::string AddressOf(std::size_t number) {
    const std::size_t who = number % kPeople;
    return std::string(kLast[who % kLast.size()]) + std::to_string(who) + "@" +
           std::string(kHosts[who % kHosts.size()]);
}

std::string Text(std::size_t number, std::string_view end) {
    std::string text;
    for (std::size_t i = 0; i < 25; ++i) {
        text.append("We met at the meeting of May, and the choir sang as never before")
            .append(i % 5 == 0 ? ", said " + std::to_string(number) : "")
            .append(".")
            .append(end);
    }
    return text + "Write to " + AddressOf(number * 7) + " for the notes" + std::string(end);
}

std::string Lines(const std::string& base64) {
    std::string lines;
    for (std::size_t i = 0; i < base64.size(); i += 76) {
        lines.append(base64, i, 76).append("\n");
    }
    return lines;
}

std::string Picture(std::size_t number) {
    std::string bytes;
    for (std::size_t i = 0; i < 22'000; ++i) {
        bytes += static_cast<char>((i * 31 + number) % 251);
    }
    return "Content-Type: image/png; name=\"choir@2x.png\"\nContent-Transfer-Encoding: base64\n\n" +
           Lines(book::ToBase64(bytes));
}

std::string Html(std::size_t number) {
    std::string html = "<html><head><style>p { color: black }</style></head><body>\n";
    for (std::size_t i = 0; i < 25; ++i) {
        html += "<p class=3D\"text\">We met at the meeting of <b>May</b>, and sang.</p>=\n<br>\n";
    }
    return html + "<a href=3D\"mailto:" + AddressOf(number * 7) + "\">notes</a></body></html>\n";
}

std::string BodyOf(std::size_t number) {
    const std::string plain = "Content-Type: text/plain; charset=utf-8\n";
    switch (number % 4) {
        case 0:
            return plain + "\n" + Text(number, "\n");
        case 1:
            return "Content-Type: multipart/alternative; boundary=\"bound\"\n\n--bound\n" + plain +
                   "Content-Transfer-Encoding: quoted-printable\n\n" + Text(number, "=20=\n\n") +
                   "--bound\nContent-Type: text/html; charset=utf-8\n"
                   "Content-Transfer-Encoding: quoted-printable\n\n" +
                   Html(number) + "--bound--\n";
        case 2:
            return plain + "Content-Transfer-Encoding: base64\n\n" +
                   Lines(book::ToBase64(Text(number, "\r\n")));
        default:
            return "Content-Type: text/plain; charset=iso-8859-1\n\n" + NameOf(number + 1) + " <" +
                   AddressOf(number + 1) + "> wrote:\n> " + Text(number, "\n> ") +
                   "Gr\xFC\xDF"
                   "e\n";
    }
}

}  // namespace

std::string MarkerOf(std::size_t number) {
    return "From " + AddressOf(number) + " Thu Jan  1 10:00:00 1998\n";
}

std::string MessageOf(std::size_t number) {
    const std::string digits = std::to_string(number);
    std::string message =
        "Return-Path: <" + AddressOf(number) +
        ">\nReceived: from a.example by b.example with SMTP "
        "id A" +
        digits + "\n\tfor <" + AddressOf(number + 1) +
        ">; Thu, 1 Jan 1998 10:00:00 +0100\nMessage-ID: <1998." + digits +
        "@mail.example>\nDate: Thu, 1 Jan 1998 10:00:00 +0100\nFrom: " + NameOf(number) + " <" +
        AddressOf(number) + ">\nTo: \"" + NameOf(number + 1) + "\" <" + AddressOf(number + 1) +
        ">, " + AddressOf(number + 2) + "\nSubject: =?utf-8?q?M=C3=BCller_" + digits +
        "?=\nMIME-Version: 1.0\n";
    if (number % 8 == 7) {
        return message + "Content-Type: multipart/mixed; boundary=\"mixed\"\n\n--mixed\n" +
               BodyOf(number) + "--mixed\n" + Picture(number) + "--mixed--\n";
    }
    return message + BodyOf(number);
}

std::string LetterOf(std::size_t number) {
    const std::string digits = std::to_string(number);
    std::string letter =
        "Received: from x by y; Thu, 1 Jan 1998 10:00:00 +0000\nMessage-ID: <1998." + digits +
        "@mail.example>\nDate: Thu, 1 Jan 1998 10:00:00 +0000\nFrom: " + NameOf(number) + " <from" +
        digits + "@mail.example>\nTo: \"" + NameOf(number + 1) + "\" <to" + digits +
        "@example.org>\nSubject: letter " + digits + "\n\n";
    for (std::size_t i = 0; i < 24; ++i) {
        letter += "We met at the meeting of May, and the choir sang as never before.\n";
    }
    return letter;
}

}  // namespace orvik::bench
