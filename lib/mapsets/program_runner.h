// Starting another program and waiting for it: `wine reg`, to change a Wine
// prefix's registry.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace mirvane {

// Runs a program: its arguments, program name first. The exit status, -1
// when it could not be started.
using ProgramRunner = std::function<int(const std::vector<std::string>& arguments)>;

using EnvironmentVariables = std::vector<std::pair<std::string, std::string>>;

// Runs the program found on PATH with `extra` added to this process's
// environment, its output discarded.
int RunProgram(const std::vector<std::string>& arguments, const EnvironmentVariables& extra);

// True when PATH has an executable file of that name.
bool ProgramOnPath(const std::string& name);

}  // namespace mirvane
