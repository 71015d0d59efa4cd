// The FID and PID in a TYP's header, which must be those of the mapset that
// draws with it (ajusterFIDPID).
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace mirvane {

// The two numbers as the header and a mapset's are compared: signed 16-bit.
struct TypIds {
    int Fid = 0;
    int Pid = 0;
    bool operator==(const TypIds&) const = default;
};

// A mapset's FID and PID (unsigned, as listed) brought to that comparison.
// Only FIDs above 65355 are folded into the signed range: those from 32768
// to 65355 never match a header, so the user is always asked about them.
TypIds MapsetIdsForTyp(std::int64_t fid, std::int64_t pid);

// The header's numbers; no value when the file is too short to hold them.
std::optional<TypIds> ReadTypIds(const std::filesystem::path& typ);

// Writes the two numbers in place; every other byte stays. False on failure.
bool WriteTypIds(const std::filesystem::path& typ, TypIds ids);

}  // namespace mirvane
