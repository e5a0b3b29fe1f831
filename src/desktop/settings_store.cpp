#include "desktop/settings_store.h"

#include <QObject>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QStringList>

#include "desktop/text_codec.h"

namespace orvik {
namespace {

QString PathOf(std::string_view section, std::string_view key) {
    QString path = ToLetters(section) + u'/' + ToLetters(key);
    return path.replace(u'\\', u'/');
}

}  // namespace

SettingsStore::SettingsStore(const QString& file, std::function<void(const QString&)> report)
    : settings_(file, QSettings::IniFormat), report_(std::move(report)) {}

QString SettingsStore::userFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/orvik/orvik.conf");
}

QString SettingsStore::find(const QString& path) const {
    const QStringList stored = settings_.allKeys();
    const qsizetype found = stored.indexOf(
        QRegularExpression(QRegularExpression::anchoredPattern(QRegularExpression::escape(path)),
                           QRegularExpression::CaseInsensitiveOption));
    return found < 0 ? path : stored.at(found);
}

std::optional<std::string> SettingsStore::get(std::string_view section, std::string_view key) {
    const QString path = PathOf(section, key);
    const QVariant value = settings_.value(find(path));
    check(QObject::tr("The settings file %1 cannot be read."));
    if (const auto kept = kept_.find(path.toLower()); kept != kept_.end()) {
        return kept->second;
    }
    if (!value.isValid()) {
        return {};
    }
    // A list is what an INI file makes of a comma without quotes.
    return value.metaType() == QMetaType::fromType<QStringList>()
               ? value.toStringList().join(u',').toStdString()
               : value.toByteArray().toStdString();
}

void SettingsStore::save(std::string_view section, std::string_view key, std::string_view value) {
    const QString path = PathOf(section, key);
    const QString stored = find(path);
    kept_[path.toLower()] = value;
    // Writing a file that was not understood would lose what somebody has in it.
    if (settings_.status() == QSettings::NoError) {
        const QByteArray bytes(value.data(), static_cast<qsizetype>(value.size()));
        const bool readable = EncodingOf(value) == Encoding::Utf8;
        settings_.setValue(stored, readable ? QVariant(QString::fromUtf8(bytes)) : QVariant(bytes));
        settings_.sync();
    }
    check(QObject::tr("The settings file %1 cannot be written."));
}

void SettingsStore::clear() {
    kept_.clear();
    if (settings_.status() == QSettings::NoError) {
        settings_.clear();
        settings_.sync();
    }
    check(QObject::tr("The settings file %1 cannot be written."));
}

void SettingsStore::check(const QString& problem) {
    if (settings_.status() != QSettings::NoError && !reported_) {
        reported_ = true;
        report_(problem.arg(settings_.fileName()));
    }
}

}  // namespace orvik
