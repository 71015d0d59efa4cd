// Files as the core sees them: paths held as UTF-8 text, whole files read
// into memory for the TYP readers and the language files, and the one way
// every file is written.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "base/bytes.h"

namespace mirvane {

std::filesystem::path PathFromUtf8(std::string_view utf8);
std::string Utf8FromPath(const std::filesystem::path& path);

// A TYP counts its records in 16 bits, so no real one comes near this; a
// larger input is refused before it is read into memory.
inline constexpr std::uintmax_t kMaxInputFileSize = 256u * 1024 * 1024;

enum class ReadStatus { Read, Missing, NotRegularFile, TooLarge, Failed };

struct ReadResult {
    ReadStatus Status = ReadStatus::Read;
    std::string Reason;  // the system's words for a failure, when it gave any
    bool Ok() const { return Status == ReadStatus::Read; }
};

// Whether `path` may be read: a regular file of at most kMaxInputFileSize
// bytes that opens for reading.
ReadResult InspectInputFile(const std::filesystem::path& path);

// The file's bytes as they stand. Only a regular file of at most
// kMaxInputFileSize bytes is read: a folder, a device or a pipe never is.
ReadResult ReadInputFile(const std::filesystem::path& path, Bytes& out);
ReadResult ReadInputFile(const std::filesystem::path& path, std::string& out);

// As above; false when the file cannot be read.
bool ReadWholeFile(const std::filesystem::path& path, Bytes& out);
bool ReadWholeFile(const std::filesystem::path& path, std::string& out);

enum class WriteStatus { Written, NotRegularFile, ReadOnly, Failed };

struct WriteResult {
    WriteStatus Status = WriteStatus::Written;
    std::string Reason;  // the system's words for a failure, when it gave any
    bool Ok() const { return Status == WriteStatus::Written; }
};

enum class ReadOnlyTarget { Refuse, Replace };

// What stands at a path a file is about to be written to. A symbolic link
// is followed: the file it names is the one replaced.
enum class TargetKind { Missing, Writable, ReadOnly, NotRegularFile };
TargetKind InspectWriteTarget(const std::filesystem::path& target);

// Writes `bytes` as the whole new content of `target` so that the file is
// either the old one or the new one, whatever happens: the bytes go to a
// uniquely named temporary file beside the target, are synced to disk, take
// the target's permission bits and then replace it in one rename. On any
// failure the temporary is removed and the target left untouched. A target
// that is not a regular file is never replaced; a read-only one only when
// `readOnly` says so.
WriteResult WriteFileAtomically(const std::filesystem::path& target, std::string_view bytes,
                                ReadOnlyTarget readOnly = ReadOnlyTarget::Refuse);
WriteResult WriteFileAtomically(const std::filesystem::path& target, const Bytes& bytes,
                                ReadOnlyTarget readOnly = ReadOnlyTarget::Refuse);

// For tests: called with the temporary's path once it is written and synced,
// just before the rename; returning false makes the write fail right there,
// as a crash or a full disk would. An empty function removes the hook.
void SetBeforeReplaceHook(std::function<bool(const std::filesystem::path& temporary)> hook);

}  // namespace mirvane
