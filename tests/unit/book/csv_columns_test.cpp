#include "book/csv_columns.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "book/csv_words.h"

namespace orvik::book {
namespace {

using Cells = std::vector<std::string_view>;

// "Program de: field field", "-" where a column is kept under its header.
std::string Matched(const Cells& header,
                    const std::vector<Cells>& cells = {},
                    const std::vector<CsvMapping>& asked = {}) {
    CsvTop top;
    top.Header = header;
    top.Columns = header.empty() ? cells.size() : header.size();
    top.Cells = cells;
    const CsvColumns columns = MatchColumns(top, asked);
    std::string text = std::string(columns.Program) + " " + std::string(columns.Language) + ":";
    for (const CsvColumn& one : columns.All) {
        text += one.Ground == CsvGround::None ? " -" : " " + std::string(one.Field->Name);
    }
    return text;
}

TEST(CsvHeader, IsComparedInOneForm) {
    EXPECT_EQ(KeyOf("  E-Mail-Adresse ").Text, "e-mail-adresse");
    EXPECT_EQ(KeyOf("\xEF\xBB\xBF\"Vorname\"").Text, "vorname");
    EXPECT_EQ(KeyOf("Code\xC2\xA0 postal").Text, "code postal");
    // A letter and its accent, and wide letters.
    EXPECT_EQ(KeyOf("Te\xCC\x81l").Text, "t\xC3\xA9l");
    EXPECT_EQ(KeyOf("\xEF\xBC\xA5-mail").Text, "e-mail");
    EXPECT_EQ(KeyOf("STRASSE").Text,
              KeyOf("stra\xC3\x9F"
                    "e")
                  .Text);
    EXPECT_EQ(KeyOf("Phone 12 - Value").Text, "phone n - value");
    EXPECT_EQ(KeyOf("Phone 12 - Value").Number, 12U);
    EXPECT_EQ(KeyOf("Phone - Value").Number, 0U);
    EXPECT_EQ(KeyOf(" - ").Text, "-");
}

TEST(CsvWords, HaveKnownFieldsAndTrust) {
    std::size_t words = 0;
    for (const CsvTable& table : CsvWords::All().Tables()) {
        for (const CsvWord& word : table.Words) {
            const bool known = word.Trust == CsvTrust::Seen || word.Trust == CsvTrust::Agreed ||
                               (word.Trust == CsvTrust::Common && table.IsGeneric());
            EXPECT_TRUE(known) << word.Text;
            EXPECT_FALSE(word.Name.empty()) << word.Text;
            EXPECT_FALSE(CsvWords::All().Find(KeyOf(word.Text).Text).empty()) << word.Text;
            ++words;
        }
        EXPECT_NE(LanguageName(table.Language), table.Language);
    }
    EXPECT_GT(words, 2500U);
}

TEST(CsvColumns, AreThoseOfTheProgramWithMostWords) {
    EXPECT_EQ(Matched({"Vorname", "Nachname", "E-Mail-Adresse", "Foo"}),
              "Outlook Express de: given family email1 -");
    EXPECT_EQ(Matched({"First Name", "Last Name", "Primary Email", "Secondary Email"}),
              "Thunderbird en: given family email1 email2");
    EXPECT_EQ(Matched({"First", "Last", "Email", "Work ZIP", "Title"}),
              "Yahoo en: given family email1 zip.work title");
    EXPECT_EQ(Matched({"Name", "E-mail 1 - Type", "E-mail 1 - Value", "Phone 2 - Value"}),
              "Google (old) en: fn emailN.label emailN phoneN");
}

TEST(CsvColumns, OfTwoMeaningsAreDecidedByPlace) {
    // prefix at the start, job title behind the firm
    EXPECT_EQ(Matched({"Titre", "Pr\xC3\xA9nom", "Nom", "Soci\xC3\xA9t\xC3\xA9", "Service"}),
              "Outlook fr: prefix given family org dept");
    EXPECT_EQ(Matched({"Pr\xC3\xA9nom", "Nom", "Soci\xC3\xA9t\xC3\xA9", "Service", "Titre"}),
              "Outlook fr: given family org dept title");
    // the same word twice: home first
    const Cells towns = {"Pr\xC3\xA9nom",
                         "Nom de famille",
                         "Nom \xC3\xA0 afficher",
                         "Ville",
                         "Code postal",
                         "Ville",
                         "Code postal"};
    EXPECT_EQ(Matched(towns),
              "Thunderbird fr: given family fn city.home zip.home city.work zip.work");
    // the given name, where the family name has a column of its own
    EXPECT_EQ(Matched({"Nombre", "Apellidos", "Puesto"}), "Thunderbird es-ES: given family title");
    EXPECT_EQ(Matched({"Nombre", "Puesto", "Usuario 1", "Usuario 2"}),
              "Outlook es: fn title custom1 custom2");
}

TEST(CsvColumns, MayHaveFalseFriends) {
    EXPECT_EQ(Matched({"Title", "First Name", "Middle Name", "Last Name", "Suffix"}),
              "Outlook en: prefix given middle family suffix");
    const Cells day = {
        "Vorname", "Nachname", "Anzeigename", "Geburtsjahr", "Geburtsmonat", "Geburtstag"};
    EXPECT_EQ(Matched(day),
              "Thunderbird de: given family fn birthday.year birthday.month birthday.day");
    // Without month and year beside it, it is the whole date.
    EXPECT_EQ(Matched({"Vorname", "Nachname", "Anzeigename", "Geburtstag", "Messenger-Name"}),
              "Thunderbird de: given family fn birthday im.aim");
    // Before a name in German and Dutch, a job in Swedish alone; for Yahoo always a job.
    EXPECT_EQ(Matched({"Titel", "Vorname", "Nachname", "E-Mail"}),
              " de: prefix given family email1");
    EXPECT_EQ(Matched({"Titel", "Voornaam", "Achternaam", "E-mailadres", "Functie"}),
              " nl: prefix given family email1 title");
    const Cells swedish = {"F\xC3\xB6rnamn", "Efternamn", "Visa", "Titel"};
    EXPECT_EQ(Matched(swedish), "Thunderbird sv-SE: given family fn title");
    EXPECT_EQ(Matched({"Title", "First", "Last", "Email", "Home County", "Work Post Code"}),
              "Yahoo en: title given family email1 region.home zip.work");
}

TEST(CsvColumns, AreNoWordsOfAnotherLanguage) {
    // Spanish for a phone at home, in Brazil what is private.
    EXPECT_EQ(Matched({"Primeiro nome", "Sobrenome", "E-mail Address", "Particular"}),
              " pt: given family email1 -");
    EXPECT_EQ(Matched({"Fornavn", "Efternavn", "Privat"}), " da: given family -");
    // Nor is a word one of a phone where the cells are none.
    const Cells german = {"Name", "Mail", "Handy", "Privat"};
    EXPECT_EQ(Matched(german, {{"Ada"}, {}, {}, {"Aus"}}), " de: fn email1 phone.mobile none");
    EXPECT_EQ(Matched(german, {{"Ada"}, {}, {}, {"0151 234567"}}),
              " de: fn email1 phone.mobile phone.home");
}

TEST(CsvColumns, AreFoundByCommonWords) {
    EXPECT_EQ(Matched({"Name", "Mail", "Handy", "PLZ", "Verein", "Nummer"}),
              " de: fn email1 phone.mobile zip.home org -");
    EXPECT_EQ(Matched({"\xE6\xB0\x8F\xE5\x90\x8D", "\xE3\x83\xA1\xE3\x83\xBC\xE3\x83\xAB"}),
              " ja: fn email1");
    // One name beside the other, else the whole one.
    EXPECT_EQ(Matched({"Nombre", "Apellidos", "Foo", "Bar"}), " es: given family - -");
    EXPECT_EQ(Matched({"Nombre", "Correo", "Foo", "Bar"}), " es: fn email1 - -");
    // A family name in Portugal, a nickname in Brazil.
    EXPECT_EQ(Matched({"Nome", "Apelido", "Foo", "Bar"}), " pt: given family - -");
    EXPECT_EQ(Matched({"Nome", "Apelido", "Sobrenome", "Foo", "Bar", "Baz"}),
              " pt: given nickname family - - -");
    // The cells tell whether it is an address of a house or of mail.
    EXPECT_EQ(Matched({"Name", "Address"}, {{"Ada"}, {"ada@example.org"}}), " en: fn email1");
    EXPECT_EQ(Matched({"Name", "Address"}, {{"Ada"}, {"Mill Lane 3"}}), " en: fn street.home");
}

TEST(CsvColumns, AreFoundByTheirCells) {
    EXPECT_EQ(Matched({"Kontakt X", "Seite X"}, {{"ada@example.org"}, {"www.example.org"}}),
              " : email1 url");
    EXPECT_EQ(Matched({}, {{"Ada Abbott"}, {"ada@example.org"}, {"+1 555 0100"}, {"17"}}),
              " : fn email1 phone -");
    EXPECT_EQ(Matched({}, {{"Ada"}, {"Abbott"}, {"ada@example.org"}}), " : given family email1");
    EXPECT_EQ(Matched({"Foo", "Bar", "Baz", "Qux"},
                      {{"ada@example.org"}, {"+1 555 0100"}, {"1980-04-12"}, {"89073"}}),
              " : email1 phone birthday zip.home");
    // Plain numbers are no phones under a header, and short ones no codes beside nothing.
    EXPECT_EQ(Matched({"Foo", "Bar", "Baz"}, {{"ada@example.org"}, {"12345678"}, {"1234"}}),
              " : email1 - -");
    EXPECT_EQ(Matched({"Vorname", "Mail", "Ort", "Foo"}, {{"Ada"}, {}, {"Wien"}, {"1010"}}),
              " de: given email1 city.home zip.home");
    EXPECT_EQ(Matched({"Vorname", "Mail", "Ort", "Foo"}, {{"Ada"}, {}, {"Wien"}, {"42"}}),
              " de: given email1 city.home -");
    // One of two columns of dates may be anything, and so is one beside the birthday.
    EXPECT_EQ(Matched({"Mail", "Foo", "Bar"}, {{"ada@example.org"}, {"12.4.1980"}, {"2001-02-03"}}),
              " en: email1 - -");
    EXPECT_EQ(Matched({"Mail", "Birthday", "Bar"}, {{}, {"4/12/1980"}, {"2/3/2001"}}),
              " en: email1 birthday -");
}

TEST(CsvColumns, AreWhatTheUserSays) {
    const std::vector<CsvMapping> asked = {ParseMapping("Club=groups"),
                                           ParseMapping("nachname=none"),
                                           ParseMapping("E-Mail-Adresse=email2")};
    EXPECT_EQ(Matched({"Club", "Vorname", "Nachname", "E-Mail-Adresse"}, {}, asked),
              "Outlook de: label given none email2");
    EXPECT_EQ(Matched({}, {{"x"}, {"ada@example.org"}}, {ParseMapping("column 1=nickname")}),
              " : nickname email1");
    EXPECT_EQ(ParseMapping("a=b=Given Name").Header, "a=b");
    EXPECT_EQ(ParseMapping("a=b=Given Name").Field->Name, "given");
    EXPECT_EQ(ParseMapping("a=nonsense").Field, nullptr);
    EXPECT_EQ(ParseMapping("nothing").Field, nullptr);
}

TEST(CsvColumns, AreTold) {
    const Cells header = {"Vorname", "Nachname", "E-Mail-Adresse", "Jahrestag", "Foo", "Home"};
    CsvTop top;
    top.Header = header;
    top.Columns = header.size();
    top.Cells = {{}, {}, {}, {"1/2/1990"}, {}, {}};
    CsvColumns columns = MatchColumns(top, {});
    for (CsvColumn& one : columns.All) {
        one.Used = one.Name != "family";
    }
    EXPECT_EQ(SentenceOf(columns),
              "columns matched by header, German: \"Vorname\" -> given name, \"E-Mail-Adresse\" -> "
              "address, \"Jahrestag\" -> anniversary (taken for day/month/year), \"Foo\" -> kept "
              "under its header, \"Home\" -> home phone (a common word)");
    const Cells unknown = {"Foo", "Bar"};
    top.Header = unknown;
    top.Columns = unknown.size();
    top.Cells = {{"ada@example.org"}, {"+1 555 0100"}};
    columns = MatchColumns(top, {});
    columns.All[0].Used = columns.All[1].Used = true;
    EXPECT_EQ(SentenceOf(columns),
              "columns matched by their cells: \"Foo\" -> address, \"Bar\" -> phone (doubtful)");
}

// Many columns of one word that has two meanings.
TEST(CsvColumns, TakeLinearTime) {
    constexpr std::size_t kColumns = 4096;
    Cells header(kColumns, "Titre");
    header[1] = "Pr\xC3\xA9nom";
    header[2] = "Soci\xC3\xA9t\xC3\xA9";
    CsvTop top;
    top.Header = header;
    top.Columns = kColumns;
    EXPECT_EQ(MatchColumns(top, {}).All.size(), kColumns);
}

}  // namespace
}  // namespace orvik::book
