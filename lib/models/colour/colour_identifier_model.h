// frmColorIdentifier: the texts for the colour under the pointer. The
// identification TYP gives each type a colour that carries the type in the
// last red digit and the green byte, the subtype in the blue byte.
#pragma once

#include <cstdint>
#include <string>

namespace mirvane {

struct ColourIdentity {
    std::string Text;     // Label1: "#RRGGBB"
    std::string Type;     // "0x" + the three digits from the 3rd of Text
    std::string SubType;  // "0x" + the two digits from the 6th
};

// The identity of a colour 0x00BBGGRR; the high byte is not read.
ColourIdentity IdentifyColour(std::uint32_t colour);

}  // namespace mirvane
