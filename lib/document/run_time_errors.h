// Errors of reading and saving, numbered and worded as the language files
// expect, so that they can translate them by number.
#pragma once

#include <string>

namespace mirvane {

enum RunTimeError : int {
    kErrInvalidCall = 5,
    kErrOverflow = 6,
    kErrOutOfRange = 9,
    kErrDivisionByZero = 11,
    kErrTypeMismatch = 13,
    kErrPastEndOfFile = 62,
    kErrPathAccess = 75,
    kErrInvalidPropertyValue = 380,
};

// The run-time's own description of an error number.
std::string RunTimeDescription(int number);

// "   Description: <text>", with both parts looked up in section VBErrors.
std::string RunTimeErrorDetails(int number);

}  // namespace mirvane
