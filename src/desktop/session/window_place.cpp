#include "desktop/session/window_place.h"

#include <QByteArray>
#include <QFile>
#include <QSettings>
#include <QWidget>

#include "store/user_folder.h"

namespace orvik {
namespace {

constexpr const char* kPlace = "main/place";
constexpr const char* kBarHidden = "main/barHidden";

}  // namespace

QString WindowPlaceFile() {
    // QStandardPaths knows no folder for states yet.
    return QFile::decodeName(UserFolder("XDG_STATE_HOME", ".local/state").c_str()) +
           QStringLiteral("/orvik/window.conf");
}

void KeepPlace(const QWidget& window, const QString& file) {
    QSettings state(file, QSettings::IniFormat);
    state.setValue(QLatin1String(kPlace), window.saveGeometry().toBase64());
}

void RestorePlace(QWidget& window, const QString& file) {
    const QSettings state(file, QSettings::IniFormat);
    const QByteArray place =
        QByteArray::fromBase64(state.value(QLatin1String(kPlace)).toByteArray());
    if (!place.isEmpty()) {
        // It looks at what it gets, and refuses what it did not write.
        window.restoreGeometry(place);
    }
}

bool IsBarHidden(const QString& file) {
    return QSettings(file, QSettings::IniFormat).value(QLatin1String(kBarHidden)).toBool();
}

void KeepBarHidden(bool hidden, const QString& file) {
    QSettings(file, QSettings::IniFormat).setValue(QLatin1String(kBarHidden), hidden);
}

}  // namespace orvik
