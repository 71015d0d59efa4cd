// frmTypSpeciaux: the kind of objects and the range the identification TYP
// covers, checked before the document is built.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "document/document.h"
#include "models/shell/user_prompts.h"

namespace mirvane {

class SpecialTypModel {
public:
    using SeedSource = std::function<std::uint32_t()>;

    // `seed` spreads the colours; by default a fresh random number a run.
    explicit SpecialTypModel(UserPrompts& prompts, SeedSource seed = {});

    // cbbPlage: "0x00  à  0xFF sans sous-types", then "0x000  à  0x00F1F" and so on.
    static std::vector<std::string> RangeItems();

    std::optional<ObjectKind> Kind() const { return kind_; }  // optPolygone, optPolyline, optPOI
    void SetKind(ObjectKind kind) { kind_ = kind; }
    int RangeRow() const { return rangeRow_; }  // cbbPlage; -1 for none
    void SetRangeRow(int row) { rangeRow_ = row; }

    // cmdOK: the document, or nothing after telling what is missing.
    std::optional<Document> Build();

private:
    UserPrompts& prompts_;
    SeedSource seed_;
    std::optional<ObjectKind> kind_;
    int rangeRow_ = -1;
};

}  // namespace mirvane
