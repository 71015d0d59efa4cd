// A folder of its own under the system's temporary folder, removed with it.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace mirvane::testing {

class TempFolder {
public:
    TempFolder()
        : path_(std::filesystem::temp_directory_path() /
                ("mirvane-test-" + std::to_string(::getpid()) + "-" + std::to_string(counter_++))) {
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    std::string File(const std::string& name) const { return (path_ / name).string(); }

private:
    static inline int counter_ = 0;
    std::filesystem::path path_;
};

}  // namespace mirvane::testing
