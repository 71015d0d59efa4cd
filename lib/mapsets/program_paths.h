// Paths as Garmin's map programs write them (in the registry and in the info
// files of the mapsets) and where those files are on this machine. On Windows
// and macOS the two are the same; in a Wine prefix "C:\ProgramData\x" is a
// folder below the prefix's drive_c, and the names are found without regard
// to case, as Wine finds them.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mirvane {

class ProgramPaths {
public:
    // The paths of this machine, with its own separator.
    static ProgramPaths Native();
    // The drives of a Wine prefix: its dosdevices links, else drive_c as C:
    // and the root as Z:, as Wine sets up a new prefix.
    static ProgramPaths Wine(const std::filesystem::path& prefix);

    char Separator() const { return separator_; }

    // The file on this machine that a program path names.
    std::filesystem::path ToHost(std::string_view programPath) const;
    // The path a map program would use for a file of this machine.
    std::string FromHost(const std::filesystem::path& hostPath) const;

private:
    char separator_ = '/';
    std::vector<std::pair<char, std::filesystem::path>> drives_;  // empty: paths are this machine's
};

// The entry of `folder` named `name`, found without regard to case when no
// entry has that very name; `folder / name` when there is none.
std::filesystem::path EntryIgnoringCase(const std::filesystem::path& folder, std::string_view name);

// CheminRelatif: `target` seen from the folder `baseFolder`, climbing with
// "..\" (or "../"). Empty when the two share no beginning, as paths on two
// drives do. Paths with "\" compare without regard to case.
std::string RelativePath(std::string_view target, std::string_view baseFolder, char separator);

// CheminAbsolu: `relative` against the folder `baseFolder`, each leading
// "..\" climbing one folder. A path that is absolute already stays as it is.
std::string AbsolutePath(std::string_view relative, std::string_view baseFolder, char separator);

}  // namespace mirvane
