#include "desktop/session/window_place.h"

#include <QByteArray>
#include <QDir>
#include <QScreen>
#include <QSettings>
#include <QWidget>
#include <algorithm>

namespace orvik {
namespace {

constexpr const char* kPlace = "main/place";
constexpr const char* kFolder = "files/folder";

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

void PlaceOver(QWidget& window, const QWidget& other) {
    const QRect screen = other.screen()->availableGeometry();
    // A window that was never shown is as large as its contents ask for.
    const QSize size = window.testAttribute(Qt::WA_Resized) ? window.size() : window.sizeHint();
    const QSize frame = other.frameGeometry().size() - other.size();
    const QSize room = screen.size() - size - frame;
    window.move(screen.left() + std::clamp(other.x() - screen.left(), 0, std::max(0, room.width())),
                screen.top() + std::clamp(other.y() - screen.top(), 0, std::max(0, room.height())));
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
