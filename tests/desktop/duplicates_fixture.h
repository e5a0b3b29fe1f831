// A book of made-up people, for the tests of what looks for duplicates in it.

#pragma once

#include <QFile>
#include <QSignalSpy>
#include <QStringList>
#include <QTemporaryDir>
#include <array>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "book/typed_views.h"
#include "book/write_vcard.h"
#include "desktop/book/book_document.h"
#include "desktop/book/book_worker.h"
#include "desktop/book/duplicates.h"
#include "desktop/book/worker_console.h"
#include "platform/system_files.h"
#include "unit/book/match/cards.h"

namespace orvik::test {

class DuplicatesTest : public testing::Test {
 protected:
    // Eight people; those of each tier are beside each other, but for the namesakes.
    static std::string People() {
        return book::test::CardsOf("FN:Ada Abbott|EMAIL:ada@a.example|TEL:1",
                                   "FN:ADA ABBOTT|EMAIL:Ada@a.example|TEL:1",
                                   "FN:Ben Berg|EMAIL:ben@b.example|NOTE:x",
                                   "FN:Ben Berg|EMAIL:ben@b.example",
                                   "FN:C. Clark|EMAIL:cy@c.example|TEL:3",
                                   "FN:Cy Clark|EMAIL:cy@c.example|TEL:4",
                                   "FN:Dora|EMAIL:cy@c.example",
                                   "FN:Ada Abbott|EMAIL:other@d.example");
    }

    [[nodiscard]] std::string PathOf(const std::string& name) const {
        return folder_.filePath(QString::fromStdString(name)).toStdString();
    }

    // Returns where it is.
    std::string Write(const std::string& name, const std::string& text) {
        std::ofstream(PathOf(name), std::ios::binary) << text;
        return PathOf(name);
    }

    static std::string Read(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // Reads a file behind what there is.
    void Open(const std::string& path) {
        const BookDocument::Snapshot read = document.snapshot();
        worker.run(
            QStringLiteral("Reading"),
            [this, read, path](const BookWorker::Watch& watch) {
                WorkerConsole around(files, watch);
                book_cli::Load(around.console(), {&path, 1}, {}, *read.Copy, {});
            },
            [this, read] {
                const auto& all = read.Copy->Book.Contacts;
                const auto behind = static_cast<std::ptrdiff_t>(read.Records.size());
                const std::vector<book::Contact> added(all.begin() + behind, all.end());
                document.takeOver(read, QStringLiteral("Open"), {}, added);
            });
        Wait();
    }

    // Until the worker has done what it does.
    void Wait() {
        constexpr int kLongest = 60'000;
        QSignalSpy ended(&worker, &BookWorker::ended);
        if (worker.isBusy()) {
            ASSERT_TRUE(ended.wait(kLongest));
        }
    }

    void OpenAndLook(const std::string& cards) {
        Open(Write("a.vcf", cards));
        duplicates.look();
        Wait();
    }

    // "same 0 1 merged; name 0 7" for each group, with its state where it is not open.
    [[nodiscard]] std::string Groups() const {
        constexpr std::array<std::string_view, 6> kStates = {
            "", " ticked", " kept", " later", " merged", " old"};
        std::string text;
        for (Duplicates::Line i = 0; i < duplicates.lines().size(); ++i) {
            const book::MatchLine& match = duplicates.lines()[i].Match;
            text.append(text.empty() ? "" : "; ").append(NameOf(match.Why));
            for (const std::uint32_t record : match.Records) {
                text += " " + std::to_string(record);
            }
            text += kStates[static_cast<std::size_t>(duplicates.stateOf(i))];
        }
        return text;
    }

    // "Al Bo" of those that are there.
    [[nodiscard]] std::string People(const BookDocument& of) const {
        std::string names;
        for (const BookDocument::Number record : of.records()) {
            names += (names.empty() ? "" : ", ") + NameAt(of, record);
        }
        return names;
    }
    static std::string NameAt(const BookDocument& of, BookDocument::Number record) {
        return book::NameOf(of.book(), of.at(record)).Shown;
    }

    // As a user does it who edits a record.
    void Rename(BookDocument::Number record, std::string_view name) {
        const auto& fields = document.at(record).Properties;
        std::vector<book::Property> others(fields.begin(), fields.end());
        others.front().Value = document.keep(name);
        document.change(QStringLiteral("Rename"),
                        {{record, document.withFields(document.at(record), others), true}});
    }

    [[nodiscard]] std::string UndoName() const {
        return const_cast<BookDocument&>(document).undoStack().undoText().toStdString();
    }

    QTemporaryDir folder_;
    SystemFiles files{false};
    BookDocument document;
    BookWorker worker;
    Duplicates duplicates{document, worker, files, nullptr};
};

}  // namespace orvik::test
