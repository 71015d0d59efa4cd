#include "mapsets/program_paths.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/file_io.h"

namespace mirvane {

namespace fs = std::filesystem;

namespace {

bool IsDriveLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool HasDrive(std::string_view path) { return path.size() >= 2 && IsDriveLetter(path[0]) && path[1] == ':'; }

// The parts of a path, without the empty one a trailing separator leaves.
std::vector<fs::path> Parts(const fs::path& path) {
    std::vector<fs::path> parts;
    for (const fs::path& part : path)
        if (!part.empty()) parts.push_back(part);
    return parts;
}

fs::path Resolved(const fs::path& path) {
    std::error_code ignored;
    const fs::path resolved = fs::weakly_canonical(fs::absolute(path, ignored), ignored);
    return resolved.empty() ? path.lexically_normal() : resolved;
}

std::string WithSeparatorAtEnd(std::string_view folder, char separator) {
    std::string text(folder);
    if (text.empty() || text.back() != separator) text += separator;
    return text;
}

}  // namespace

fs::path EntryIgnoringCase(const fs::path& folder, std::string_view name) {
    const fs::path exact = folder / PathFromUtf8(name);
    std::error_code error;
    if (fs::exists(fs::symlink_status(exact, error))) return exact;
    const std::string wanted = AsciiLower(name);
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        if (AsciiLower(Utf8FromPath(it->path().filename())) == wanted) return it->path();
    return exact;
}

ProgramPaths ProgramPaths::Native() {
    ProgramPaths paths;
    paths.separator_ = static_cast<char>(fs::path::preferred_separator);
    return paths;
}

ProgramPaths ProgramPaths::Wine(const fs::path& prefix) {
    ProgramPaths paths;
    paths.separator_ = '\\';
    std::error_code error;
    for (fs::directory_iterator it(prefix / "dosdevices", error), end; !error && it != end; it.increment(error)) {
        const std::string name = Utf8FromPath(it->path().filename());
        if (name.size() == 2 && HasDrive(name)) paths.drives_.emplace_back(AsciiLower(name[0]), it->path());
    }
    const auto has = [&](char letter) {
        return std::any_of(paths.drives_.begin(), paths.drives_.end(), [&](const auto& d) { return d.first == letter; });
    };
    if (!has('c')) paths.drives_.emplace_back('c', prefix / "drive_c");
    if (!has('z')) paths.drives_.emplace_back('z', fs::path("/"));
    return paths;
}

fs::path ProgramPaths::ToHost(std::string_view programPath) const {
    if (drives_.empty()) return PathFromUtf8(programPath);
    // A path without a drive is on the current one, which for Garmin's programs is C:.
    const char letter = HasDrive(programPath) ? AsciiLower(programPath[0]) : 'c';
    if (HasDrive(programPath)) programPath.remove_prefix(2);
    const auto drive = std::find_if(drives_.begin(), drives_.end(), [&](const auto& d) { return d.first == letter; });
    if (drive == drives_.end()) return {};

    fs::path host = drive->second;
    std::size_t start = 0;
    while (start <= programPath.size()) {
        std::size_t end = programPath.find_first_of("\\/", start);
        if (end == std::string_view::npos) end = programPath.size();
        const std::string_view name = programPath.substr(start, end - start);
        start = end + 1;
        if (name.empty() || name == ".") continue;
        if (name == "..") {
            if (host != drive->second) host = host.parent_path();
            continue;
        }
        host = EntryIgnoringCase(host, name);
    }
    return host;
}

std::string ProgramPaths::FromHost(const fs::path& hostPath) const {
    if (drives_.empty()) return Utf8FromPath(hostPath);
    const std::vector<fs::path> parts = Parts(Resolved(hostPath));
    // The drive whose root holds the file deepest: C: before Z:, which is the whole machine.
    char letter = 0;
    std::size_t rootLength = 0;
    for (const auto& [candidate, root] : drives_) {
        const std::vector<fs::path> rootParts = Parts(Resolved(root));
        const bool holds = rootParts.size() <= parts.size() && std::equal(rootParts.begin(), rootParts.end(), parts.begin());
        if (holds && (!letter || rootParts.size() > rootLength)) {
            letter = candidate;
            rootLength = rootParts.size();
        }
    }
    if (!letter) {
        letter = 'z';
        rootLength = parts.empty() ? 0 : 1;  // past the root "/"
    }
    std::string program = std::string(1, static_cast<char>(letter - 'a' + 'A')) + ":";
    for (std::size_t i = rootLength; i < parts.size(); ++i) program += "\\" + Utf8FromPath(parts[i]);
    if (rootLength == parts.size()) program += "\\";
    return program;
}

std::string RelativePath(std::string_view target, std::string_view baseFolder, char separator) {
    const std::string base = WithSeparatorAtEnd(baseFolder, separator);
    const auto same = [separator](char a, char b) { return separator == '\\' ? AsciiLower(a) == AsciiLower(b) : a == b; };
    std::size_t common = 0;
    while (common < target.size() && common < base.size() && same(target[common], base[common])) ++common;
    if (common == 0) return {};
    const std::size_t lastSeparator = target.substr(0, common).rfind(separator);
    if (lastSeparator == std::string_view::npos) return {};

    std::string relative;
    const std::string_view climbed = std::string_view(base).substr(lastSeparator + 1);
    for (std::size_t i = 0; i < static_cast<std::size_t>(std::count(climbed.begin(), climbed.end(), separator)); ++i)
        relative += std::string("..") + separator;
    return relative + std::string(target.substr(lastSeparator + 1));
}

std::string AbsolutePath(std::string_view relative, std::string_view baseFolder, char separator) {
    if (HasDrive(relative) || (!relative.empty() && relative[0] == separator)) return std::string(relative);
    const std::string up = std::string("..") + separator;
    std::string base = WithSeparatorAtEnd(baseFolder, separator);
    while (relative.starts_with(up)) {
        relative.remove_prefix(up.size());
        base.pop_back();
        const std::size_t cut = base.rfind(separator);
        base.erase(cut == std::string::npos ? 0 : cut + 1);
    }
    return base + std::string(relative);
}

}  // namespace mirvane
