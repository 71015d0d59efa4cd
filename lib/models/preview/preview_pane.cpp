#include "models/preview/preview_pane.h"

namespace mirvane {

PreviewEnables PreviewEnablesFor(std::optional<ObjectKind> shown, PreviewMode mode) {
    PreviewEnables enables;
    const bool editing = shown.has_value();
    enables.Seul = enables.Superposition = enables.Background = editing;
    enables.Mosaique = editing && *shown != ObjectKind::Poi;
    enables.Zoom = editing && mode == PreviewMode::Seul;
    return enables;
}

}  // namespace mirvane
