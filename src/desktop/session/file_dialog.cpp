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

QMessageBox::StandardButton ShowOver(QWidget* parent,
                                     const QString& text,
                                     QMessageBox::StandardButtons buttons) {
    QMessageBox box(QMessageBox::NoIcon, ToLetters(kTitle), text, buttons, parent);
    box.setTextFormat(Qt::PlainText);
    // The help stays usable.
    box.setWindowModality(Qt::WindowModal);
    if (buttons.testFlag(QMessageBox::No)) {
        box.setIcon(QMessageBox::Question);
        box.setDefaultButton(QMessageBox::No);
        box.setEscapeButton(QMessageBox::No);
    }
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

Saving SavingAs(const QString& name) {
    return SavingOf(QFile::encodeName(name).toStdString());
}

// Stays open until the name that the user chose will do.
class NamingDialog : public QFileDialog {
 public:
    NamingDialog(FileDialog& dialog, const QString& folder, QWidget* parent)
        : QFileDialog(parent, ToLetters(dialog.Title), folder),
          dialog_(dialog),
          filters_(NameFilters(dialog.Filter)) {
        setWindowModality(Qt::WindowModal);
        setAcceptMode(saves() ? AcceptSave : AcceptOpen);
        setFileMode((dialog.Flags & kFileMustExist) != 0 ? ExistingFile : AnyFile);
        // The overwrite prompt comes after the ending was added, so it is asked here.
        setOption(DontConfirmOverwrite);
        setOption(HideNameFilterDetails);
        setNameFilters(filters_);
        selectNameFilter(filters_.value(dialog.FilterIndex - 1, filters_.value(0)));
        selectFile(QFile::decodeName(dialog.FileName.c_str()));
    }

    // The name, empty when the dialog was given up.
    QString ask() {
        // A dialog of the desktop's own cannot be kept open, but shown again.
        while (exec() == Accepted) {
            if (will_do_) {
                return name_;
            }
        }
        return {};
    }

 protected:
    void done(int result) override {
        if (result == Accepted) {
            will_do_ = takeName();
            if (!will_do_ && isOfQt()) {
                return;
            }
        }
        QFileDialog::done(result);
    }

 private:
    [[nodiscard]] bool saves() const {
        return dialog_.Kind == DialogKind::Save || dialog_.ForOutput;
    }
    [[nodiscard]] bool isOfQt() const { return layout() != nullptr; }

    // Returns whether the name will do.
    bool takeName() {
        dialog_.FilterIndex = IndexInUse(filters_, selectedNameFilter());
        name_ = selectedFiles().value(0);
        if (!saves()) {
            return true;
        }
        const std::string ending = FilterEnding(dialog_.Filter, dialog_.FilterIndex);
        name_ =
            dialog_.EndingIsFormat ? WithFormatEnding(name_, ending) : WithEnding(name_, ending);
        QWidget* const over = isOfQt() ? this : parentWidget();
        if (const QString problem = whyNot(); !problem.isEmpty()) {
            ShowOver(over, problem, QMessageBox::Ok);
            return false;
        }
        const bool prompts = (dialog_.Flags & kOverwritePrompt) != 0;
        if (!prompts || !QFileInfo::exists(name_)) {
            return true;
        }
        const Saving way = dialog_.EndingIsFormat ? SavingAs(name_) : Saving::Replaces;
        const bool changed =
            dialog_.HasChanged && dialog_.HasChanged(QFile::encodeName(name_).toStdString());
        const QString question = OverwriteQuestion(name_, way, changed);
        if (ShowOver(over, question, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes) {
            return true;
        }
        selectFile(name_);
        return false;
    }

    [[nodiscard]] QString whyNot() const {
        if (dialog_.EndingIsFormat && SavingAs(name_) == Saving::Never) {
            return QObject::tr("%1 does not say in which format to save. The name must end in %2.")
                .arg(QFileInfo(name_).fileName(), WritableEndings(dialog_.Filter));
        }
        return WhyNoFile(name_);
    }

    FileDialog& dialog_;
    QStringList filters_;
    QString name_;
    bool will_do_ = false;
};

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

QString WithFormatEnding(const QString& name, std::string_view ending) {
    const bool helps = SavingOf(ending) != Saving::Never;
    const QString typed = helps ? WithEnding(name, ending) : name;
    const QString whole =
        QFile::decodeName(WithWholeEnding(QFile::encodeName(typed).toStdString()).c_str());
    return helps && SavingAs(whole) == Saving::Never ? whole + ToLetters(ending) : whole;
}

QString WritableEndings(std::string_view filter) {
    QStringList endings;
    const int count = static_cast<int>(ParseFilter(filter).size());
    for (int i = 1; i <= count; ++i) {
        const std::string ending = FilterEnding(filter, i);
        if (SavingOf(ending) != Saving::Never) {
            endings.append(ToLetters(ending));
        }
    }
    if (endings.size() < 2) {
        return endings.join(QString());
    }
    const QString last = endings.takeLast();
    return QObject::tr("%1 or %2").arg(endings.join(QStringLiteral(", ")), last);
}

QString WhyNoFile(const QString& name) {
    const QFileInfo file(name);
    const QFileInfo folder(file.absolutePath());
    if (!folder.isDir()) {
        return QObject::tr("There is no folder %1.").arg(folder.filePath());
    }
    if (file.isDir()) {
        return QObject::tr("%1 is a folder.").arg(name);
    }
    if (file.exists() && !file.isWritable()) {
        return QObject::tr("You may not write to %1.").arg(name);
    }
    // Into a file that is there a book can be written in any folder.
    if (!file.exists() && !folder.isWritable()) {
        return QObject::tr("You may not make files in the folder %1.").arg(folder.filePath());
    }
    return {};
}

QString OverwriteQuestion(const QString& name, Saving way, bool changed) {
    const QString file = QFileInfo(name).fileName();
    QString question =
        way == Saving::Adds
            ? QObject::tr(
                  "%1 already exists. The entries will be added to it, not put in "
                  "place of those it has.\nDo you want to add them?")
                  .arg(file)
            : QObject::tr("%1 already exists.\nDo you want to replace it?").arg(file);
    if (changed) {
        question.prepend(u'\n').prepend(
            QObject::tr("Another program changed this file since it was opened or saved here."));
    }
    return question;
}

void FileDialogs::rememberFolderOf(const QString& name) {
    folder_ = QFileInfo(name).absolutePath();
}

std::string FileDialogs::show(FileDialog& dialog, QWidget* parent) {
    const QString name = NamingDialog(dialog, folder_, parent).ask();
    if (!name.isEmpty()) {
        rememberFolderOf(name);
    }
    return QFile::encodeName(name).toStdString();
}

}  // namespace orvik
