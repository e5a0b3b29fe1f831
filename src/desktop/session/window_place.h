// Where a window was and which folder a file was chosen in, from one run of the program to the
// next. These are no settings: nobody chose them, and whoever copies the settings to another
// computer does not want them there.

#pragma once

#include <QByteArray>
#include <QString>

class QWidget;

namespace orvik {

// orvik/window.conf in the user's folder for such states.
[[nodiscard]] QString WindowPlaceFile();

// Which window a place is of.
inline constexpr const char* kMainWindow = "main";
inline constexpr const char* kBookWindow = "book";

// KeepPlace: writes a window's place, size and state. What cannot be written is forgotten.
void KeepPlace(const QWidget& window, const QString& file, const char* which = kMainWindow);

// RestorePlace: puts a window that is not shown yet where it was; a place that is on no screen any
// more is moved onto one. Without a file, or with one that holds no place, the window stays as it
// is.
void RestorePlace(QWidget& window, const QString& file, const char* which = kMainWindow);

// How the parts of a window stand to each other, as they say it themselves; empty if none is kept.
void KeepParts(const QByteArray& state, const QString& file, const char* which, const char* part);
[[nodiscard]] QByteArray KeptParts(const QString& file, const char* which, const char* part);

// Whether the user has hidden the tool bar: it is shown until then.
[[nodiscard]] bool IsBarHidden(const QString& file);
void KeepBarHidden(bool hidden, const QString& file);
// PlaceOver: puts a window that is not shown yet where another one is, all of it on the screen.
void PlaceOver(QWidget& window, const QWidget& other);

// KeepFolder, KeptFolder: the folder of the file dialogs; empty if none is kept or it is gone.
void KeepFolder(const QString& folder, const QString& file);
[[nodiscard]] QString KeptFolder(const QString& file);

}  // namespace orvik
