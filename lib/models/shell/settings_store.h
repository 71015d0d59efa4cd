// Per-user settings by section and key. The desktop program stores them with
// QSettings; tests use the in-memory store.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

namespace mirvane {

class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    virtual std::optional<std::string> Get(const std::string& section, const std::string& key) const = 0;
    virtual void Set(const std::string& section, const std::string& key, const std::string& value) = 0;
    virtual void Remove(const std::string& section, const std::string& key) = 0;

    std::string GetOr(const std::string& section, const std::string& key, const std::string& fallback) const {
        return Get(section, key).value_or(fallback);
    }
};

class MemorySettingsStore : public SettingsStore {
public:
    std::optional<std::string> Get(const std::string& section, const std::string& key) const override {
        auto it = values_.find({section, key});
        if (it == values_.end()) return std::nullopt;
        return it->second;
    }
    void Set(const std::string& section, const std::string& key, const std::string& value) override {
        values_[{section, key}] = value;
    }
    void Remove(const std::string& section, const std::string& key) override { values_.erase({section, key}); }

private:
    std::map<std::pair<std::string, std::string>, std::string> values_;
};

inline constexpr const char* kSettingsSection = "Paramètres";
inline constexpr const char* kRecentFilesSection = "MRUFiles";

}  // namespace mirvane
