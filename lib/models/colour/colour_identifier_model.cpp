#include "models/colour/colour_identifier_model.h"

#include "colour/palette.h"

namespace mirvane {

ColourIdentity IdentifyColour(std::uint32_t colour) {
    const std::string text = ColourText(static_cast<Colour>(colour & 0xFFFFFFu));
    return {text, "0x" + text.substr(2, 3), "0x" + text.substr(5, 2)};
}

}  // namespace mirvane
