#include "base/file_io.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <random>
#include <system_error>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace mirvane {

namespace fs = std::filesystem;

namespace {

std::string SystemReason(int error) { return error ? std::generic_category().message(error) : std::string(); }

ReadResult Inspect(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) return {ReadStatus::Missing, SystemReason(ENOENT)};
    if (!fs::is_regular_file(status)) return {ReadStatus::NotRegularFile, {}};
    const std::uintmax_t size = fs::file_size(path, error);
    if (!error && size > kMaxInputFileSize) return {ReadStatus::TooLarge, {}};
    errno = 0;
    if (!std::ifstream(path, std::ios::binary)) return {ReadStatus::Failed, SystemReason(errno)};
    return {};
}

template <typename Container>
ReadResult ReadInto(const fs::path& path, Container& out) {
    if (ReadResult inspected = Inspect(path); !inspected.Ok()) return inspected;
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    if (!stream) return {ReadStatus::Failed, SystemReason(errno)};
    // A file that grows while it is read is still cut at the bound.
    Container content;
    try {
        // One allocation of the file's size: growing by chunks copies the
        // content again and again and touches fresh pages each time.
        std::error_code sizeError;
        const auto size = fs::file_size(path, sizeError);
        if (!sizeError) content.reserve(static_cast<std::size_t>(std::min<std::uintmax_t>(size, kMaxInputFileSize)) + 1);
        char chunk[1 << 16];
        while (stream.read(chunk, sizeof chunk) || stream.gcount() > 0) {
            content.insert(content.end(), chunk, chunk + stream.gcount());
            if (content.size() > kMaxInputFileSize) return {ReadStatus::TooLarge, {}};
        }
    } catch (const std::exception&) {
        return {ReadStatus::Failed, SystemReason(errno)};
    }
    if (stream.bad()) return {ReadStatus::Failed, SystemReason(errno)};
    out = std::move(content);
    return {};
}

// The file a write to `target` replaces: symbolic links are followed, even
// to a file that does not exist yet, so the link itself stays a link.
fs::path FollowLinks(const fs::path& target) {
    fs::path path = target;
    std::error_code error;
    for (int hops = 0; hops < 40 && fs::is_symlink(fs::symlink_status(path, error)); ++hops) {
        const fs::path next = fs::read_symlink(path, error);
        if (error) break;
        path = next.is_absolute() ? next : path.parent_path() / next;
    }
    return path;
}

TargetKind KindOf(const fs::path& resolved) {
    std::error_code error;
    const fs::file_status status = fs::status(resolved, error);
    if (!fs::exists(status)) return TargetKind::Missing;
    if (!fs::is_regular_file(status)) return TargetKind::NotRegularFile;
    const fs::perms writeBits = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    if ((status.permissions() & writeBits) == fs::perms::none) return TargetKind::ReadOnly;
#ifndef _WIN32
    if (::access(resolved.c_str(), W_OK) != 0) return TargetKind::ReadOnly;
#endif
    return TargetKind::Writable;
}

std::string RandomSuffix() {
    static thread_local std::mt19937_64 generator{std::random_device{}()};
    static const char digits[] = "0123456789abcdef";
    std::uint64_t value = generator();
    std::string suffix;
    for (int i = 0; i < 12; ++i, value >>= 4) suffix += digits[value & 15];
    return suffix;
}

std::function<bool(const fs::path&)>& BeforeReplaceHook() {
    static std::function<bool(const fs::path&)> hook;
    return hook;
}

#ifdef _WIN32
int OpenExclusive(const fs::path& path) {
    int fd = -1;
    _wsopen_s(&fd, path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT, _SH_DENYRW,
              _S_IREAD | _S_IWRITE);
    return fd;
}
bool WriteSome(int fd, const char* data, std::size_t size, std::size_t& written) {
    const int count = _write(fd, data, static_cast<unsigned>(std::min<std::size_t>(size, 1u << 30)));
    if (count < 0) return false;
    written = static_cast<std::size_t>(count);
    return true;
}
bool SyncFile(int fd) { return _commit(fd) == 0; }
bool CloseFile(int fd) { return _close(fd) == 0; }
void TakeOwnerAndMode(int, const fs::path&) {}
void SyncFolder(const fs::path&) {}
#else
int OpenExclusive(const fs::path& path) { return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666); }
bool WriteSome(int fd, const char* data, std::size_t size, std::size_t& written) {
    const ssize_t count = ::write(fd, data, size);
    if (count < 0) return errno == EINTR ? (written = 0, true) : false;
    written = static_cast<std::size_t>(count);
    return true;
}
bool SyncFile(int fd) { return ::fsync(fd) == 0; }
bool CloseFile(int fd) { return ::close(fd) == 0; }
// The new file keeps the old one's mode, and its owner where the process may
// give it (a save as root leaves the user's file the user's).
void TakeOwnerAndMode(int fd, const fs::path& old) {
    struct stat info;
    if (::stat(old.c_str(), &info) != 0) return;
    if (::fchown(fd, info.st_uid, info.st_gid) != 0) { /* only root may; the mode still follows */ }
    ::fchmod(fd, info.st_mode & 07777);
}
// The rename itself is durable only once the folder is synced.
void SyncFolder(const fs::path& folder) {
    const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}
#endif

class TemporaryFile {
public:
    ~TemporaryFile() {
        if (fd_ >= 0) CloseFile(fd_);
        if (!path_.empty()) {
            std::error_code ignored;
            fs::remove(path_, ignored);
        }
    }

    // A fresh name beside `target`, created exclusively so that two writes
    // at once never share one.
    bool Create(const fs::path& target) {
        const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
        for (int attempt = 0; attempt < 100; ++attempt) {
            const fs::path candidate = folder / ("." + target.filename().string() + "." + RandomSuffix() + ".tmp");
            errno = 0;
            fd_ = OpenExclusive(candidate);
            if (fd_ >= 0) {
                path_ = candidate;
                return true;
            }
            if (errno != EEXIST) break;
        }
        error_ = errno;
        return false;
    }

    bool Write(std::string_view bytes) {
        std::size_t done = 0;
        while (done < bytes.size()) {
            std::size_t written = 0;
            errno = 0;
            if (!WriteSome(fd_, bytes.data() + done, bytes.size() - done, written)) return Fail();
            done += written;
        }
        return true;
    }

    bool Finish(const fs::path& target, bool targetExists) {
        if (targetExists) TakeOwnerAndMode(fd_, target);
        errno = 0;
        if (!SyncFile(fd_)) return Fail();
        const int fd = fd_;
        fd_ = -1;
        if (!CloseFile(fd)) return Fail();
        return true;
    }

    bool ReplaceTarget(const fs::path& target) {
        std::error_code error;
        fs::rename(path_, target, error);
        if (error) {
            error_ = error.value();
            return false;
        }
        path_.clear();
        return true;
    }

    const fs::path& Path() const { return path_; }
    int Error() const { return error_; }

private:
    bool Fail() {
        error_ = errno;
        return false;
    }

    int fd_ = -1;
    fs::path path_;
    int error_ = 0;
};

}  // namespace

fs::path PathFromUtf8(std::string_view utf8) {
    return fs::path(std::u8string(reinterpret_cast<const char8_t*>(utf8.data()), utf8.size()));
}

std::string Utf8FromPath(const fs::path& path) {
    const std::u8string text = path.u8string();
    return std::string(reinterpret_cast<const char*>(text.data()), text.size());
}

ReadResult InspectInputFile(const fs::path& path) { return Inspect(path); }

ReadResult ReadInputFile(const fs::path& path, Bytes& out) { return ReadInto(path, out); }
ReadResult ReadInputFile(const fs::path& path, std::string& out) { return ReadInto(path, out); }

bool ReadWholeFile(const fs::path& path, Bytes& out) { return ReadInto(path, out).Ok(); }
bool ReadWholeFile(const fs::path& path, std::string& out) { return ReadInto(path, out).Ok(); }

TargetKind InspectWriteTarget(const fs::path& target) { return KindOf(FollowLinks(target)); }

WriteResult WriteFileAtomically(const fs::path& target, std::string_view bytes, ReadOnlyTarget readOnly) {
    const fs::path resolved = FollowLinks(target);
    const TargetKind kind = KindOf(resolved);
    if (kind == TargetKind::NotRegularFile) return {WriteStatus::NotRegularFile, {}};
    if (kind == TargetKind::ReadOnly && readOnly == ReadOnlyTarget::Refuse) return {WriteStatus::ReadOnly, {}};

    TemporaryFile temporary;
    if (!temporary.Create(resolved) || !temporary.Write(bytes) ||
        !temporary.Finish(resolved, kind != TargetKind::Missing))
        return {WriteStatus::Failed, SystemReason(temporary.Error())};
    if (const auto& hook = BeforeReplaceHook(); hook && !hook(temporary.Path()))
        return {WriteStatus::Failed, SystemReason(EIO)};
    if (!temporary.ReplaceTarget(resolved)) return {WriteStatus::Failed, SystemReason(temporary.Error())};
    SyncFolder(resolved.has_parent_path() ? resolved.parent_path() : fs::path("."));
    return {};
}

WriteResult WriteFileAtomically(const fs::path& target, const Bytes& bytes, ReadOnlyTarget readOnly) {
    return WriteFileAtomically(
        target, std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()), readOnly);
}

void SetBeforeReplaceHook(std::function<bool(const fs::path&)> hook) { BeforeReplaceHook() = std::move(hook); }


}  // namespace mirvane
