// The real-world TYP files beside the repository, when they are there.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace mirvane::testing {

inline std::filesystem::path CorpusDir() { return std::filesystem::path(MIRVANE_SHARED_DIR) / "corpus"; }

// The whole file as bytes, empty when it cannot be read.
inline std::string ReadFileText(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline bool CorpusPresent() { return std::filesystem::is_directory(CorpusDir()); }

// Files of corpus/<folder> with the given extension, sorted.
inline std::vector<std::filesystem::path> CorpusFiles(const std::string& folder, const std::string& extension) {
    std::vector<std::filesystem::path> files;
    const auto dir = CorpusDir() / folder;
    if (!std::filesystem::is_directory(dir)) return files;
    for (const auto& entry : std::filesystem::directory_iterator(dir))
        if (entry.path().extension() == extension) files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

// The real binaries, then mkgmap's compiles of the shared texts.
inline std::vector<std::filesystem::path> CorpusBinaries() {
    auto files = CorpusFiles("binary", ".typ");
    const auto compiled = CorpusFiles("mkgmap", ".typ");
    files.insert(files.end(), compiled.begin(), compiled.end());
    return files;
}

}  // namespace mirvane::testing

#define MIRVANE_REQUIRE_CORPUS()                                                         \
    do {                                                                                 \
        if (!::mirvane::testing::CorpusPresent())                                        \
            GTEST_SKIP() << "no corpus at " << ::mirvane::testing::CorpusDir().string(); \
    } while (0)
