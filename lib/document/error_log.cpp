#include "document/error_log.h"

#include <algorithm>
#include <vector>

#include "document/records.h"
#include "lang/lookup.h"

namespace mirvane {

bool CappedErrorLog::Admit(std::string_view kind) {
    doc_.ReadErrorFlag = true;
    auto entry = kinds_.find(kind);
    if (entry == kinds_.end()) entry = kinds_.emplace(std::string(kind), Kind{}).first;
    Kind& counts = entry->second;
    if (counts.Logged >= kMaxLoggedPerKind) {
        ++counts.LeftOut;
        return false;
    }
    ++counts.Logged;
    return true;
}

void CappedErrorLog::Append(std::string_view kind, std::string_view text) {
    doc_.ReadErrorLog += text;
    kinds_.find(kind)->second.End = doc_.ReadErrorLog.size();
}

void CappedErrorLog::Finish() {
    std::vector<const Kind*> capped;
    for (const auto& [name, counts] : kinds_)
        if (counts.LeftOut > 0) capped.push_back(&counts);
    // From the back of the log, so that each insertion leaves the places of
    // the ones still to come as they were.
    std::sort(capped.begin(), capped.end(), [](const Kind* a, const Kind* b) { return a->End > b->End; });
    for (const Kind* counts : capped)
        doc_.ReadErrorLog.insert(counts->End, kLineBreak + LeftOutErrorsText(counts->LeftOut));
    kinds_.clear();
}

std::string LeftOutErrorsText(std::size_t count) {
    return MainText("... et", "msgErreursOmises1") + " " + GroupedNumber(static_cast<std::int64_t>(count)) + " " +
           MainText("autres erreurs de ce genre", "msgErreursOmises2");
}

}  // namespace mirvane
