#include "mapsets/typ_ids.h"

#include "base/file_io.h"
#include "document/record_reader.h"

namespace mirvane {

namespace {

// Where FID and PID stand in every TYP header, after the sizes of the three sections.
constexpr std::size_t kFidOffset = 47;
constexpr std::size_t kPidOffset = 49;

void PutU16(Bytes& file, std::size_t offset, int value) {
    const auto bits = static_cast<std::uint16_t>(value);
    file[offset] = static_cast<std::uint8_t>(bits & 0xFF);
    file[offset + 1] = static_cast<std::uint8_t>(bits >> 8);
}

}  // namespace

TypIds MapsetIdsForTyp(std::int64_t fid, std::int64_t pid) {
    if (fid > 65355) fid -= 65536;
    if (pid > 65535) pid -= 65536;
    return {static_cast<int>(fid), static_cast<int>(pid)};
}

std::optional<TypIds> ReadTypIds(const std::filesystem::path& typ) {
    Bytes file;
    if (!ReadWholeFile(typ, file) || file.size() < kPidOffset + 2) return std::nullopt;
    FieldReader in(file, kFidOffset, [](int) {});
    const auto fid = static_cast<std::int16_t>(in.U16());
    const auto pid = static_cast<std::int16_t>(in.U16());
    return TypIds{fid, pid};
}

bool WriteTypIds(const std::filesystem::path& typ, TypIds ids) {
    Bytes file;
    if (!ReadWholeFile(typ, file) || file.size() < kPidOffset + 2) return false;
    PutU16(file, kFidOffset, ids.Fid);
    PutU16(file, kPidOffset, ids.Pid);
    return WriteFileAtomically(typ, file).Ok();
}

}  // namespace mirvane
