// Opening a binary TYP: one pass that never stops on an error. What cannot be
// read goes into ReadErrorLog and reading goes on with the next field.
#pragma once

#include <string>

#include "document/document.h"
#include "base/file_io.h"

namespace mirvane {

// Resets `doc` and reads `file` into it. `path` names the file for the
// document's path fields and the listing; it is not opened.
void ReadBinaryTyp(Document& doc, const Bytes& file, const std::string& path = {});

// Whether the header starts with the signature "GARMIN TYP": a file without
// it is read all the same, but holds no TYP.
bool HasTypSignature(const TypHeader& header);

// Reads the whole file into memory and then as above. False, with `doc`
// untouched, when the file cannot be read at all.
bool OpenBinaryTyp(Document& doc, const std::string& path);

}  // namespace mirvane
