#include "models/special/special_typ_model.h"

#include <random>

#include "lang/lookup.h"
#include "special/identification_typ.h"

namespace mirvane {

namespace {

std::string SpecialText(std::string_view defaultText, std::string_view key) {
    return LookupText("TypSpeciaux", defaultText, key);
}

}  // namespace

SpecialTypModel::SpecialTypModel(UserPrompts& prompts, SeedSource seed)
    : prompts_(prompts), seed_(seed ? std::move(seed) : SeedSource([] { return std::random_device{}(); })) {}

std::vector<std::string> SpecialTypModel::RangeItems() {
    const std::string to = "  " + SpecialText("à", "à") + "  ";
    std::vector<std::string> items;
    items.push_back("0x00" + to + "0xFF " + SpecialText("sans sous-types", "Sanssoustype"));
    for (int row = 1; row < kIdentificationRangeCount; ++row) {
        const IdentificationRange range = IdentificationRangeAt(row);
        items.push_back("0x" + UpperHexDigits(range.FirstType, 3) + "00" + to + "0x" + UpperHexDigits(range.LastType, 3) + "1F");
    }
    return items;
}

std::optional<Document> SpecialTypModel::Build() {
    const std::string title = SpecialText("Typ pour l'identification des objets", "frmTypSpeciauxCaption");
    if (!kind_) {
        prompts_.Inform(title, SpecialText("Choisir le type d'objets", "msgChoisirType"));
        return std::nullopt;
    }
    if (rangeRow_ < 0 || rangeRow_ >= kIdentificationRangeCount) {
        prompts_.Inform(title, SpecialText("Choisir une plage de 512 objets", "lblChoisir"));
        return std::nullopt;
    }
    return BuildIdentificationTyp(*kind_, rangeRow_, seed_());
}

}  // namespace mirvane
