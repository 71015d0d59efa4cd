// The read log with a bound on its size. A damaged file can repeat one error
// for every record it declares, tens of thousands of times: megabytes of log
// out of a few bytes, which nobody reads and which costs time to build. So
// each kind of error is written out a limited number of times; past that it
// is only counted, and Finish puts under the last one written how many were
// left out ("... and 31,870 more errors of this kind").
#pragma once

#include <concepts>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "document/document.h"

namespace mirvane {

inline constexpr std::size_t kMaxLoggedPerKind = 100;

class CappedErrorLog {
public:
    explicit CappedErrorLog(Document& doc) : doc_(doc) {}

    // Counts one error of `kind`, sets ReadErrorFlag and, while the kind is
    // under its bound, appends the text `makeText()` gives (with its own line
    // breaks) to ReadErrorLog. The text is made only when it is written: the
    // errors left out cost no lookups of their words.
    template <std::invocable MakeText>
    void Add(std::string_view kind, MakeText&& makeText) {
        if (Admit(kind)) Append(kind, makeText());
    }
    void Add(std::string_view kind, std::string_view text) {
        if (Admit(kind)) Append(kind, text);
    }

    // Writes the counts of what was left out. Text appended to the log
    // meanwhile by other means stays where it is.
    void Finish();

private:
    bool Admit(std::string_view kind);
    void Append(std::string_view kind, std::string_view text);

    struct Kind {
        std::size_t Logged = 0;
        std::size_t LeftOut = 0;
        std::size_t End = 0;  // where the last entry written ends in the log
    };
    Document& doc_;
    std::map<std::string, Kind, std::less<>> kinds_;
};

// "... and 31,870 more errors of this kind", in the current language.
std::string LeftOutErrorsText(std::size_t count);

}  // namespace mirvane
