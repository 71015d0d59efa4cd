// The per-user settings in an INI file under the application name "Mirvane".
#pragma once

#include <QSettings>

#include "models/shell/settings_store.h"

namespace mirvane::app {

class QtSettingsStore : public SettingsStore {
public:
    QtSettingsStore();
    std::optional<std::string> Get(const std::string& section, const std::string& key) const override;
    void Set(const std::string& section, const std::string& key, const std::string& value) override;
    void Remove(const std::string& section, const std::string& key) override;

private:
    static QString KeyOf(const std::string& section, const std::string& key);
    mutable QSettings settings_;
};

}  // namespace mirvane::app
