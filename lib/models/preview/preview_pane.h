// What the preview and icons views of the main window need beside the two
// models: which controls are live, and the icon that stands for a list row.
#pragma once

#include <optional>

#include "document/document.h"
#include "models/preview/icons_view_model.h"
#include "models/preview/preview_model.h"

namespace mirvane {

// boutons_edition for the preview: the options and cmdCouleurFond follow
// whether an object is shown; "Mosaïque" only for a polygon or a line; sldZoom and lblZoom
// under "Seul" only.
struct PreviewEnables {
    bool Seul = false;
    bool Mosaique = false;
    bool Superposition = false;
    bool Background = false;
    bool Zoom = false;
};
PreviewEnables PreviewEnablesFor(std::optional<ObjectKind> shown, PreviewMode mode);

}  // namespace mirvane
