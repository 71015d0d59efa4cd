#include "base/file_io.h"

#include <fstream>
#include <iterator>

namespace mirvane {

namespace {

template <typename Container>
bool ReadInto(const std::filesystem::path& path, Container& out) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream) return false;
    out.assign(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    return !stream.bad();
}

}  // namespace

std::filesystem::path PathFromUtf8(std::string_view utf8) {
    return std::filesystem::path(std::u8string(reinterpret_cast<const char8_t*>(utf8.data()), utf8.size()));
}

std::string Utf8FromPath(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return std::string(reinterpret_cast<const char*>(text.data()), text.size());
}

bool ReadWholeFile(const std::filesystem::path& path, Bytes& out) { return ReadInto(path, out); }

bool ReadWholeFile(const std::filesystem::path& path, std::string& out) { return ReadInto(path, out); }

bool WriteFileAtomically(const std::filesystem::path& path, std::string_view bytes) {
    namespace fs = std::filesystem;
    fs::path temporary = path;
    temporary += ".mirvane-tmp";
    std::error_code error;
    {
        std::ofstream stream(temporary, std::ios::binary | std::ios::trunc);
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        stream.close();
        if (!stream) {
            fs::remove(temporary, error);
            return false;
        }
    }
    fs::rename(temporary, path, error);
    if (!error) return true;
    fs::remove(temporary, error);
    return false;
}

bool WriteFileAtomically(const std::filesystem::path& path, const Bytes& bytes) {
    return WriteFileAtomically(path, std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

}  // namespace mirvane
