#include "formats/unread.h"

#include <chrono>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>

#include "app/working_text.h"
#include "formats/juno_writer.h"
#include "formats/ldif_writer.h"
#include "formats/netscape3_writer.h"
#include "formats/progress.h"
#include "unit/generated_texts.h"
#include "unit/written_books.h"

namespace orvik {

void PrintTo(const Unread& unread, std::ostream* out) {
    *out << unread.Attributes << " of " << unread.Entries;
}

namespace {

struct Row {
    const char* name;
    Format format;
    std::string file;
    Unread unread;
};

class CountUnreadTest : public testing::TestWithParam<Row> {};

TEST_P(CountUnreadTest, Row) {
    EXPECT_EQ(CountUnread(GetParam().format, GetParam().file), GetParam().unread);
}

std::string NameOf(const testing::TestParamInfo<Row>& row) {
    return row.param.name;
}

Row OfLdif(const char* name, const std::string& record, Unread unread) {
    return {name, Format::Netscape4, "dn: x\r\n" + record, unread};
}

constexpr const char* kAl = "xmozillanickname: Al\r\nmail: A1\r\nxnavusehtmlmail: TRUE\r\n";

INSTANTIATE_TEST_SUITE_P(
    Ldif,
    CountUnreadTest,
    testing::Values(
        OfLdif("NicknameAndAddress_AreRead", kAl, {0, 0}),
        OfLdif("Phone_IsNot", std::string(kAl) + "telephonenumber: 5\r\n", {1, 1}),
        OfLdif("SeveralOfOneEntry",
               std::string(kAl) + "telephonenumber: 5\r\ndescription: x\r\no: y\r\n",
               {3, 1}),
        OfLdif("SeveralEntries",
               std::string(kAl) + "o: y\r\n\r\ndn: x\r\n" + kAl + "\r\ndn: z\r\n" + kAl +
                   "o: y\r\nl: z\r\n",
               {3, 2}),
        OfLdif("EmptyAttribute_IsNoLoss", std::string(kAl) + "description: \r\no:\r\n", {0, 0}),
        OfLdif("NameThatIsTheNickname", std::string(kAl) + "cn: Al\r\ngivenname: Al\r\n", {0, 0}),
        OfLdif("NameThatIsNot", std::string(kAl) + "cn: Al Berg\r\nsn: Berg\r\n", {2, 1}),
        OfLdif("NamesOfWhichTheNicknameIsMade",
               "xmozillanickname: Berg, Al\r\nmail: A1\r\ncn: x\r\nsn: Berg\r\ngivenname: Al\r\n",
               {1, 1}),
        OfLdif("PartOfAWord_IsNotSaid",
               "xmozillanickname: Albert Bergman\r\nsn: Berg\r\ngivenname: bert\r\no: man\r\n",
               {3, 1}),
        OfLdif("NameThatIsTheAddress", "cn: A1\r\nmail: A1\r\n", {0, 0}),
        OfLdif("SecondAddress_RightBehindTheFirst", "mail: A1\r\nmail: A2\r\n", {1, 1}),
        OfLdif("SecondAddress_FartherDown", "mail: A1\r\no:\r\nmail: A2\r\n", {1, 1}),
        OfLdif("SecondNickname", "xmozillanickname: Al\r\nxmozillanickname: Bo\r\n", {1, 1}),
        OfLdif("NicknameRightBehindTheAddress_IsPassedOver",
               "mail: A1\r\nxmozillanickname: Al\r\n",
               {1, 1}),
        OfLdif("NicknameBehindTheEmptyLineBehindAnAddress_IsRead",
               "mail: A1\r\n\r\nxmozillanickname: Al\r\n",
               {0, 0}),
        OfLdif("EncodedAddress", "mail:: YQ==\r\n", {1, 1}),
        OfLdif("KeyInOtherCase", "Mail: A1\r\nmail:A2\r\n", {2, 1}),
        OfLdif("OwnKeysOfPrograms",
               std::string("version: 1\r\nobjectClass: top\r\nmodifytimestamp: 0Z\r\n") + kAl +
                   "xmozillauseconferenceserver: 0\r\nchangetype: add\r\n",
               {0, 0}),
        OfLdif("OptionOfAKey", std::string(kAl) + "cn;lang-de: x\r\ndn;x: y\r\n", {1, 1}),
        OfLdif("FoldedLine_IsOneAttribute",
               std::string(kAl) + "description: x\r\n y: z\r\n",
               {1, 1}),
        OfLdif("Comment_AndLineWithoutKey", std::string(kAl) + "# a: b\r\nx\r\n", {0, 0}),
        OfLdif("KeyAlone", std::string(kAl) + "o:\r\n:\r\n", {0, 0}),
        OfLdif("LastLineWithoutLineBreak", std::string(kAl) + "o: x", {1, 1}),
        OfLdif("Member", "member: cn=Al\r\nmember: cn=Bo\r\n", {2, 1}),
        OfLdif("LfInAValue_IsOfTheValue", "xmozillanickname: A\nl: x\r\nmail: A1\r\n", {0, 0}),
        Row{"FirstLine_IsNeverRead", Format::Netscape4, "mail: A1\r\n", {1, 1}},
        Row{"LineBreaksOfOtherSystems_GiveNothing",
            Format::Netscape4,
            "dn: x\nxmozillanickname: Al\nmail: A1\n\ndn: y\nmail: A2\n",
            {3, 2}},
        Row{"Empty", Format::Netscape4, "", {0, 0}}),
    NameOf);

Row OfHtml(const char* name, const std::string& entries, Unread unread) {
    return {name, Format::Netscape3, std::string(test::kNetscape3Head) + "\r\n" + entries, unread};
}

INSTANTIATE_TEST_SUITE_P(
    Html,
    CountUnreadTest,
    testing::Values(
        OfHtml("Link_IsRead", "<DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>\r\n<DD>\r\n", {0, 0}),
        OfHtml("Description",
               "<DT><A HREF=\"mailto:A1\" ALIASID=\"0\">Al</A>\r\n<DD>rows<BR>and more\r\n",
               {1, 1}),
        OfHtml("DescriptionOfTheSecond",
               "<DT><A HREF=\"mailto:A1\">Al</A>\r\n<DD>\r\n"
               "<DT><A HREF=\"mailto:A2\">Bo</A>\r\n<dd>rows\r\n</DL>",
               {1, 1}),
        OfHtml("NicknameBesideTheName",
               "<DT><A HREF=\"mailto:A1\" ALIASID=\"0\" NICKNAME=\"bo\">Al</A>\r\n",
               {1, 1}),
        OfHtml("NicknameThatIsTheName",
               "<DT><A HREF=\"mailto:A1\" NICKNAME=\"Al\" LAST_VISIT=\"9\">Al</A>\r\n",
               {0, 0}),
        OfHtml("DatesOfTheProgram",
               "<DT><A HREF=\"mailto:A1\" ADD_DATE=\"1\" LAST_VISIT=\"2\">Al</A>\r\n",
               {0, 0}),
        OfHtml("FolderWithItsDescription",
               "<DT><H3 FOLDED>Rowers</H3>\r\n<DD>Tuesday crew\r\n<DL><p>\r\n"
               "<DT><A HREF=\"mailto:A1\" ALIASOF=\"0\">Al</A>\r\n</DL><p>\r\n",
               {2, 1}),
        OfHtml("SmallHeading", "<dt><h3>Rowers</h3>\r\n", {1, 1}),
        OfHtml("NameWithATag_IsRead", "<DT><A HREF=\"mailto:A1\" ALIASID=\"0\"><DD>x</A>", {0, 0}),
        OfHtml("OpenEnds_AreTaken", "<DT><A HREF=\"mailto:A1", {0, 0}),
        OfHtml("OpenTag_IsTaken", "<DT><A HREF=\"mailto:A1\" NICKNAME=\"x", {1, 1}),
        OfHtml("OpenDescription_IsTaken", "<DD", {0, 0}),
        OfHtml("LastDescription_IsTaken", "<DD>x", {1, 1})),
    NameOf);

Row OfJuno(const char* name, const std::string& block, Unread unread) {
    return {name, Format::Juno, "\r\n\r\n" + block, unread};
}

INSTANTIATE_TEST_SUITE_P(
    Juno,
    CountUnreadTest,
    testing::Values(
        OfJuno("NameAndAddress_AreRead", test::JunoRecord("A1", "Al"), {0, 0}),
        OfJuno("OtherKeys",
               test::JunoRecord("A1", "Al") + "Primary Phone:5\r\nBirth:x\r\nAddress:\r\n",
               {2, 1}),
        OfJuno("AliasOfTheName", "Name:Al Berg\r\nEmail:A1\r\nAlias:Al\r\n", {0, 0}),
        OfJuno("AliasBesideTheName", "Name:Al Berg\r\nEmail:A1\r\nAlias:ab\r\n", {1, 1}),
        OfJuno("OwnBlockAndKeysOfTheProgram",
               "Type:Version\r\nVersion:AB 0.2.0\r\n\r\n" + test::JunoRecord("A1", "Al") +
                   "Deleted:0\r\nTime:1300446059\r\n",
               {0, 0}),
        OfJuno("SecondAddress", "Name:Al\r\nEmail:A1\r\nEmail:A2\r\n", {1, 1}),
        OfJuno("List", "Type:MList\r\nName:Rowers\r\nMember:al\r\nMember:bo\r\n", {2, 1}),
        OfJuno("SeveralEntries",
               test::JunoRecord("A1", "Al") + "Birth:x\r\n\r\n" + test::JunoRecord("A2", "Bo") +
                   "Birth:y\r\n",
               {2, 2}),
        Row{"FirstLineOfAll_IsNeverRead", Format::Juno, "Name:Al\r\nEmail:A1\r\n", {1, 1}}),
    NameOf);

constexpr const char* kCommas = ",,,,,,,,,,,,,";  // thirteen

INSTANTIATE_TEST_SUITE_P(
    Csv,
    CountUnreadTest,
    testing::Values(
        Row{"FirstTwo_AreRead", Format::Csv, "h\r\n" + test::CsvLine("Al", "A1"), {0, 0}},
        Row{"Header_IsNoEntry", Format::Csv, "Name,Address,Phone\r\n", {0, 0}},
        Row{"ThirdAndLast", Format::Csv, std::string("h\r\nAl,A1,5") + kCommas + "x\r\n", {2, 1}},
        Row{"SixteenthAndMore",
            Format::Csv,
            std::string("h\r\nAl,A1,") + kCommas + "16,17,,19",
            {3, 1}},
        Row{"EmptyQuotes_AreNoLoss",
            Format::Csv,
            std::string("h\r\nAl,A1,\"\"") + kCommas + " \r\n",
            {0, 0}},
        Row{"NameInTwo",
            Format::Csv,
            std::string("h\r\n\"Al Berg\",A1,Al") + kCommas + "\"Berg\"\r\n",
            {0, 0}},
        Row{"TwoLines",
            Format::Csv,
            "h\r\n" + test::CsvLine("Al", "A1") + "Bo,A2,5" + kCommas + "\r\n",
            {1, 1}},
        Row{"FileThatEndsInAColumn_IsNotReadAtAll", Format::Csv, "h\r\nAl,A1,5,6\r\n", {0, 0}}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    WordPerfect,
    CountUnreadTest,
    testing::Values(
        Row{"TwoOfSeven_AreRead",
            Format::WordPerfect,
            "h\r\n\"U\",\"Al\",\"\",\"\",\"\",\"A1\",\"\"\r\n",
            {0, 0}},
        Row{"NamesAndPhone",
            Format::WordPerfect,
            "h\r\nU,Al Berg,Al,Berg,Club,A1,5,6\r\nU,Bo,,,,A2,\r\n",
            {3, 1}},
        Row{"FileThatEndsInAColumn", Format::WordPerfect, "h\r\nU,Al,x,y,z,A1", {0, 0}}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Pegasus,
    CountUnreadTest,
    testing::Values(
        Row{"Addresses_AreRead", Format::Pegasus, "Al <A1>\r\nA2\r\n", {0, 0}},
        Row{"Title_IsOfTheList", Format::Pegasus, "\\TITLE Friends\r\n\\NOSIG Y\r\nA1\r\n", {1, 1}},
        Row{"LinesFartherDown", Format::Pegasus, "A1\r\n\\SENDER x\r\nA2\r\n\\TITLE y\r\n", {2, 1}},
        Row{"KeywordAlone", Format::Pegasus, "\\TITLE\r\n\\\r\n\\nosig\r\nA1\r\n", {0, 0}},
        Row{"AddressesThatAreDroppedWithATitle", Format::Pegasus, "\\TITLE x\nA1\nA2\n", {3, 1}}),
    NameOf);

TEST(CountUnread, ListsAndOtherFiles_HaveNone) {
    for (const Format format : {Format::TextList, Format::AnyFile}) {
        EXPECT_EQ(CountUnread(format, "\"Al\" <A1>, x\r\n\\TITLE x\r\nmail: A2\r\n"), Unread{});
    }
}

TEST(CountUnreadOfAliases, NotesAndFurtherAddresses) {
    const auto count = [](std::string_view file) { return CountUnreadOfAliases(file); };
    EXPECT_EQ(count("alias \"Al B\" A1\r\nalias Bo  A2\r\nx\r\n"), Unread{});
    EXPECT_EQ(count("alias Al A1, A2\r\n"), (Unread{1, 1}));
    EXPECT_EQ(count("Alias Al A1,A2\r\nnote Al <phone:5>\r\nnote \"Bo C\" x\r\n"), (Unread{3, 2}));
    EXPECT_EQ(count("alias Al A1\r\nnote Al \r\nalias Al A2\r\n"), Unread{});
    EXPECT_EQ(count("alias \"Al"), Unread{});
}

class NoProgress : public Progress {
 public:
    void Percent(int /*percent*/) override {}
    void Record() override {}
};

// What Orvik writes of these entries holds nothing that it does not read.
TEST(CountUnread, BookOfOurs_HasNone) {
    const test::Fragments fragments = {
        "Al", " ", "B.", "\"", "<", ">", ",", "@", "\xE9", ":", "\\"};
    const auto has_none = [](const std::string& part) {
        NoProgress progress;
        const std::string native = "A1@x" + part + "\r\nA2\r\n-nick-\r\n" + part + "\r\nBo\r\n";
        EXPECT_EQ(CountUnread(Format::Netscape4, WriteLdif(native, progress)), Unread{}) << part;
        EXPECT_EQ(CountUnread(Format::Netscape3, WriteNetscape3(native)), Unread{}) << part;
        EXPECT_EQ(CountUnread(Format::Juno, WriteJuno(native, "\r", progress)), Unread{}) << part;
    };
    test::ForEveryText(fragments, 2, has_none);
    test::ForRandomTexts(fragments, 9, 500, has_none);
}

struct Sample {
    const char* name;
    Format format;
    Unread unread;
};

TEST(CountUnread, Samples_HaveWhatTheyHave) {
    for (const Sample& sample : {Sample{"juno.nv", Format::Juno, {0, 0}},
                                 Sample{"netscape3.htm", Format::Netscape3, {0, 0}},
                                 Sample{"netscape4.ldif", Format::Netscape4, {47, 26}},
                                 Sample{"outlook.csv", Format::Csv, {0, 0}},
                                 Sample{"pegasus.pml", Format::Pegasus, {1, 1}},
                                 Sample{"wordperfect8.abx", Format::WordPerfect, {0, 0}}}) {
        std::ifstream file(std::string(ORVIK_TEST_DATA) + "/../../samples/" + sample.name,
                           std::ios::binary);
        const std::string book{std::istreambuf_iterator<char>(file), {}};
        ASSERT_FALSE(book.empty()) << sample.name;
        EXPECT_EQ(CountUnread(sample.format, book), sample.unread) << sample.name;
    }
}

// The longest that one pass could take, and far less than two of them nested.
TEST(CountUnread, HostileFiles_TakeOnePass) {
    constexpr std::size_t kRepeats = 100'000;
    for (const std::string_view part : {"<",
                                        "<DD>",
                                        "<A HREF=\"mailto:",
                                        "<DD",
                                        "<H3>",
                                        "NICKNAME=\"",
                                        "cn: x\r\n",
                                        ":",
                                        "\r\nmail: ",
                                        "\\",
                                        "\n",
                                        "\r\n",
                                        ",",
                                        "\"",
                                        "\r\nName:",
                                        "alias x ",
                                        " "}) {
        std::string file = "x\r\nxmozillanickname: ";
        file.append(kRepeats, 'x').append("\r\n");
        for (std::size_t i = 0; i < kRepeats; ++i) {
            file += part;
        }
        const auto start = std::chrono::steady_clock::now();
        for (const Format format : {Format::Netscape3,
                                    Format::Netscape4,
                                    Format::Csv,
                                    Format::WordPerfect,
                                    Format::Juno,
                                    Format::Pegasus}) {
            const Unread unread = CountUnread(format, file);
            EXPECT_LE(unread.Entries, unread.Attributes) << part;
        }
        static_cast<void>(CountUnreadOfAliases(file));
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5)) << part;
    }
}

}  // namespace
}  // namespace orvik
