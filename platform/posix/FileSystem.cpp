// The files of a POSIX machine.
#include "platform/FileSystem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <charconv>
#include <climits>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/UnsizedFile.h"

namespace veygrid {

namespace {

constexpr mode_t PermissionBits = 07777;
constexpr mode_t NewFileMode = 0666;
constexpr int MostLinks = 40;
constexpr int MostNameAttempts = 100;

class Descriptor {
  public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor() { Close(); }

    bool IsOpen() const { return m_number >= 0; }
    int Get() const { return m_number; }
    // The result of the system's close: some file systems report a failed write only here.
    int Close() { return IsOpen() ? ::close(std::exchange(m_number, -1)) : 0; }

  private:
    int m_number;
};

// The error of the system call that has just failed.
[[noreturn]] void ThrowFailure(const std::string& action, std::uint64_t position) {
    const int code = errno;
    throw ArchiveError(action + " failed at byte " + std::to_string(position) + ": " +
                           std::generic_category().message(code),
                       position);
}

void Check(int result, const std::string& action, std::uint64_t position) {
    if (result != 0) {
        ThrowFailure(action, position);
    }
}

template <class Call>
auto Retried(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

Descriptor OpenFile(const std::string& path, int flags, mode_t mode = 0) {
    return Descriptor(Retried([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); }));
}

std::size_t ReadSome(int file, const std::string& path, char* buffer, std::size_t room,
                     std::uint64_t position) {
    const std::size_t asked = std::min<std::size_t>(room, SSIZE_MAX);
    const ssize_t got = Retried([&] { return ::read(file, buffer, asked); });
    if (got < 0) {
        ThrowFailure("reading " + path, position);
    }
    return static_cast<std::size_t>(got);
}

// Writes at the file's own position; `written` counts on.
void WriteAll(int file, const std::string& path, std::string_view bytes, std::uint64_t& written) {
    while (!bytes.empty()) {
        const ssize_t done = Retried([&] { return ::write(file, bytes.data(), bytes.size()); });
        if (done < 0) {
            ThrowFailure("writing " + path, written);
        }
        bytes.remove_prefix(static_cast<std::size_t>(done));
        written += static_cast<std::uint64_t>(done);
    }
}

class SizedFile final : public ByteSource {
  public:
    SizedFile(Descriptor file, std::string path, std::uint64_t size)
        : m_file(std::move(file)), m_path(std::move(path)), m_size(size) {}

    std::uint64_t Size() const override { return m_size; }
    std::size_t Read(char* buffer, std::size_t room) override {
        const std::size_t got = ReadSome(m_file.Get(), m_path, buffer, room, m_position);
        m_position += got;
        return got;
    }

  private:
    Descriptor m_file;
    std::string m_path;
    std::uint64_t m_size;
    std::uint64_t m_position = 0;
};

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

// Some file systems have nothing to flush and say so.
void Synchronize(int file, const std::string& path, std::uint64_t position) {
    if (Retried([&] { return ::fsync(file); }) != 0 && errno != EINVAL && errno != EROFS) {
        ThrowFailure("writing " + path, position);
    }
}

class BesideFile final : public FileReplacement {
  public:
    BesideFile(Descriptor file, std::string path, std::string target)
        : m_file(std::move(file)), m_path(std::move(path)), m_target(std::move(target)) {}
    BesideFile(const BesideFile&) = delete;
    BesideFile& operator=(const BesideFile&) = delete;
    ~BesideFile() override {
        if (!m_committed) {
            ::unlink(m_path.c_str());
        }
    }

    void Write(std::string_view bytes) override {
        WriteAll(m_file.Get(), m_target, bytes, m_written);
    }
    void Commit() override {
        Synchronize(m_file.Get(), m_target, m_written);
        Check(m_file.Close(), "writing " + m_target, m_written);
        Check(::rename(m_path.c_str(), m_target.c_str()), "replacing " + m_target, m_written);
        m_committed = true;
        // The content is in place; that its name survives a power cut is tried, not promised.
        const Descriptor folder = OpenFile(FolderOf(m_target), O_RDONLY | O_DIRECTORY);
        if (folder.IsOpen()) {
            ::fsync(folder.Get());
        }
    }

  private:
    Descriptor m_file;
    std::string m_path;
    std::string m_target;
    std::uint64_t m_written = 0;
    bool m_committed = false;
};

// Overwrites a file in a folder that takes no new ones. Nothing is touched before all is known and
// there is room for it.
class InPlaceFile final : public FileReplacement {
  public:
    InPlaceFile(Descriptor file, std::string target)
        : m_file(std::move(file)), m_target(std::move(target)) {}

    void Write(std::string_view bytes) override { m_bytes.append(bytes); }
    void Commit() override {
        Reserve();
        std::uint64_t written = 0;
        WriteAll(m_file.Get(), m_target, m_bytes, written);
        Check(::ftruncate(m_file.Get(), static_cast<off_t>(m_bytes.size())), "writing " + m_target,
              written);
        Synchronize(m_file.Get(), m_target, written);
        Check(m_file.Close(), "writing " + m_target, written);
    }

  private:
    void Reserve() {
        struct stat before {};
        Check(::fstat(m_file.Get(), &before), "writing " + m_target, 0);
        const int code = m_bytes.empty() ? 0
                                         : ::posix_fallocate(m_file.Get(), 0,
                                                             static_cast<off_t>(m_bytes.size()));
        if (code == 0 || code == EOPNOTSUPP || code == EINVAL) {
            return;
        }
        // A part of the space may have been given to the file.
        static_cast<void>(!::ftruncate(m_file.Get(), before.st_size));
        errno = code;
        ThrowFailure("writing " + m_target, 0);
    }

    Descriptor m_file;
    std::string m_target;
    std::string m_bytes;
};

class StraightFile final : public FileReplacement {
  public:
    StraightFile(Descriptor file, std::string path)
        : m_file(std::move(file)), m_path(std::move(path)) {}

    void Write(std::string_view bytes) override {
        WriteAll(m_file.Get(), m_path, bytes, m_written);
    }
    void Commit() override { Check(m_file.Close(), "writing " + m_path, m_written); }

  private:
    Descriptor m_file;
    std::string m_path;
    std::uint64_t m_written = 0;
};

std::optional<std::string> LinkText(const std::string& path) {
    std::string text(PATH_MAX, '\0');
    const ssize_t length = ::readlink(path.c_str(), text.data(), text.size());
    if (length < 0) {
        return std::nullopt;
    }
    text.resize(static_cast<std::size_t>(length));
    return text;
}

// Where a path leads when links at its end are followed, and the open descriptor that it names on
// the way, as /dev/stdout does.
struct Target {
    std::string path;
    std::optional<int> descriptor;
};

std::optional<int> NamedDescriptor(std::string_view path) {
    for (const std::string_view folder : {"/dev/fd/", "/proc/self/fd/"}) {
        int number = 0;
        const char* const end = path.data() + path.size();
        if (path.starts_with(folder) &&
            std::from_chars(path.data() + folder.size(), end, number).ptr == end) {
            return number;
        }
    }
    return std::nullopt;
}

Target FollowLinks(std::string path) {
    for (int links = 0; links < MostLinks; ++links) {
        if (const std::optional<int> descriptor = NamedDescriptor(path)) {
            return {path, descriptor};
        }
        const std::optional<std::string> text = LinkText(path);
        if (!text) {
            break;
        }
        path = text->starts_with('/') ? *text : FolderOf(path) + "/" + *text;
    }
    return {path, std::nullopt};
}

std::unique_ptr<FileReplacement> WriteStraight(Descriptor file, const std::string& path) {
    return file.IsOpen() ? std::make_unique<StraightFile>(std::move(file), path) : nullptr;
}

// A name of its own, short enough wherever the target's is.
std::string BesideName(const std::string& target) {
    static std::atomic<unsigned> counter{0};
    return FolderOf(target) + "/.veygrid-" + std::to_string(::getpid()) + "-" +
           std::to_string(counter++) + ".tmp";
}

// `old` is null for a new file.
std::unique_ptr<FileReplacement> CreateBeside(const std::string& target, const struct stat* old) {
    const mode_t mode = old == nullptr ? NewFileMode : old->st_mode & 0777U;
    for (int attempt = 0; attempt < MostNameAttempts; ++attempt) {
        const std::string name = BesideName(target);
        Descriptor file = OpenFile(name, O_WRONLY | O_CREAT | O_EXCL, mode);
        if (file.IsOpen()) {
            // Only a privileged user can give files away; the permissions matter more.
            if (old != nullptr) {
                static_cast<void>(!::fchown(file.Get(), old->st_uid, old->st_gid));
                static_cast<void>(!::fchmod(file.Get(), old->st_mode & PermissionBits));
            }
            return std::make_unique<BesideFile>(std::move(file), name, target);
        }
        if (errno != EEXIST) {
            break;
        }
    }
    return nullptr;
}

std::unique_ptr<FileReplacement> ReplaceRegular(const std::string& target, const struct stat& old) {
    Descriptor file = OpenFile(target, O_WRONLY);
    if (!file.IsOpen()) {
        return nullptr;
    }
    if (std::unique_ptr<FileReplacement> beside = CreateBeside(target, &old)) {
        return beside;
    }
    return std::make_unique<InPlaceFile>(std::move(file), target);
}

// A zero byte would end the path early and name another file.
bool IsName(std::string_view path) {
    return !path.empty() && path.find('\0') == std::string_view::npos;
}

class PosixFileSystem final : public FileSystem {
  public:
    std::unique_ptr<ByteSource> OpenForReading(std::string_view path) override {
        if (!IsName(path)) {
            return nullptr;
        }
        const std::string name(path);
        Descriptor file = OpenFile(name, O_RDONLY);
        struct stat state {};
        if (!file.IsOpen() || ::fstat(file.Get(), &state) != 0 || S_ISDIR(state.st_mode)) {
            return nullptr;
        }
        // Files that the system makes up while they are read say that they are empty.
        if (S_ISREG(state.st_mode) && state.st_size > 0) {
            return std::make_unique<SizedFile>(std::move(file), name,
                                               static_cast<std::uint64_t>(state.st_size));
        }
        return ReadUnsized(
            [&, position = std::uint64_t{0}](char* buffer, std::size_t room) mutable {
                const std::size_t got = ReadSome(file.Get(), name, buffer, room, position);
                position += got;
                return got;
            });
    }

    std::unique_ptr<FileReplacement> Replace(std::string_view path) override {
        if (!IsName(path)) {
            return nullptr;
        }
        const std::string name(path);
        const Target target = FollowLinks(name);
        if (target.descriptor) {
            return WriteStraight(Descriptor(::fcntl(*target.descriptor, F_DUPFD_CLOEXEC, 0)), name);
        }
        struct stat old {};
        if (::stat(target.path.c_str(), &old) != 0) {
            return errno == ENOENT ? CreateBeside(target.path, nullptr) : nullptr;
        }
        if (S_ISREG(old.st_mode)) {
            return ReplaceRegular(target.path, old);
        }
        return S_ISDIR(old.st_mode) ? nullptr : WriteStraight(OpenFile(name, O_WRONLY), name);
    }
};

}  // namespace

std::unique_ptr<FileSystem> MakeFileSystem() {
    return std::make_unique<PosixFileSystem>();
}

}  // namespace veygrid
