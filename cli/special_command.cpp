#include <iostream>
#include <map>
#include <random>

#include "commands.h"
#include "document/encoding.h"
#include "document/identity.h"
#include "special/identification_typ.h"

namespace mirvane::cli {

namespace {

const char* const kHelp =
    "Usage: mirvane-cli special --kind polygon|line|poi --from 0xNN --to 0xNN -o OUT.typ\n"
    "                           [--fid N] [--product-code N] [--seed N]\n"
    "Writes a TYP whose objects show their own type and subtype as label and colour.\n"
    "Ranges: --from 0x00 --to 0xff (no subtypes), or sixteen types with all their\n"
    "subtypes, --from 0x000 --to 0x00f up to --from 0x110 --to 0x11f.\n"
    "FID and product code default to 1; --seed fixes the colours' random spread.\n";

std::optional<ObjectKind> KindOf(const std::string& name) {
    static const std::map<std::string, ObjectKind> kinds = {
        {"polygon", ObjectKind::Polygon}, {"line", ObjectKind::Polyline}, {"poi", ObjectKind::Poi}};
    const auto found = kinds.find(name);
    if (found == kinds.end()) return std::nullopt;
    return found->second;
}

// "0x1f" or "1f": hexadecimal either way, as types are always written.
std::optional<int> TypeNumber(const std::string& text) {
    const std::string digits = text.rfind("0x", 0) == 0 || text.rfind("0X", 0) == 0 ? text.substr(2) : text;
    if (digits.empty() || digits.size() > 3 || digits.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
        return std::nullopt;
    return HexValue(digits);
}

std::optional<std::uint32_t> SeedNumber(const std::string& text) {
    if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != std::string::npos)
        return std::nullopt;
    return static_cast<std::uint32_t>(std::stoul(text));
}

}  // namespace

int SpecialCommand(const Arguments& input) {
    Arguments args = input;
    if (WantsHelp(args)) {
        std::cout << kHelp;
        return kExitOk;
    }
    std::string kindName, from, to, output, fid, productCode, seedText;
    const bool complete = TakeOption(args, "--kind", kindName) & TakeOption(args, "--from", from) &
                          TakeOption(args, "--to", to) & TakeOption(args, "-o", output);
    const bool hasFid = TakeOption(args, "--fid", fid);
    const bool hasProductCode = TakeOption(args, "--product-code", productCode);
    const bool hasSeed = TakeOption(args, "--seed", seedText);
    const auto kind = KindOf(kindName);
    const auto first = TypeNumber(from), last = TypeNumber(to);
    const auto row = first && last ? IdentificationRangeRow(*first, *last) : std::nullopt;
    const auto seed = hasSeed ? SeedNumber(seedText) : std::optional<std::uint32_t>(std::random_device{}());
    if (!complete || !args.empty() || !kind || !row || !seed) {
        std::cerr << kHelp;
        return kExitFailure;
    }
    Document doc = BuildIdentificationTyp(*kind, *row, *seed);
    doc.Identity.Fid = 1;
    doc.Identity.ProductCode = 1;
    if ((hasFid && !ApplyIdentityOption(doc.Identity.Fid, "--fid", fid)) ||
        (hasProductCode && !ApplyIdentityOption(doc.Identity.ProductCode, "--product-code", productCode)))
        return kExitFailure;
    return SaveAndReport(doc, output);
}

}  // namespace mirvane::cli
