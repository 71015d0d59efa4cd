// Writing a binary TYP from the records alone, with every offset computed afresh.
#pragma once

#include <optional>
#include <string>

#include "document/document.h"
#include "base/file_io.h"
#include "base/local_time.h"

namespace mirvane {

using SaveTime = LocalTime;

// Why a save failed, as the run-time would number it (6 overflow, 9 out of
// range, 13 type mismatch, 75 path/file access error).
// Number 0 is a check of the input fields (missing FID or product code):
// Description is then the message and Title its box's title.
// A failure of the file itself has number 75, with Write telling what kept
// the file from being written and Reason the system's words.
struct SaveFailure {
    int ErrorNumber = 0;
    std::string Description;
    std::string Title;
    WriteStatus Write = WriteStatus::Written;
    std::string Reason;
};

// Builds the file's bytes. Changes `doc` as a save does: record order, record
// offsets, header fields and the order of the draw order.
std::optional<SaveFailure> BuildBinaryTyp(Document& doc, Bytes& out, const SaveTime& time);

// Builds and writes with WriteFileAtomically, so a failed save never
// destroys the file that was there. Clears the modified flags.
std::optional<SaveFailure> SaveBinaryTyp(Document& doc, const std::string& path,
                                         const SaveTime& time = SaveTime::Now(),
                                         ReadOnlyTarget readOnly = ReadOnlyTarget::Refuse);

// The message box text of a failed save.
std::string SaveFailureMessage(const SaveFailure& failure);

}  // namespace mirvane
