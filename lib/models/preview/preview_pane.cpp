#include "models/preview/preview_pane.h"

namespace mirvane {

PreviewEnables PreviewEnablesFor(bool editing, int previewScope, PreviewMode mode) {
    PreviewEnables enables;
    enables.Seul = enables.Superposition = enables.Background = editing;
    enables.Mosaique = editing && (previewScope == 1 || previewScope == 2);
    enables.Zoom = editing && mode == PreviewMode::Seul;
    return enables;
}

std::optional<IconRef> IconOfRow(int scope, int index) {
    if (scope < 1 || scope > 3 || index < 0) return std::nullopt;
    return IconRef{static_cast<ObjectKind>(scope), index};
}

}  // namespace mirvane
