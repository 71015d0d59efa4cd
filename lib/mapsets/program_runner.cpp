#include "mapsets/program_runner.h"

#include <cstdlib>
#include <filesystem>
#include <string_view>

#ifndef _WIN32
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

extern char** environ;
#endif

namespace mirvane {

#ifndef _WIN32

namespace {

// This process's environment with `extra` put over it, as NAME=value texts.
std::vector<std::string> ChildEnvironment(const EnvironmentVariables& extra) {
    std::vector<std::string> result;
    for (char** entry = environ; entry && *entry; ++entry) {
        const std::string_view text(*entry);
        const std::string_view name = text.substr(0, text.find('='));
        bool replaced = false;
        for (const auto& [extraName, value] : extra) replaced = replaced || name == extraName;
        if (!replaced) result.emplace_back(text);
    }
    for (const auto& [name, value] : extra) result.push_back(name + "=" + value);
    return result;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

}  // namespace

int RunProgram(const std::vector<std::string>& arguments, const EnvironmentVariables& extra) {
    if (arguments.empty()) return -1;
    std::vector<std::string> argumentTexts = arguments;
    std::vector<std::string> environmentTexts = ChildEnvironment(extra);
    std::vector<char*> argv = Pointers(argumentTexts);
    std::vector<char*> envp = Pointers(environmentTexts);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int started = posix_spawnp(&child, argv[0], &actions, nullptr, argv.data(), envp.data());
    posix_spawn_file_actions_destroy(&actions);
    if (started != 0) return -1;
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
        if (errno != EINTR) return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool ProgramOnPath(const std::string& name) {
    const char* path = std::getenv("PATH");
    if (!path) return false;
    std::string_view folders(path);
    while (!folders.empty()) {
        const std::size_t cut = folders.find(':');
        const std::filesystem::path candidate = std::filesystem::path(folders.substr(0, cut)) / name;
        std::error_code error;
        if (std::filesystem::is_regular_file(candidate, error) && ::access(candidate.c_str(), X_OK) == 0) return true;
        if (cut == std::string_view::npos) break;
        folders.remove_prefix(cut + 1);
    }
    return false;
}

#else

// Windows changes its own registry and starts no program for it.
int RunProgram(const std::vector<std::string>&, const EnvironmentVariables&) { return -1; }
bool ProgramOnPath(const std::string&) { return false; }

#endif

}  // namespace mirvane
