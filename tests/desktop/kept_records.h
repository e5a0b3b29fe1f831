// What a Book window keeps on the disk, in a state folder of the test's own.

#pragma once

#include <QDir>
#include <QTemporaryDir>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "files/recovery_copy.h"
#include "platform/system_files.h"
#include "store/recovery_store.h"

namespace orvik::test {

class KeptRecords {
 public:
    // What another program would be offered, if this one had been killed.
    [[nodiscard]] std::vector<RecoveryCopy> Copies() const {
        std::vector<RecoveryCopy> copies;
        const QDir root = Root();
        for (const QString& name : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            std::ifstream file(root.filePath(name + QStringLiteral("/book")).toStdString());
            const std::string bytes(std::istreambuf_iterator<char>(file), {});
            if (auto copy = ReadRecoveryCopy(bytes)) {
                copies.push_back(std::move(*copy));
            }
        }
        return copies;
    }
    [[nodiscard]] QDir Root() const {
        return QDir(folder_.filePath(QStringLiteral("orvik/book-recovery")));
    }
    // As a program that was killed leaves it.
    void Leave(const RecoveryCopy& copy) { RecoveryStore(files_, "book-recovery").Keep(copy); }

    [[nodiscard]] QString Folder() const { return folder_.path(); }
    [[nodiscard]] SystemFiles& Files() { return files_; }

 private:
    QTemporaryDir folder_;
    const bool own_state_ = qputenv("XDG_STATE_HOME", folder_.path().toLocal8Bit());
    SystemFiles files_{false};
};

// The names of the cards of a copy, in order: "Al Bo ".
inline std::string NamesOfCards(const RecoveryCopy& copy) {
    std::string names;
    const std::string_view text = copy.Text;
    for (std::size_t at = text.find("\nFN:"); at < text.size(); at = text.find("\nFN:", at + 1)) {
        names.append(text.substr(at + 4, text.find('\r', at) - at - 4)).append(" ");
    }
    return names;
}

}  // namespace orvik::test
