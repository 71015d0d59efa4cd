// The label controls that the polygon, line and POI editors share: the rows
// of language code and text behind chkString, and the extended label style
// behind chkExtendedLabel.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "labels/label_block.h"

namespace mirvane {

// A new row's language: French.
inline constexpr std::uint8_t kDefaultLanguageCode = 1;

class LabelStringsModel {
public:
    // chkString: off leaves no row; on starts with one row.
    bool Enabled() const { return labelsOn_; }
    void SetEnabled(bool on);

    // cbbLangue(i), txtTexte(i); texts are bytes in the document's code page.
    const std::vector<LabelText>& Rows() const { return rows_; }
    void SetLanguage(int row, std::uint8_t code) { rows_.at(row).LanguageCode = code; }
    void SetText(int row, std::string text) { rows_.at(row).Text = std::move(text); }
    // cmdNouvelleLangue: an empty row in the default language.
    void AddRow() { rows_.push_back({kDefaultLanguageCode, {}}); }
    // cmdSupprimerLangue(i): removing the only row switches the labels off.
    void RemoveRow(int row);

    // chkExtendedLabel, cbbFontStyle, cbbCustomColor and the two label colours.
    bool ExtendedEnabled() const { return extendedOn_; }
    void SetExtendedEnabled(bool on) { extendedOn_ = on; }
    const ExtendedLabelStyle& Extended() const { return extendedStyle_; }
    ExtendedLabelStyle& Extended() { return extendedStyle_; }

    // The stored bytes; an editor loads what its flags say is present.
    void LoadLabels(const Bytes& block);
    void LoadExtended(const Bytes& block);
    // Empty when off. The blocks the record stores.
    Bytes LabelBytes() const;
    Bytes ExtendedLabelBytes() const;

private:
    std::vector<LabelText> rows_;
    bool labelsOn_ = false;
    bool extendedOn_ = false;
    ExtendedLabelStyle extendedStyle_;
};

}  // namespace mirvane
