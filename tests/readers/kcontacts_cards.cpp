// Prints what KContacts finds in a file of cards, one JSON object a line:
//
//   kcontacts_cards FILE

#include <KContacts/Addressee>
#include <KContacts/VCardConverter>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdio>

int main(int argc, char** argv) {
    QFile file(QFile::decodeName(argc == 2 ? argv[1] : ""));
    if (!file.open(QIODevice::ReadOnly)) {
        std::fputs("usage: kcontacts_cards FILE\n", stderr);
        return 2;
    }
    const auto contacts = KContacts::VCardConverter().parseVCards(file.readAll());
    for (const KContacts::Addressee& one : contacts) {
        QJsonArray phones;
        const auto numbers = one.phoneNumbers();
        for (const KContacts::PhoneNumber& phone : numbers) {
            phones.append(phone.number());
        }
        const QJsonObject found{{"uid", one.uid()},
                                {"name", one.formattedName()},
                                {"family", one.familyName()},
                                {"given", one.givenName()},
                                {"additional", one.additionalName()},
                                {"prefix", one.prefix()},
                                {"suffix", one.suffix()},
                                {"emails", QJsonArray::fromStringList(one.emails())},
                                {"phones", phones}};
        std::puts(QJsonDocument(found).toJson(QJsonDocument::Compact).constData());
    }
    return std::ferror(stdout) != 0 ? 1 : 0;
}
