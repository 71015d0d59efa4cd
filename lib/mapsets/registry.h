// The registry as the mapsets need it: keys of HKEY_LOCAL_MACHINE named with
// "\" separators and compared without regard to case, their subkeys, and
// their text and number values. Windows, a Wine prefix and the tests each
// give their own.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace mirvane {

// MapSource's key; its subkeys Families, FamiliesNT and Products hold the mapsets.
inline constexpr const char* kMapSourceKey = "SOFTWARE\\Garmin\\Mapsource";

class RegistryReader {
public:
    virtual ~RegistryReader() = default;
    // The names of the key's direct subkeys in the registry's order; none for a missing key.
    virtual std::vector<std::string> SubKeys(const std::string& key) const = 0;
    virtual std::optional<std::string> Text(const std::string& key, const std::string& name) const = 0;
    // A 32-bit value, or the first four bytes of a binary one read as a
    // little-endian number: MapSource's installers write a family's ID as two bytes.
    virtual std::optional<std::uint32_t> Number(const std::string& key, const std::string& name) const = 0;
};

// What went wrong, in the user's words; no value when the change was made.
using RegistryFailure = std::optional<std::string>;

class RegistryWriter {
public:
    virtual ~RegistryWriter() = default;
    // Sets a text value, creating the key if needed.
    virtual RegistryFailure SetText(const std::string& key, const std::string& name, const std::string& value) = 0;
    virtual RegistryFailure DeleteValue(const std::string& key, const std::string& name) = 0;
};

}  // namespace mirvane
