// Why a file could not be read or written, in the current language, for the
// window's message boxes and the command line alike.
#pragma once

#include <string>

#include "base/file_io.h"

namespace mirvane {

// "not a regular file (a folder, a device...)", "larger than 256 MB...", or
// the system's reason.
std::string ReadFailureText(const ReadResult& result);

// "not a regular file...", "the file is read-only", or the system's reason.
std::string WriteFailureText(WriteStatus status, const std::string& reason);

}  // namespace mirvane
