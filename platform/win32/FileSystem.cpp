// The files of a Windows machine.
#include "platform/FileSystem.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <limits>
#include <string>
#include <system_error>
#include <utility>

#include "platform/UnsizedFile.h"

namespace veygrid {

namespace {

constexpr int MostNameAttempts = 100;
constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

class FileHandle {
  public:
    explicit FileHandle(HANDLE handle) : m_handle(handle) {}
    FileHandle(FileHandle&& other) noexcept
        : m_handle(std::exchange(other.m_handle, INVALID_HANDLE_VALUE)) {}
    FileHandle& operator=(FileHandle&& other) noexcept {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~FileHandle() { Close(); }

    bool IsOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return m_handle; }
    bool Close() {
        return !IsOpen() || ::CloseHandle(std::exchange(m_handle, INVALID_HANDLE_VALUE)) != 0;
    }

  private:
    HANDLE m_handle;
};

std::string Utf8Of(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int size =
        ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(std::max(size, 0)), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(), size, nullptr, nullptr);
    return result;
}

// Empty for a path that is no UTF-8, is empty itself, or holds a zero byte, which would end it
// early and name another file.
std::wstring WidePath(std::string_view path) {
    constexpr std::size_t MostBytes = 1U << 17U;
    if (path.empty() || path.size() > MostBytes || path.find('\0') != std::string_view::npos) {
        return {};
    }
    const int length = static_cast<int>(path.size());
    const int size =
        ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(std::max(size, 0)), L'\0');
    ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path.data(), length, wide.data(), size);
    return wide;
}

// The error of the system call that has just failed.
[[noreturn]] void ThrowFailure(const char* action, const std::wstring& path,
                               std::uint64_t position) {
    const DWORD code = ::GetLastError();
    throw ArchiveError(std::string(action) + " " + Utf8Of(path) + " failed at byte " +
                           std::to_string(position) + ": " +
                           std::system_category().message(static_cast<int>(code)),
                       position);
}

void Check(bool succeeded, const char* action, const std::wstring& path, std::uint64_t position) {
    if (!succeeded) {
        ThrowFailure(action, path, position);
    }
}

FileHandle OpenExisting(const std::wstring& path, DWORD access, DWORD flags = 0) {
    return FileHandle(
        ::CreateFileW(path.c_str(), access, ShareAll, nullptr, OPEN_EXISTING, flags, nullptr));
}

DWORD ClampedSize(std::size_t size) {
    constexpr std::size_t Most = std::size_t{1} << 30U;
    return static_cast<DWORD>(std::min(size, Most));
}

// A pipe whose other end is closed has come to its end.
std::size_t ReadSome(HANDLE file, const std::wstring& path, char* buffer, std::size_t room,
                     std::uint64_t position) {
    DWORD got = 0;
    const bool read = ::ReadFile(file, buffer, ClampedSize(room), &got, nullptr) != 0;
    if (!read && ::GetLastError() != ERROR_BROKEN_PIPE) {
        ThrowFailure("reading", path, position);
    }
    return got;
}

void WriteAll(HANDLE file, const std::wstring& path, std::string_view bytes,
              std::uint64_t& written) {
    while (!bytes.empty()) {
        DWORD done = 0;
        Check(::WriteFile(file, bytes.data(), ClampedSize(bytes.size()), &done, nullptr) != 0,
              "writing", path, written);
        bytes.remove_prefix(done);
        written += done;
    }
}

class SizedFile final : public ByteSource {
  public:
    SizedFile(FileHandle file, std::wstring path, std::uint64_t size)
        : m_file(std::move(file)), m_path(std::move(path)), m_size(size) {}

    std::uint64_t Size() const override { return m_size; }
    std::size_t Read(char* buffer, std::size_t room) override {
        const std::size_t got = ReadSome(m_file.Get(), m_path, buffer, room, m_position);
        m_position += got;
        return got;
    }

  private:
    FileHandle m_file;
    std::wstring m_path;
    std::uint64_t m_size;
    std::uint64_t m_position = 0;
};

bool Exists(const std::wstring& path) {
    return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

class BesideFile final : public FileReplacement {
  public:
    BesideFile(FileHandle file, std::wstring path, std::wstring target)
        : m_file(std::move(file)), m_path(std::move(path)), m_target(std::move(target)) {}
    BesideFile(const BesideFile&) = delete;
    BesideFile& operator=(const BesideFile&) = delete;
    ~BesideFile() override {
        m_file.Close();
        if (!m_keep) {
            ::DeleteFileW(m_path.c_str());
        }
    }

    void Write(std::string_view bytes) override {
        WriteAll(m_file.Get(), m_target, bytes, m_written);
    }
    void Commit() override {
        Check(::FlushFileBuffers(m_file.Get()) != 0, "writing", m_target, m_written);
        Check(m_file.Close(), "writing", m_target, m_written);
        const bool existed = Exists(m_target);
        const bool replaced = (existed && ReplaceTarget()) || MoveToTarget();
        // A replacement that fails half way has taken the old file away; the new one is then all
        // that is left.
        m_keep = replaced || (existed && !Exists(m_target));
        Check(replaced, "replacing", m_target, m_written);
    }

  private:
    // Keeps the attributes and access rights of the old file.
    bool ReplaceTarget() const {
        return ::ReplaceFileW(m_target.c_str(), m_path.c_str(), nullptr,
                              REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != 0;
    }
    bool MoveToTarget() const {
        return ::MoveFileExW(m_path.c_str(), m_target.c_str(),
                             MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    }

    FileHandle m_file;
    std::wstring m_path;
    std::wstring m_target;
    std::uint64_t m_written = 0;
    bool m_keep = false;
};

// Overwrites a file in a folder that takes no new ones. Nothing is touched before all is known and
// there is room for it.
class InPlaceFile final : public FileReplacement {
  public:
    InPlaceFile(FileHandle file, std::wstring target)
        : m_file(std::move(file)), m_target(std::move(target)) {}

    void Write(std::string_view bytes) override { m_bytes.append(bytes); }
    void Commit() override {
        LARGE_INTEGER before{};
        Check(::GetFileSizeEx(m_file.Get(), &before) != 0, "writing", m_target, 0);
        const auto size = static_cast<LONGLONG>(m_bytes.size());
        Check(size <= before.QuadPart || SetSize(size), "writing", m_target, 0);
        Check(SeekTo(0), "writing", m_target, 0);
        std::uint64_t written = 0;
        WriteAll(m_file.Get(), m_target, m_bytes, written);
        Check(SetSize(size) && ::FlushFileBuffers(m_file.Get()) != 0 && m_file.Close(), "writing",
              m_target, written);
    }

  private:
    bool SeekTo(LONGLONG position) const {
        LARGE_INTEGER distance{};
        distance.QuadPart = position;
        return ::SetFilePointerEx(m_file.Get(), distance, nullptr, FILE_BEGIN) != 0;
    }
    bool SetSize(LONGLONG size) const { return SeekTo(size) && ::SetEndOfFile(m_file.Get()) != 0; }

    FileHandle m_file;
    std::wstring m_target;
    std::string m_bytes;
};

class StraightFile final : public FileReplacement {
  public:
    StraightFile(FileHandle file, std::wstring path)
        : m_file(std::move(file)), m_path(std::move(path)) {}

    void Write(std::string_view bytes) override {
        WriteAll(m_file.Get(), m_path, bytes, m_written);
    }
    void Commit() override { Check(m_file.Close(), "writing", m_path, m_written); }

  private:
    FileHandle m_file;
    std::wstring m_path;
    std::uint64_t m_written = 0;
};

// With its last separator; empty for a bare name.
std::wstring FolderOf(const std::wstring& path) {
    const std::size_t separator = path.find_last_of(L"\\/:");
    return separator == std::wstring::npos ? L"" : path.substr(0, separator + 1);
}

std::wstring BesideName(const std::wstring& target) {
    static std::atomic<unsigned> counter{0};
    return FolderOf(target) + L"~veygrid-" + std::to_wstring(::GetCurrentProcessId()) + L"-" +
           std::to_wstring(counter++) + L".tmp";
}

std::unique_ptr<FileReplacement> CreateBeside(const std::wstring& target) {
    for (int attempt = 0; attempt < MostNameAttempts; ++attempt) {
        const std::wstring name = BesideName(target);
        FileHandle file(::CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
        if (file.IsOpen()) {
            return std::make_unique<BesideFile>(std::move(file), name, target);
        }
        if (::GetLastError() != ERROR_FILE_EXISTS) {
            break;
        }
    }
    return nullptr;
}

// Where an open file really lies, links followed; the path it was opened by when that is not told.
std::wstring FinalPath(const FileHandle& file, const std::wstring& path) {
    std::wstring text(32768, L'\0');
    const DWORD length = ::GetFinalPathNameByHandleW(
        file.Get(), text.data(), static_cast<DWORD>(text.size()), FILE_NAME_NORMALIZED);
    if (length == 0 || length >= text.size()) {
        return path;
    }
    text.resize(length);
    return text;
}

std::unique_ptr<FileReplacement> ReplaceExisting(FileHandle file, const std::wstring& path) {
    if (::GetFileType(file.Get()) != FILE_TYPE_DISK) {
        return std::make_unique<StraightFile>(std::move(file), path);
    }
    const std::wstring target = FinalPath(file, path);
    if (std::unique_ptr<FileReplacement> beside = CreateBeside(target)) {
        return beside;
    }
    return std::make_unique<InPlaceFile>(std::move(file), target);
}

class WindowsFileSystem final : public FileSystem {
  public:
    std::unique_ptr<ByteSource> OpenForReading(std::string_view path) override {
        const std::wstring name = WidePath(path);
        // A folder does not open without a flag of its own.
        FileHandle file = OpenExisting(name, GENERIC_READ, FILE_FLAG_SEQUENTIAL_SCAN);
        if (name.empty() || !file.IsOpen()) {
            return nullptr;
        }
        LARGE_INTEGER size{};
        if (::GetFileType(file.Get()) == FILE_TYPE_DISK &&
            ::GetFileSizeEx(file.Get(), &size) != 0) {
            return std::make_unique<SizedFile>(std::move(file), name,
                                               static_cast<std::uint64_t>(size.QuadPart));
        }
        return ReadUnsized(
            [&, position = std::uint64_t{0}](char* buffer, std::size_t room) mutable {
                const std::size_t got = ReadSome(file.Get(), name, buffer, room, position);
                position += got;
                return got;
            });
    }

    std::unique_ptr<FileReplacement> Replace(std::string_view path) override {
        const std::wstring name = WidePath(path);
        if (name.empty()) {
            return nullptr;
        }
        FileHandle file = OpenExisting(name, GENERIC_WRITE);
        if (file.IsOpen()) {
            return ReplaceExisting(std::move(file), name);
        }
        return ::GetLastError() == ERROR_FILE_NOT_FOUND ? CreateBeside(name) : nullptr;
    }
};

}  // namespace

std::unique_ptr<FileSystem> MakeFileSystem() {
    return std::make_unique<WindowsFileSystem>();
}

}  // namespace veygrid
