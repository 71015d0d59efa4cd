#include "document/run_time_errors.h"

#include "lang/lookup.h"

namespace mirvane {

std::string RunTimeDescription(int number) {
    switch (number) {
    case kErrInvalidCall: return "Invalid procedure call or argument";
    case kErrOverflow: return "Overflow";
    case kErrOutOfRange: return "Subscript out of range";
    case kErrDivisionByZero: return "Division by zero";
    case kErrTypeMismatch: return "Type mismatch";
    case kErrPastEndOfFile: return "Input past end of file";
    case kErrPathAccess: return "Path/File access error";
    case kErrInvalidPropertyValue: return "Invalid property value";
    default: return "Application-defined or object-defined error";
    }
}

std::string RunTimeErrorDetails(int number) {
    return "   " + LookupText("VBErrors", "Description", "Description") + ": " +
           LookupText("VBErrors", RunTimeDescription(number), "Err" + std::to_string(number));
}

}  // namespace mirvane
