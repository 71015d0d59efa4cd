// decompile and compile arrive with the text form.
#include <iostream>

#include "commands.h"

namespace mirvane::cli {

int DecompileCommand(const Arguments&) {
    std::cerr << "mirvane-cli: decompile is not available yet\n";
    return kExitFailure;
}

int CompileCommand(const Arguments&) {
    std::cerr << "mirvane-cli: compile is not available yet\n";
    return kExitFailure;
}

}  // namespace mirvane::cli
