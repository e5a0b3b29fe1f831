#include "desktop/session/window_place.h"

#include <QByteArray>
#include <QDir>
#include <QSettings>
#include <QWidget>

namespace orvik {
namespace {

constexpr const char* kPlace = "main/place";

}  // namespace

QString WindowPlaceFile() {
    // QStandardPaths knows no folder for states yet. A relative one does not count.
    QString folder = qEnvironmentVariable("XDG_STATE_HOME");
    if (!QDir::isAbsolutePath(folder)) {
        folder = QDir::homePath() + QStringLiteral("/.local/state");
    }
    return folder + QStringLiteral("/orvik/window.conf");
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

}  // namespace orvik
