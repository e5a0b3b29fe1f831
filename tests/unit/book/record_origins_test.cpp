#include "book/record_origins.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

namespace orvik::book {
namespace {

constexpr std::uint32_t kNobody = RecordOrigins::kNobody;

Contact At(std::uint32_t file, std::uint32_t line, std::uint32_t lines) {
    Contact contact;
    contact.From = {file, line, lines, 0, 0};
    return contact;
}

TEST(RecordOriginsTest, LinesOfFiles) {
    std::deque<Contact> contacts = {At(0, 2, 3), At(0, 6, 1), At(1, 1, 2), At(0, 0, 0)};
    RecordOrigins records(contacts);
    EXPECT_EQ(records.RecordAt(0, 2), kNobody);
    records.Grow();
    EXPECT_EQ(records.RecordAt(0, 1), kNobody);
    EXPECT_EQ(records.RecordAt(0, 2), 0U);
    EXPECT_EQ(records.RecordAt(0, 4), 0U);
    EXPECT_EQ(records.RecordAt(0, 5), kNobody);
    EXPECT_EQ(records.RecordAt(0, 6), 1U);
    EXPECT_EQ(records.RecordAt(0, 7), kNobody);
    EXPECT_EQ(records.RecordAt(0, 0), kNobody);
    EXPECT_EQ(records.RecordAt(1, 2), 2U);
    EXPECT_EQ(records.RecordAt(2, 1), kNobody);
    EXPECT_EQ(records.LastBegun(0, 5), 0U);
    EXPECT_EQ(records.LastBegun(0, 1), kNobody);
    EXPECT_EQ(records.LastBegun(1, 900), 2U);
    contacts.push_back(At(2, 1, 1));
    records.Grow();
    EXPECT_EQ(records.RecordAt(2, 1), 4U);
}

TEST(RecordOriginsTest, ListsBehindTheirMembersAndSeveralOnALine) {
    const std::deque<Contact> contacts = {
        At(0, 5, 1), At(0, 6, 1), At(0, 4, 1), At(0, 6, 1), At(0, 6, 1)};
    RecordOrigins records(contacts);
    records.Grow();
    EXPECT_EQ(records.RecordAt(0, 4), 2U);
    EXPECT_EQ(records.RecordAt(0, 5), 0U);
    EXPECT_EQ(records.RecordAt(0, 6), 1U);
}

// The same as going through all of them.
TEST(RecordOriginsTest, AgreesWithALiteralSearch) {
    std::mt19937 engine(7);
    const auto random = [&engine](std::uint32_t below) {
        return static_cast<std::uint32_t>(engine() % below);
    };
    for (int run = 0; run < 200; ++run) {
        std::deque<Contact> contacts;
        for (std::uint32_t file = 0; file < 3; ++file) {
            std::uint32_t line = 1 + random(3);
            while (random(8) != 0) {
                const std::uint32_t lines = random(4);
                contacts.push_back(At(file, line, lines));
                line += std::max(lines, 1U) + random(3);
            }
        }
        std::shuffle(contacts.begin(), contacts.end(), engine);
        RecordOrigins records(contacts);
        records.Grow();
        std::size_t near = 0;
        for (std::uint32_t file = 0; file < 4; ++file) {
            for (std::uint32_t line = 0; line < 60; ++line) {
                std::uint32_t wanted = kNobody;
                for (std::uint32_t i = 0; i < contacts.size(); ++i) {
                    const Origin& from = contacts[i].From;
                    if (from.File == file && line >= from.Line && line < from.Line + from.Lines) {
                        wanted = i;
                    }
                }
                ASSERT_EQ(records.RecordAt(file, line), wanted) << file << ":" << line;
                ASSERT_EQ(records.RecordAt(file, line, near), wanted);
                // From anywhere it is the same.
                std::size_t somewhere = random(20);
                ASSERT_EQ(records.RecordAt(file, line, somewhere), wanted);
            }
        }
    }
}

}  // namespace
}  // namespace orvik::book
