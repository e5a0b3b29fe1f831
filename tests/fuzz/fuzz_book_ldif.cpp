// Reads any bytes as LDIF, and takes them to each format and back.

#include "fuzz/book_trip.h"
#include "fuzz/fuzz_target.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    orvik::fuzz::CheckTrips(orvik::book::ReadLdif, orvik::fuzz::TextOf(data, size));
    return 0;
}
