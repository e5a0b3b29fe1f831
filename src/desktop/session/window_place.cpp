#include "desktop/session/window_place.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QScreen>
#include <QSettings>
#include <QWidget>
#include <algorithm>

#include "store/user_folder.h"

namespace orvik {
namespace {

constexpr const char* kPlace = "place";
constexpr const char* kBarHidden = "main/barHidden";
constexpr const char* kFolder = "files/folder";

QString KeyOf(const char* which, const char* part) {
    return QLatin1String(which) + u'/' + QLatin1String(part);
}

}  // namespace

QString WindowPlaceFile() {
    // QStandardPaths knows no folder for states yet.
    return QFile::decodeName(UserFolder("XDG_STATE_HOME", ".local/state").c_str()) +
           QStringLiteral("/orvik/window.conf");
}

void KeepPlace(const QWidget& window, const QString& file, const char* which) {
    KeepParts(window.saveGeometry(), file, which, kPlace);
}

void RestorePlace(QWidget& window, const QString& file, const char* which) {
    if (const QByteArray place = KeptParts(file, which, kPlace); !place.isEmpty()) {
        // It looks at what it gets, and refuses what it did not write.
        window.restoreGeometry(place);
    }
}

void KeepParts(const QByteArray& state, const QString& file, const char* which, const char* part) {
    QSettings(file, QSettings::IniFormat).setValue(KeyOf(which, part), state.toBase64());
}

QByteArray KeptParts(const QString& file, const char* which, const char* part) {
    const QSettings state(file, QSettings::IniFormat);
    return QByteArray::fromBase64(state.value(KeyOf(which, part)).toByteArray());
}

bool IsBarHidden(const QString& file) {
    return QSettings(file, QSettings::IniFormat).value(QLatin1String(kBarHidden)).toBool();
}

void KeepBarHidden(bool hidden, const QString& file) {
    QSettings(file, QSettings::IniFormat).setValue(QLatin1String(kBarHidden), hidden);
}

void PlaceOver(QWidget& window, const QWidget& other) {
    if (!window.testAttribute(Qt::WA_Resized)) {
        window.adjustSize();
    }
    const QRect screen = other.screen()->availableGeometry();
    // Its frame will be as wide as the other one's. Only the insides are placed alike by all window
    // managers.
    const QRect outside = other.frameGeometry();
    const QRect inside = other.geometry();
    const QSize room = screen.size() - window.size() - (outside.size() - inside.size());
    const auto fitted = [](int wanted, int most) {
        return std::clamp(wanted, 0, std::max(0, most));
    };
    const QPoint frame = inside.topLeft() - outside.topLeft();
    const QPoint place(screen.left() + fitted(outside.left() - screen.left(), room.width()),
                       screen.top() + fitted(outside.top() - screen.top(), room.height()));
    window.setGeometry(QRect(place + frame, window.size()));
}

void KeepFolder(const QString& folder, const QString& file) {
    QSettings(file, QSettings::IniFormat).setValue(QLatin1String(kFolder), folder);
}

QString KeptFolder(const QString& file) {
    const QString folder =
        QSettings(file, QSettings::IniFormat).value(QLatin1String(kFolder)).toString();
    return QDir::isAbsolutePath(folder) && QDir(folder).exists() ? folder : QString();
}

}  // namespace orvik
