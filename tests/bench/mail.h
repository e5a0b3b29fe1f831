// Mail to measure with: the same messages each time.

#pragma once

#include <cstddef>
#include <string>

namespace orvik::bench {

// The line before a message in an mbox.
[[nodiscard]] std::string MarkerOf(std::size_t number);

// A message as people write and programs send them: plain text, quoted-printable beside HTML,
// base64, answers with quotations, one in eight with a picture of 30 kB.
[[nodiscard]] std::string MessageOf(std::size_t number);

// A short letter between two people who are in no other one: the most people that mail can have.
[[nodiscard]] std::string LetterOf(std::size_t number);

}  // namespace orvik::bench
