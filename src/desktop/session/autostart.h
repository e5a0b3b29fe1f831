// Programs that start with the user's session, as desktop entries in the autostart folder.

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "platform/file_system.h"

namespace orvik {

// ExecLine: a command line as the value of a desktop entry's key Exec: quoted where needed, then
// escaped as any value is. The command is not empty.
//   {"/opt/my books/orvik"} -> "\"/opt/my books/orvik\"";  {"/a$b"} -> "\"/a\\\\$b\""
[[nodiscard]] QString ExecLine(const QStringList& command);

// AutostartEntry: the file for a program under this name.
[[nodiscard]] QByteArray AutostartEntry(const QString& name, const QStringList& command);

// The file of an entry with this name: autostart/NAME.desktop in the user's configuration folder.
[[nodiscard]] QString AutostartFile(const QString& name);

// CreateAutostart: writes the entry, in place of an earlier one. Returns whether it is there; a
// program whose path is no UTF-8 can have none.
[[nodiscard]] bool CreateAutostart(FileSystem& files,
                                   const QString& name,
                                   const QStringList& command);
void RemoveAutostart(FileSystem& files, const QString& name);

}  // namespace orvik
