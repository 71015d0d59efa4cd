#include "app/shell/qt_settings_store.h"

namespace mirvane::app {

QtSettingsStore::QtSettingsStore() : settings_(QSettings::IniFormat, QSettings::UserScope, "Mirvane", "Mirvane") {}

QString QtSettingsStore::KeyOf(const std::string& section, const std::string& key) {
    return QString::fromStdString(section) + "/" + QString::fromStdString(key);
}

std::optional<std::string> QtSettingsStore::Get(const std::string& section, const std::string& key) const {
    const QVariant value = settings_.value(KeyOf(section, key));
    if (!value.isValid()) return std::nullopt;
    return value.toString().toStdString();
}

void QtSettingsStore::Set(const std::string& section, const std::string& key, const std::string& value) {
    settings_.setValue(KeyOf(section, key), QString::fromStdString(value));
}

void QtSettingsStore::Remove(const std::string& section, const std::string& key) {
    settings_.remove(KeyOf(section, key));
}

}  // namespace mirvane::app
