// The registry of a Wine prefix. Reading parses the prefix's system.reg, the
// text form of HKEY_LOCAL_MACHINE that Wine keeps; changing runs `wine reg`,
// since the running wineserver owns that file and writes it back from memory.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/bytes.h"
#include "mapsets/program_runner.h"
#include "mapsets/registry.h"

namespace mirvane {

class WineRegistry : public RegistryReader {
public:
    // The text of a system.reg.
    explicit WineRegistry(std::string_view text);
    // A missing or unreadable file reads as an empty registry.
    static WineRegistry FromFile(const std::filesystem::path& systemReg);

    // "#arch=win64": Garmin's 32-bit programs then find SOFTWARE under Wow6432Node.
    bool Is64Bit() const { return win64_; }

    std::vector<std::string> SubKeys(const std::string& key) const override;
    std::optional<std::string> Text(const std::string& key, const std::string& name) const override;
    std::optional<std::uint32_t> Number(const std::string& key, const std::string& name) const override;

    // A change made through Wine, seen at once: wineserver saves system.reg
    // only some seconds after its last client ends.
    void Remember(const std::string& key, const std::string& name, const std::string& text);
    void Forget(const std::string& key, const std::string& name);

private:
    struct Value {
        std::string Name;
        bool IsText = false;
        std::string Text;
        Bytes Data;  // dword and hex values, little-endian as stored
    };
    struct Key {
        std::string Name;
        std::vector<Value> Values;
    };

    void Parse(std::string_view text);
    // The key a 32-bit program opens under this name.
    std::string ViewOf(const std::string& key) const;
    std::size_t IndexOf(const std::string& key) const;  // keys_.size() when missing
    const Key* Find(const std::string& key) const;
    Key& FindOrAdd(const std::string& key);
    const Value* FindValue(const std::string& key, const std::string& name) const;

    std::vector<Key> keys_;  // in the file's order
    bool win64_ = false;
};

// Changes the prefix's registry with `wine reg add` and `wine reg delete`
// through `runner`, and keeps `registry` in step. Without a runner (no Wine
// on this machine) every change fails with a message saying Wine is needed.
class WineRegistryWriter : public RegistryWriter {
public:
    WineRegistryWriter(WineRegistry& registry, ProgramRunner runner);

    RegistryFailure SetText(const std::string& key, const std::string& name, const std::string& value) override;
    RegistryFailure DeleteValue(const std::string& key, const std::string& name) override;

private:
    RegistryFailure Run(std::vector<std::string> arguments);

    WineRegistry& registry_;
    ProgramRunner runner_;
};

}  // namespace mirvane
