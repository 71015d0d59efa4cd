// Files as the core sees them: paths held as UTF-8 text, and whole files read
// into memory for the TYP readers and the language files.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "base/bytes.h"

namespace mirvane {

std::filesystem::path PathFromUtf8(std::string_view utf8);
std::string Utf8FromPath(const std::filesystem::path& path);

// The file's bytes as they stand. False when it cannot be opened or read.
bool ReadWholeFile(const std::filesystem::path& path, Bytes& out);
bool ReadWholeFile(const std::filesystem::path& path, std::string& out);

// Writes through a temporary file beside `path` renamed over it, so that a
// failed write leaves the file that was there whole. False on failure.
bool WriteFileAtomically(const std::filesystem::path& path, std::string_view bytes);
bool WriteFileAtomically(const std::filesystem::path& path, const Bytes& bytes);

}  // namespace mirvane
