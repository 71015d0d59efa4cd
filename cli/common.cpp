#include <iostream>

#include "commands.h"

namespace mirvane::cli {

bool WantsHelp(const Arguments& args) {
    for (const auto& arg : args)
        if (arg == "--help" || arg == "-h") return true;
    return false;
}

int ReportLog(const std::string& log, bool flagged) {
    if (log.empty() && !flagged) return kExitOk;
    std::string text;
    text.reserve(log.size());
    for (char c : log)
        if (c != '\r') text += c;
    std::cerr << text << "\n";
    return kExitLogged;
}

bool TakeOption(Arguments& args, const std::string& name, std::string& value) {
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] != name) continue;
        if (i + 1 >= args.size()) return false;
        value = args[i + 1];
        args.erase(args.begin() + static_cast<long>(i), args.begin() + static_cast<long>(i) + 2);
        return true;
    }
    return false;
}

bool TakeFlag(Arguments& args, const std::string& name) {
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] != name) continue;
        args.erase(args.begin() + static_cast<long>(i));
        return true;
    }
    return false;
}

}  // namespace mirvane::cli
