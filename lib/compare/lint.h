// What in one document another decoder, the GPS or the writer will stumble
// on: one line a finding, naming the object and what to do about it.
#pragma once

#include <string>
#include <vector>

#include "document/document.h"

namespace mirvane {

// POIs larger than this are cut or refused by many GPS units.
inline constexpr int kLargestPoiSide = 64;

// Empty for a clean document.
std::vector<std::string> LintDocument(const Document& doc);

}  // namespace mirvane
