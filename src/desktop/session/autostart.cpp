#include "desktop/session/autostart.h"

#include <QFile>
#include <QStandardPaths>
#include <algorithm>
#include <string>

#include "app/book_file.h"
#include "app/run_time_error.h"

namespace orvik {
namespace {

// An argument with one of these stands in quotes.
constexpr QStringView kReserved = u" \t\n\r\"'\\><~|&;$*?#()`";
// These have a backslash in front of them inside quotes.
constexpr QStringView kEscaped = u"\"`$\\";

QString Quoted(const QString& argument) {
    const bool plain =
        !argument.isEmpty() && std::none_of(argument.begin(), argument.end(), [](QChar c) {
            return kReserved.contains(c);
        });
    QString quoted;
    for (const QChar c : argument) {
        if (kEscaped.contains(c)) {
            quoted += u'\\';
        }
        quoted += c;
        // A lone percent sign is a field code.
        if (c == u'%') {
            quoted += c;
        }
    }
    return plain ? quoted : u'"' + quoted + u'"';
}

// A text as the value of a key.
QString Value(QString text) {
    text.replace(QStringLiteral("\\"), QStringLiteral("\\\\"))
        .replace(QStringLiteral("\n"), QStringLiteral("\\n"))
        .replace(QStringLiteral("\r"), QStringLiteral("\\r"))
        .replace(QStringLiteral("\t"), QStringLiteral("\\t"));
    // A blank behind the equals sign is no part of the value.
    return text.startsWith(u' ') ? QStringLiteral("\\s") + text.mid(1) : text;
}

std::string EntryOf(const QString& name) {
    return QFile::encodeName(AutostartFile(name)).toStdString();
}

}  // namespace

QString ExecLine(const QStringList& command) {
    QStringList quoted;
    // The first word must not have an equals sign, and some desktops look for it before they read
    // the doubled percent sign as one, so a shell starts such a program.
    if (command.front().contains(u'=') || command.front().contains(u'%')) {
        quoted << QStringLiteral("/bin/sh") << QStringLiteral("-c")
               << Quoted(QStringLiteral("exec \"$0\" \"$@\""));
    }
    for (const QString& argument : command) {
        quoted.append(Quoted(argument));
    }
    return Value(quoted.join(u' '));
}

QByteArray AutostartEntry(const QString& name, const QStringList& command) {
    return QStringLiteral(
               "[Desktop Entry]\n"
               "Type=Application\n"
               "Version=1.0\n"
               "Name=%1\n"
               "Exec=%2\n"
               "Terminal=false\n"
               "X-GNOME-Autostart-enabled=true\n")
        .arg(Value(name), ExecLine(command))
        .toUtf8();
}

QString AutostartFile(const QString& name) {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/autostart/") + name + QStringLiteral(".desktop");
}

bool CreateAutostart(FileSystem& files, const QString& name, const QStringList& command) {
    // An entry is UTF-8, and so are the names in it.
    if (name.contains(u'/') || command.front().contains(QChar::ReplacementCharacter)) {
        return false;
    }
    const std::string entry = EntryOf(name);
    const FileSystem::Path folder = FolderOf(entry);
    try {
        CheckFile(files, Persist([&] { return files.CreateFolders(folder); }), folder);
        ReplaceFile(files, entry, AutostartEntry(name, command).toStdString());
    } catch (const RunTimeError&) {
        return false;
    }
    return true;
}

void RemoveAutostart(FileSystem& files, const QString& name) {
    if (!name.contains(u'/')) {
        const std::string entry = EntryOf(name);
        Persist([&] { return files.Remove(entry); });
    }
}

}  // namespace orvik
