#include "document/identity.h"

#include <algorithm>

#include "lang/lookup.h"

namespace mirvane {

int ListedCodePageRow(int codePage) {
    const auto found = std::find(kListedCodePages.begin(), kListedCodePages.end(), codePage);
    return found == kListedCodePages.end() ? -1 : static_cast<int>(found - kListedCodePages.begin());
}

bool IsListedCodePage(int codePage) { return ListedCodePageRow(codePage) >= 0; }

std::optional<std::uint16_t> ParseIdentityNumber(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    const bool negative = !text.empty() && text.front() == '-';
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
    if (text.empty()) return std::nullopt;
    long value = 0;
    for (char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + (c - '0');
        if (value > 65535) return std::nullopt;
    }
    if (negative && value > 32768) return std::nullopt;
    return static_cast<std::uint16_t>(negative && value > 0 ? 65536 - value : value);
}

std::string IdentityRangeMessage() {
    return MainText("Il faut rentrer un entier compris entre 0 et 65535", "msgErreurEntier");
}

std::string IdentityNumberText(const std::optional<std::uint16_t>& value) {
    return value ? std::to_string(*value) : std::string();
}

std::optional<MissingIdentity> FindMissingIdentity(const TypIdentity& identity) {
    if (!identity.Fid)
        return MissingIdentity{MainText("FID absent", "msgFID2"), MainText("Il faut indiquer le FID.", "msgFID1")};
    if (!identity.ProductCode)
        return MissingIdentity{MainText("Product Code absent", "msgPID2"),
                               MainText("Il faut indiquer le Product Code.", "msgPID1")};
    return std::nullopt;
}

}  // namespace mirvane
