#include "desktop/book/show_in_folder.h"

#include <QByteArray>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <algorithm>
#include <cstddef>
#include <string_view>

namespace orvik {
namespace {

// A file manager marks each of them.
constexpr std::size_t kMostMarked = 50;
// It may have to be started.
constexpr int kLongestWait = 10000;

// Of any bytes that a name may have.
QString AddressOf(std::string_view name) {
    const QByteArray bytes(name.data(), static_cast<qsizetype>(name.size()));
    return QStringLiteral("file://") + QString::fromLatin1(bytes.toPercentEncoding("/"));
}

bool OpenFolderOf(std::string_view file) {
    const std::string_view folder = file.substr(0, file.find_last_of('/') + 1);
    return QDesktopServices::openUrl(QUrl(AddressOf(folder), QUrl::StrictMode));
}

}  // namespace

void ShowInFolder(std::span<const std::string> files,
                  QObject* context,
                  const std::function<void()>& failed) {
    const auto open = [first = files.front(), failed] {
        if (!OpenFolderOf(first)) {
            failed();
        }
    };
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        open();
        return;
    }
    QStringList addresses;
    for (const std::string& one : files.first(std::min(files.size(), kMostMarked))) {
        addresses.append(AddressOf(one));
    }
    QDBusMessage call =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.FileManager1"),
                                       QStringLiteral("/org/freedesktop/FileManager1"),
                                       QStringLiteral("org.freedesktop.FileManager1"),
                                       QStringLiteral("ShowItems"));
    call << addresses << QString();
    auto* const waiting = new QDBusPendingCallWatcher(bus.asyncCall(call, kLongestWait), context);
    QObject::connect(waiting, &QDBusPendingCallWatcher::finished, context, [waiting, open] {
        waiting->deleteLater();
        if (waiting->isError()) {
            open();
        }
    });
}

}  // namespace orvik
