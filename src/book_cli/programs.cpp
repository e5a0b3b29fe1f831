#include "book_cli/programs.h"

#include <algorithm>
#include <array>

#include "app/text.h"

namespace orvik::book_cli {
namespace {

using book::CsvProgram;
using book::Dialect;
using book::LdifAttributes;

constexpr std::size_t kKilobyte = 1024;

// All who import into iCloud share its limits.
constexpr ImportLimits kICloud = {.Records = 0,
                                  .RecordBytes = 256 * kKilobyte,
                                  .PhotoBytes = 224 * kKilobyte,
                                  .Addresses = 0,
                                  .PhonesOfKind = 0,
                                  .AllRecords = 50000,
                                  .AllBytes = 48 * kKilobyte * kKilobyte,
                                  .AllPhotoBytes = 200 * kKilobyte * kKilobyte};
// An older page of Google has the second one, and newer ones speak of more.
constexpr ImportLimits kGoogleLimits = {.Records = 3000, .AllRecords = 25000};

constexpr std::string_view kGoogleKeeper = "Google Contacts is said to keep";
constexpr std::string_view kGoogleWhy = "Google Contacts is said to take 3000 people at a time";
constexpr std::string_view kGoogleWhere =
    "in Google Contacts: contacts.google.com, usually Import at the left, then Select file";

constexpr std::array kThunderbird = {
    ImportForm{.Ending = ".vcf",
               .Form = Dialect::VCard40,
               .Where = "in Thunderbird: Address Book > Import, then vCard and the file"},
    ImportForm{.Ending = ".ldif",
               .Form = Dialect::Ldif,
               .Set = LdifAttributes::Thunderbird,
               .TakesLists = true,
               .MembersByAddress = true,
               .ListsInLists = false,
               .TakesPhotos = false,
               .Most = {.Addresses = book::kAddressesOfThunderbird, .PhonesOfKind = 1},
               .Where = "in Thunderbird: Address Book > Import, then LDIF and the file"},
    ImportForm{.Ending = ".csv",
               .Form = Dialect::Csv,
               .Table = CsvProgram::Thunderbird,
               .Where = "in Thunderbird: Address Book > Import, then CSV and the file"},
};

constexpr std::array kGoogle = {
    ImportForm{.Ending = ".csv",
               .Form = Dialect::Csv,
               .Table = CsvProgram::Google,
               .TakesLists = true,
               .Most = kGoogleLimits,
               .Keeper = kGoogleKeeper,
               .Why = kGoogleWhy,
               .Where = kGoogleWhere},
    ImportForm{.Ending = ".vcf",
               .Form = Dialect::VCard30,
               .TakesPhotos = false,
               .Most = kGoogleLimits,
               .Keeper = kGoogleKeeper,
               .Why = kGoogleWhy,
               .Where = kGoogleWhere},
};

constexpr std::array kApple = {
    ImportForm{.Ending = ".vcf",
               .Form = Dialect::VCard30,
               .TakesLists = true,
               .UsualPhotosOnly = true,
               .Most = kICloud,
               .Keeper = "iCloud keeps",
               .Where =
                   "in Contacts on a Mac: usually File > Import; on iCloud.com: usually Import in "
                   "the menu of Contacts; on an iPhone: open the file in Mail or Files"},
};

constexpr std::array kOutlook = {
    ImportForm{.Ending = ".csv",
               .Form = Dialect::Csv,
               .Table = CsvProgram::Outlook,
               .TakesLists = true,
               .Where =
                   "in Outlook: File > Open & Export > Import/Export > Import from another program "
                   "or file > Comma Separated Values, then the file and the folder Contacts"},
    ImportForm{.Ending = ".vcf",
               .Form = Dialect::VCard30,
               .Most = {.Records = 1, .Addresses = 3},
               .Why = "Outlook reads the first card of a vCard file and no other",
               .Where = "in Outlook: usually by opening each file, and saving the contact"},
};

constexpr std::array kOutlookNew = {
    ImportForm{.Ending = ".csv",
               .Form = Dialect::Csv,
               .Table = CsvProgram::OutlookNew,
               .TakesLists = true,
               .Where = "in the new Outlook and on outlook.com: usually People > Manage contacts > "
                        "Import contacts, then Browse and the file"},
};

constexpr std::array kNextcloud = {
    ImportForm{.Ending = ".vcf",
               .Form = Dialect::VCard30,
               .TakesLists = true,
               .ListsAsCategories = true,
               .Where =
                   "in Nextcloud: Contacts > Settings > Import contacts, then the file and the "
                   "address book"},
};

constexpr std::array kKAddressBook = {
    ImportForm{.Ending = ".vcf",
               .Form = Dialect::VCard40,
               .Groups = book::GroupForm::Param,
               .Where = "in KAddressBook: File > Import, then vCard and the file"},
    ImportForm{.Ending = ".ldif",
               .Form = Dialect::Ldif,
               .Set = LdifAttributes::KContacts,
               .TakesLists = true,
               .TakesPhotos = false,
               .Where = "in KAddressBook: File > Import, then LDIF and the file"},
};

constexpr std::array kEvolution = {
    ImportForm{.Ending = ".vcf",
               .Form = Dialect::VCard30,
               .Where =
                   "in Evolution: File > Import > Import a single file, then the file, its type "
                   "(vCard) and the address book"},
    ImportForm{.Ending = ".ldif",
               .Form = Dialect::Ldif,
               .Set = LdifAttributes::Evolution,
               .TakesLists = true,
               .ListsInLists = false,
               .TakesPhotos = false,
               .Where =
                   "in Evolution: File > Import > Import a single file, then the file, its type "
                   "(LDIF) and the address book"},
};

constexpr std::array kMutt = {
    ImportForm{.Form = Dialect::Mutt,
               .TakesLists = true,
               .Where = "in mutt: a line source FILE in muttrc, or set alias_file=FILE and "
                        "source $alias_file"},
};

constexpr std::array kPine = {
    ImportForm{.Form = Dialect::Pine,
               .TakesLists = true,
               .Where =
                   "in Alpine: as ~/.addressbook while Alpine is closed, or usually MAIN MENU > "
                   "Setup > AddressBooks > Add"},
};

constexpr std::array kAbook = {
    ImportForm{.Form = Dialect::Abook,
               .TakesLists = true,
               .Where = "in abook: as ~/.abook/addressbook, or with abook --datafile FILE"},
};

constexpr std::array kPegasus = {
    ImportForm{.Ending = ".txt",
               .Form = Dialect::PegasusText,
               .Where = "in Pegasus Mail: usually Addresses > Address books, then the import of "
                        "tagged text files"},
    ImportForm{.Ending = ".pml",
               .Form = Dialect::PegasusList,
               .TakesLists = true,
               .Where = "in Pegasus Mail: usually as a file of the mail folder, then Addresses > "
                        "Distribution lists"},
};

constexpr std::array kPrograms = {
    Program{"thunderbird", "Thunderbird", kThunderbird},
    Program{"google", "Google Contacts", kGoogle},
    Program{"apple", "Apple Contacts", kApple},
    Program{"outlook", "Outlook", kOutlook},
    Program{"outlook-new", "the new Outlook", kOutlookNew},
    Program{"nextcloud", "Nextcloud", kNextcloud},
    Program{"kaddressbook", "KAddressBook", kKAddressBook},
    Program{"evolution", "Evolution", kEvolution},
    Program{"mutt", "mutt", kMutt},
    Program{"pine", "Alpine", kPine},
    Program{"abook", "abook", kAbook},
    Program{"pegasus", "Pegasus Mail", kPegasus},
};

}  // namespace

std::span<const Program> Programs() {
    return kPrograms;
}

const Program* ProgramNamed(std::string_view name) {
    const auto* const found = std::find_if(kPrograms.begin(),
                                           kPrograms.end(),
                                           [name](const Program& one) { return one.Name == name; });
    return found == kPrograms.end() ? nullptr : found;
}

const ImportForm* FormOf(const Program& program, std::string_view file) {
    const auto found =
        std::find_if(program.Forms.begin(), program.Forms.end(), [file](const ImportForm& one) {
            return EndsAs(one.Ending, file);
        });
    return found == program.Forms.end() ? nullptr : &*found;
}

bool EndsAs(std::string_view ending, std::string_view file) {
    return HasEnding(file, ending) || (ending == ".vcf" && HasEnding(file, ".vcard")) ||
           (ending == ".ldif" && HasEnding(file, ".ldi")) ||
           (ending == ".htm" && HasEnding(file, ".html"));
}

const ImportForm& FormFor(const Program& program, bool has_lists) {
    const auto found = std::find_if(program.Forms.begin(),
                                    program.Forms.end(),
                                    [](const ImportForm& one) { return one.TakesLists; });
    return has_lists && found != program.Forms.end() ? *found : program.Forms.front();
}

std::string EndingsOf(const Program& program) {
    std::string text;
    for (std::size_t i = 0; i < program.Forms.size(); ++i) {
        const bool last = i + 1 == program.Forms.size();
        text += i == 0 ? "" : last ? " or " : ", ";
        text += program.Forms[i].Ending;
    }
    return text;
}

}  // namespace orvik::book_cli
