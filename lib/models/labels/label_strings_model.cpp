#include "models/labels/label_strings_model.h"

namespace mirvane {

void LabelStringsModel::SetEnabled(bool on) {
    if (on == labelsOn_) return;
    labelsOn_ = on;
    rows_.clear();
    if (on) AddRow();
}

void LabelStringsModel::RemoveRow(int row) {
    if (row < 0 || row >= static_cast<int>(rows_.size())) return;
    rows_.erase(rows_.begin() + row);
    if (rows_.empty()) labelsOn_ = false;
}

void LabelStringsModel::LoadLabels(const Bytes& block) {
    // A block without rows stays one, so that OK gives back its bytes.
    labelsOn_ = true;
    rows_ = DecodeLabelBlock(block).value_or(std::vector<LabelText>{});
}

void LabelStringsModel::LoadExtended(const Bytes& block) {
    extendedOn_ = true;
    extendedStyle_ = DecodeExtendedLabelBlock(block).value_or(ExtendedLabelStyle{});
}

Bytes LabelStringsModel::LabelBytes() const { return Enabled() ? EncodeLabelBlock(rows_) : Bytes{}; }

Bytes LabelStringsModel::ExtendedLabelBytes() const {
    return ExtendedEnabled() ? EncodeExtendedLabelBlock(extendedStyle_) : Bytes{};
}

}  // namespace mirvane
