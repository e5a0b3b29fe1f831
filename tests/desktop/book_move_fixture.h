// A document with books that were read from files, its worker, and what orvik-book writes of the
// same files.

#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "book_cli/book_arguments.h"
#include "book_cli/verbs.h"
#include "desktop/book/book_document.h"
#include "desktop/book/book_worker.h"
#include "desktop/modal_user.h"
#include "platform/system_files.h"
#include "unit/temp_folder.h"

namespace orvik::test {

// Nothing of it is lost anywhere but in lists of addresses.
inline constexpr const char* kPlainBook =
    "dn: cn=Al Fine,mail=al@example.org\ncn: Al Fine\ngivenName: Al\nsn: Fine\n"
    "mail: al@example.org\n\n"
    "dn: cn=Bo Ek,mail=bo@example.org\ncn: Bo Ek\ngivenName: Bo\nsn: Ek\n"
    "mail: bo@example.org\n";

// What each program loses, takes in another way, or carries.
inline constexpr const char* kRichBook =
    "BEGIN:VCARD\nVERSION:4.0\nFN:Cy Ott\nN:Ott;Cy;;;\nEMAIL:cy@example.org\nTEL:+1 5\n"
    "KEY:data:application/pgp-keys;base64,QUJD\nPHOTO:data:image/png;base64,QUJD\n"
    "X-SHOE-SIZE:\xE2\x99\xA5\nGENDER:F;cat\nEND:VCARD\n"
    "BEGIN:VCARD\nVERSION:4.0\nFN:Di\nEMAIL:di@example.org\nUID:urn:uuid:1\nEND:VCARD\n"
    "BEGIN:VCARD\nVERSION:4.0\nKIND:group\nFN:Team\nMEMBER:urn:uuid:1\nNOTE:ours\nEND:VCARD\n";

class MoveFixture : public testing::Test {
 protected:
    // Reads files into the document, as the window does.
    void Read(const std::vector<std::string>& names) {
        sources = names;
        const BookDocument::Snapshot read = document.snapshot();
        std::ostringstream err;
        cli::Messenger messages("orvik", err, false, std::chrono::milliseconds(0));
        const book_cli::Surroundings around{system, err, messages, false, nullptr, nullptr};
        book_cli::Console console(around);
        book_cli::Load(console, names, {}, *read.Copy, {});
        read.Copy->Book.HowFar = nullptr;
        const auto& contacts = read.Copy->Book.Contacts;
        document.takeOver(read,
                          QStringLiteral("Open"),
                          {},
                          std::vector<book::Contact>(
                              contacts.begin() + static_cast<std::ptrdiff_t>(read.Records.size()),
                              contacts.end()));
    }
    // Writes a file, and reads it.
    void Read(const std::string& file, const std::string& contents) {
        WriteFile(folder.Name(file), contents);
        Read({folder.Name(file)});
    }

    // Runs orvik-book convert on the same files; returns what it printed.
    std::string Convert(const std::vector<std::string>& more) {
        std::vector<std::string> words = {"orvik-book", "convert"};
        words.insert(words.end(), sources.begin(), sources.end());
        words.insert(words.end(), more.begin(), more.end());
        std::vector<const char*> pointers;
        pointers.reserve(words.size());
        for (const std::string& one : words) {
            pointers.push_back(one.c_str());
        }
        std::ostringstream out;
        std::ostringstream err;
        const auto parsed =
            book_cli::ParseArguments(static_cast<int>(pointers.size()), pointers.data(), err, err);
        if (const auto* const arguments = std::get_if<book_cli::Arguments>(&parsed)) {
            cli::Messenger messages("orvik-book", err, false, std::chrono::milliseconds(0));
            const book_cli::Surroundings around{system, out, messages, false, nullptr, nullptr};
            book_cli::Console console(around);
            told = book_cli::Run(*arguments, console) < cli::ExitStatus::Usage ? "" : err.str();
        } else {
            told = err.str();
        }
        EXPECT_EQ(told, "");
        return out.str();
    }

    static bool Eventually(const std::function<bool()>& is_so) {
        constexpr int kLongest = 20000;
        return QTest::qWaitFor(is_so, kLongest);
    }

    TempFolder folder;
    SystemFiles system{false};
    BookDocument document;
    BookWorker worker;
    std::vector<std::string> sources;
    std::string told;
};

// While it lives, each file dialog or box that comes to the front is acted on in turn.
class BoxUser {
 public:
    explicit BoxUser(std::vector<std::function<void()>> acts) : acts_(std::move(acts)) { wait(); }

    [[nodiscard]] std::size_t done() const { return done_; }

 private:
    void wait() {
        QTimer::singleShot(0, &timers_, [this] {
            wait();
            QWidget* const modal = QApplication::activeModalWidget();
            const bool is_box = qobject_cast<QFileDialog*>(modal) != nullptr ||
                                qobject_cast<QMessageBox*>(modal) != nullptr;
            if (is_box && done_ < acts_.size()) {
                acts_[done_++]();
            }
        });
    }

    std::vector<std::function<void()>> acts_;
    std::size_t done_ = 0;
    QObject timers_;
};

}  // namespace orvik::test
