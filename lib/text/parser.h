// Reading the text form of a TYP ([_id], [_comments], [_drawOrder], [_polygon],
// [_line], [_point]) into the document's records. Reading never stops: a
// statement that fails adds "Ligne n : "..."" to ReadErrorLog and parsing goes
// on with the next one. Every loop is bounded by the number of lines.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "document/document.h"

namespace mirvane {

struct ParseResult {
    // With a target object: the record to select again after sorting,
    // the last one holding the edited object's Type and SubType; -1 otherwise.
    int SelectIndex = -1;
};

// Parses `textBytes` into `doc`. Without a target it appends a record for
// every object section (the whole document's text); with one it rebuilds that
// record from the object's text. Label and comment bytes are kept as they
// stand in the text.
ParseResult ParseTypText(Document& doc, std::string_view textBytes, std::optional<ObjectRef> target = {});

// The core of opening a .txt file: resets `doc`, sets the header size and
// code page combos to their defaults (91, 1252), the path fields and
// FromText, then parses the whole text. `path` is only used for its name.
void LoadTypText(Document& doc, std::string_view textBytes, const std::string& path);

// Reads the file and loads it as above. False, with `doc` untouched, when the
// file cannot be read.
bool OpenTypText(Document& doc, const std::string& path);

}  // namespace mirvane
