#include "desktop/session/file_dialog.h"

#include <QChildEvent>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QObject>
#include <QPushButton>
#include <algorithm>
#include <cctype>
#include <vector>

#include "app/messages.h"
#include "app/text.h"
#include "desktop/session/window_place.h"
#include "desktop/text/plain_text.h"
#include "desktop/text/text_codec.h"
#include "desktop/views/control_views.h"

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

// "Text", "*.txt" -> "Text: *.txt (*.[tT][xX][tT])". Not every desktop shows what stands in
// parentheses.
std::string NameFilter(std::string_view name, std::string_view patterns) {
    std::string filter(name);
    if (patterns == kEveryFile) {
        return filter + " (*)";
    }
    return filter.append(": ").append(patterns).append(" (").append(IgnoringCase(patterns)) + ")";
}

// The dialog names an entry with or without its pattern.
bool Names(const QString& selected, const QString& filter) {
    return filter == selected || filter.startsWith(selected + QStringLiteral(" ("));
}

// The entry in use, counted from 1.
int IndexInUse(const QStringList& filters, const QString& selected) {
    const auto found = std::find_if(filters.begin(), filters.end(), [&](const QString& filter) {
        return Names(selected, filter);
    });
    return found == filters.end() ? 1 : static_cast<int>(found - filters.begin()) + 1;
}

QMessageBox::StandardButton ShowOver(QWidget* parent,
                                     const QString& text,
                                     QMessageBox::StandardButtons buttons,
                                     const QString& yes = {}) {
    QMessageBox box(QMessageBox::NoIcon, ToLetters(kTitle), text, buttons, parent);
    box.setTextFormat(Qt::PlainText);
    // The help stays usable.
    box.setWindowModality(Qt::WindowModal);
    if (buttons.testFlag(QMessageBox::No)) {
        box.setIcon(QMessageBox::Question);
        box.button(QMessageBox::Yes)->setText(yes);
        box.button(QMessageBox::No)->setText(QObject::tr("&Cancel"));
        box.setDefaultButton(QMessageBox::No);
        box.setEscapeButton(QMessageBox::No);
    }
    ShowWordsOnly(box);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

Saving SavingAs(const QString& name) {
    return SavingOf(QFile::encodeName(name).toStdString());
}

// Stays open until the name that the user chose will do.
class NamingDialog : public QFileDialog {
 public:
    // all_books: whether the entry for every book is chosen, where the dialog has one.
    NamingDialog(FileDialog& dialog, const QString& folder, bool all_books, QWidget* parent)
        : QFileDialog(parent, ToLetters(dialog.Title), folder),
          dialog_(dialog),
          filters_(NameFilters(dialog.Filter)),
          all_books_(all_books) {
        setWindowModality(Qt::WindowModal);
        setAcceptMode(saves() ? AcceptSave : AcceptOpen);
        setFileMode((dialog.Flags & kFileMustExist) != 0 ? ExistingFile : AnyFile);
        // The overwrite prompt comes after the ending was added, so it is asked here.
        setOption(DontConfirmOverwrite);
        setOption(HideNameFilterDetails);
        const QString chosen = filters_.value(dialog.FilterIndex - 1, filters_.value(0));
        index_ = IndexInUse(filters_, chosen);
        setNameFilters(offersAllBooks() ? QStringList(AllBooksFilter()) + filters_ : filters_);
        selectNameFilter(offersAllBooks() && all_books_ ? AllBooksFilter() : chosen);
        selectFile(QFile::decodeName(dialog.FileName.c_str()));
        ShowWordsOnly(*this);
        if (auto* const kinds = findChild<QComboBox*>(QStringLiteral("fileTypeCombo"))) {
            // All endings are in sight.
            kinds->setSizeAdjustPolicy(QComboBox::AdjustToContents);
            kinds->setMinimumWidth(kinds->sizeHint().width());
        }
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

    // Whether the entry for every book was in use, or still is for the next dialog that has one.
    [[nodiscard]] bool allBooks() const { return all_books_; }

 protected:
    // Qt's own boxes quote what was typed, which is no HTML either.
    void childEvent(QChildEvent* event) override {
        if (auto* const box = qobject_cast<QMessageBox*>(event->child())) {
            box->setTextFormat(Qt::PlainText);
        }
        QFileDialog::childEvent(event);
    }
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
    // The form knows nothing of this entry: its index stays as if nobody had chosen another one.
    [[nodiscard]] bool offersAllBooks() const { return !saves() && dialog_.EndingIsFormat; }
    [[nodiscard]] bool isOfQt() const { return layout() != nullptr; }

    // Returns whether the name will do.
    bool takeName() {
        if (offersAllBooks()) {
            all_books_ = Names(selectedNameFilter(), AllBooksFilter());
        }
        dialog_.FilterIndex =
            offersAllBooks() && all_books_ ? index_ : IndexInUse(filters_, selectedNameFilter());
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
        if (MayOverwrite(OverwriteQuestion(name_, way, changed), way, over)) {
            return true;
        }
        selectFile(name_);
        return false;
    }

    [[nodiscard]] QString whyNot() const {
        if (dialog_.EndingIsFormat && SavingAs(name_) == Saving::Never) {
            return QObject::tr("%1 does not say in which format to save. The name must end in %2.")
                .arg(ShownName(QFileInfo(name_).fileName()), WritableEndings(dialog_.Filter));
        }
        return WhyNoFile(name_);
    }

    FileDialog& dialog_;
    QStringList filters_;
    bool all_books_;
    int index_ = 1;  // of the form's entry that would be chosen without the one for every book
    QString name_;
    bool will_do_ = false;
};

}  // namespace

QStringList NameFilters(std::string_view filter) {
    QStringList filters;
    for (const auto& [name, pattern] : ParseFilter(filter)) {
        filters.append(ToLetters(NameFilter(name, pattern)));
    }
    return filters;
}

QString AllBooksFilter() {
    std::string patterns;
    for (const Ending& ending : Endings()) {
        if (ending.What != Format::AnyFile) {
            patterns.append(patterns.empty() ? "*." : " *.").append(ending.Text);
        }
    }
    return ToLetters(NameFilter(QObject::tr("All address books").toStdString(), patterns));
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
        return QObject::tr("There is no folder %1.").arg(ShownName(folder.filePath()));
    }
    if (file.isDir()) {
        return QObject::tr("%1 is a folder.").arg(ShownName(name));
    }
    if (file.exists() && !file.isWritable()) {
        return QObject::tr("You may not write to %1.").arg(ShownName(name));
    }
    // Into a file that is there a book can be written in any folder.
    if (!file.exists() && !folder.isWritable()) {
        return QObject::tr("You may not make files in the folder %1.")
            .arg(ShownName(folder.filePath()));
    }
    return {};
}

QString OverwriteQuestion(const QString& name, Saving way, bool changed) {
    const QString file = ShownName(QFileInfo(name).fileName());
    QString question =
        way == Saving::Adds
            ? QObject::tr(
                  "%1 already exists.\nIts entries stay, and those of the open book are "
                  "added behind them.")
                  .arg(file)
            : QObject::tr("%1 already exists.\nIf you replace it, what is in it now is lost.")
                  .arg(file);
    if (changed) {
        question.prepend(u'\n').prepend(
            QObject::tr("Another program changed this file since it was opened or saved here."));
    }
    return question;
}

bool MayOverwrite(const QString& question, Saving way, QWidget* parent) {
    const QString yes = way == Saving::Adds ? QObject::tr("&Add") : QObject::tr("&Replace");
    return ShowOver(parent, question, QMessageBox::Yes | QMessageBox::No, yes) == QMessageBox::Yes;
}

FileDialogs::FileDialogs(const QString& state) : state_(state), folder_(KeptFolder(state)) {}

void FileDialogs::rememberFolderOf(const QString& name) {
    const QString folder = QFileInfo(name).absolutePath();
    if (folder_ != folder) {
        folder_ = folder;
        KeepFolder(folder, state_);
    }
}

std::string FileDialogs::show(FileDialog& dialog, QWidget* parent) {
    NamingDialog shown(dialog, folder_, all_books_, parent);
    const QString name = shown.ask();
    if (!name.isEmpty()) {
        all_books_ = shown.allBooks();
        rememberFolderOf(name);
    }
    return QFile::encodeName(name).toStdString();
}

}  // namespace orvik
