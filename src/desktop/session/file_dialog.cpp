#include "desktop/session/file_dialog.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QObject>
#include <algorithm>
#include <cctype>
#include <vector>

#include "app/messages.h"
#include "app/text.h"
#include "desktop/text/text_codec.h"
#include "formats/endings.h"

namespace orvik {
namespace {

constexpr std::string_view kEveryFile = "*.*";

// One entry of a filter, such as "Text" and "*.txt".
struct FilterEntry {
    std::string_view Name;
    std::string_view Pattern;
};

std::vector<FilterEntry> ParseFilter(std::string_view filter) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = filter.find('|');
        parts.push_back(filter.substr(0, end));
        if (end == std::string_view::npos) {
            break;
        }
        filter.remove_prefix(end + 1);
    }
    std::vector<FilterEntry> entries;
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
        entries.push_back({parts[i], parts[i + 1]});
    }
    return entries;
}

// "*.txt" -> "*.[tT][xX][tT]"
std::string IgnoringCase(std::string_view pattern) {
    std::string result;
    for (const char c : pattern) {
        if (std::isalpha(static_cast<unsigned char>(c)) != 0) {
            const std::string lower = ToLower({&c, 1});
            const auto upper = static_cast<char>(lower[0] - 'a' + 'A');
            result.append("[").append(lower).append(1, upper).append("]");
        } else {
            result.push_back(c);
        }
    }
    return result;
}

// The entry in use, counted from 1. The dialog names it with or without its pattern.
int IndexInUse(const QStringList& filters, const QString& selected) {
    const auto found = std::find_if(filters.begin(), filters.end(), [&](const QString& filter) {
        return filter == selected || filter.startsWith(selected + QStringLiteral(" ("));
    });
    return found == filters.end() ? 1 : static_cast<int>(found - filters.begin()) + 1;
}

bool ConfirmsOverwriting(const QString& name, QWidget* parent) {
    return QMessageBox::question(parent,
                                 ToLetters(kTitle),
                                 OverwriteQuestion(name),
                                 QMessageBox::Yes | QMessageBox::No,
                                 QMessageBox::No) == QMessageBox::Yes;
}

}  // namespace

QStringList NameFilters(std::string_view filter) {
    QStringList filters;
    for (const auto& [name, pattern] : ParseFilter(filter)) {
        const std::string shown = pattern == kEveryFile ? "*" : IgnoringCase(pattern);
        filters.append(ToLetters(std::string(name) + " (" + shown + ")"));
    }
    return filters;
}

std::string FilterEnding(std::string_view filter, int index) {
    const std::vector<FilterEntry> entries = ParseFilter(filter);
    if (index < 1 || static_cast<std::size_t>(index) > entries.size()) {
        return {};
    }
    const std::string_view pattern = entries[static_cast<std::size_t>(index) - 1].Pattern;
    return pattern == kEveryFile ? std::string() : std::string(pattern.substr(1));
}

QString WithEnding(const QString& name, std::string_view ending) {
    return QFileInfo(name).fileName().contains(u'.') ? name : name + ToLetters(ending);
}

QString OverwriteQuestion(const QString& name) {
    const bool adds = SavingOf(QFile::encodeName(name).toStdString()) == Saving::Adds;
    const QString file = QFileInfo(name).fileName();
    return adds ? QObject::tr(
                      "%1 already exists. The entries will be added to it, not put in "
                      "place of those it has.\nDo you want to add them?")
                      .arg(file)
                : QObject::tr("%1 already exists.\nDo you want to replace it?").arg(file);
}

void FileDialogs::rememberFolderOf(const QString& name) {
    folder_ = QFileInfo(name).absolutePath();
}

std::string FileDialogs::show(FileDialog& dialog, QWidget* parent) {
    const bool saving = dialog.Kind == DialogKind::Save || dialog.ForOutput;
    const QStringList filters = NameFilters(dialog.Filter);
    QFileDialog shown(parent, ToLetters(dialog.Title), folder_);
    shown.setWindowModality(Qt::WindowModal);
    shown.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    shown.setFileMode((dialog.Flags & kFileMustExist) != 0 ? QFileDialog::ExistingFile
                                                           : QFileDialog::AnyFile);
    // The overwrite prompt comes after the ending was added, so it is asked here.
    shown.setOption(QFileDialog::DontConfirmOverwrite);
    shown.setOption(QFileDialog::HideNameFilterDetails);
    shown.setNameFilters(filters);
    shown.selectNameFilter(filters.value(dialog.FilterIndex - 1, filters.value(0)));
    shown.selectFile(QFile::decodeName(dialog.FileName.c_str()));
    while (shown.exec() == QDialog::Accepted) {
        dialog.FilterIndex = IndexInUse(filters, shown.selectedNameFilter());
        QString name = shown.selectedFiles().value(0);
        if (saving) {
            name = WithEnding(name, FilterEnding(dialog.Filter, dialog.FilterIndex));
        }
        const bool prompts = saving && (dialog.Flags & kOverwritePrompt) != 0;
        if (!prompts || !QFileInfo::exists(name) || ConfirmsOverwriting(name, parent)) {
            rememberFolderOf(name);
            return QFile::encodeName(name).toStdString();
        }
        shown.selectFile(name);
    }
    return {};
}

}  // namespace orvik
