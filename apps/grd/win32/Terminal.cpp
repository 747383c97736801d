// The console and the arguments of the process on Windows, which speaks UTF-16.
#include <windows.h>
// The shell's header needs the base types first.
#include <shellapi.h>

#include <algorithm>
#include <iostream>

#include "apps/grd/Console.h"
#include "apps/grd/Trouble.h"

namespace veygrid {

namespace {

std::string Utf8FromWide(std::wstring_view wide) {
    const int size = static_cast<int>(wide.size());
    const int needed =
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(std::max(needed, 0)), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text.data(), needed, nullptr, nullptr);
    return text;
}

std::wstring WideFromUtf8(std::string_view text) {
    const int size = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(std::max(needed, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), needed);
    return wide;
}

std::string SystemMessage(DWORD error) {
    wchar_t text[512];
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, error, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    std::string message = Utf8FromWide({text, length});
    while (!message.empty() && (message.back() == ' ' || message.back() == '.')) {
        message.pop_back();
    }
    return message.empty() ? "system error " + std::to_string(error) : message;
}

bool IsConsole(HANDLE file) {
    DWORD mode = 0;
    return GetConsoleMode(file, &mode) != 0;
}

// Bytes of UTF-8 at the end that begin a character which the text does not complete.
std::size_t UnfinishedTail(std::string_view text) {
    for (std::size_t back = 1; back <= std::min<std::size_t>(3, text.size()); ++back) {
        const auto byte = static_cast<unsigned char>(text[text.size() - back]);
        if (byte >= 0xC0) {
            const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
            return length > back ? back : 0;
        }
        if (byte < 0x80) {
            return 0;
        }
    }
    return 0;
}

// One of the two outputs: characters for a console window, UTF-8 bytes for a file or a pipe.
class Output {
  public:
    explicit Output(DWORD which) : m_file(GetStdHandle(which)), m_isConsole(IsConsole(m_file)) {}

    bool IsTerminal() const { return m_isConsole; }

    // 0, or the system's error code.
    DWORD Write(std::string_view utf8) {
        if (m_file == nullptr || m_file == INVALID_HANDLE_VALUE) {
            return ERROR_INVALID_HANDLE;
        }
        return m_isConsole ? WriteCharacters(utf8) : WriteBytes(utf8);
    }

  private:
    // A single call of the console takes only some ten thousand units.
    static constexpr std::size_t ConsoleChunk = 8192;
    static constexpr std::size_t FileChunk = 1U << 20U;

    DWORD WriteBytes(std::string_view bytes) {
        while (!bytes.empty()) {
            const auto chunk = static_cast<DWORD>(std::min(bytes.size(), FileChunk));
            DWORD written = 0;
            if (WriteFile(m_file, bytes.data(), chunk, &written, nullptr) == 0) {
                return GetLastError();
            }
            if (written == 0) {
                return ERROR_DISK_FULL;
            }
            bytes.remove_prefix(written);
        }
        return 0;
    }

    DWORD WriteCharacters(std::string_view utf8) {
        m_pending.append(utf8);
        const std::string_view whole =
            std::string_view(m_pending).substr(0, m_pending.size() - UnfinishedTail(m_pending));
        const std::wstring wide = WideFromUtf8(whole);
        m_pending.erase(0, whole.size());
        for (std::size_t at = 0; at < wide.size();) {
            DWORD written = 0;
            const auto chunk = static_cast<DWORD>(std::min(wide.size() - at, ConsoleChunk));
            if (WriteConsoleW(m_file, wide.data() + at, chunk, &written, nullptr) == 0) {
                return GetLastError();
            }
            at += written;
        }
        return 0;
    }

    HANDLE m_file;
    bool m_isConsole;
    std::string m_pending;
};

class WindowsConsole : public Console {
  public:
    void WriteOut(std::string_view utf8) override {
        const DWORD error = m_out.Write(utf8);
        if (error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA) {
            throw OutputClosed();
        }
        if (error != 0) {
            throw FileTrouble("standard output", SystemMessage(error));
        }
    }
    void WriteError(std::string_view utf8) override { m_error.Write(utf8); }
    bool OutIsTerminal() override { return m_out.IsTerminal(); }
    std::ostream* ProgressStream() override { return m_error.IsTerminal() ? &std::cerr : nullptr; }

  private:
    Output m_out{STD_OUTPUT_HANDLE};
    Output m_error{STD_ERROR_HANDLE};
};

// The list of arguments that the shell splits off the command line.
class ArgumentList {
  public:
    ArgumentList() : m_list(CommandLineToArgvW(GetCommandLineW(), &m_count)) {}
    ArgumentList(const ArgumentList&) = delete;
    ArgumentList& operator=(const ArgumentList&) = delete;
    ~ArgumentList() { LocalFree(m_list); }

    int Count() const { return m_list == nullptr ? 0 : m_count; }
    std::wstring_view At(int index) const { return m_list[index]; }

  private:
    int m_count = 0;
    LPWSTR* m_list;
};

}  // namespace

std::unique_ptr<Console> OpenConsole() {
    return std::make_unique<WindowsConsole>();
}

std::vector<std::string> ArgumentsInUtf8(int, char**) {
    const ArgumentList list;
    std::vector<std::string> arguments;
    for (int i = 1; i < list.Count(); ++i) {
        arguments.push_back(Utf8FromWide(list.At(i)));
    }
    return arguments;
}

}  // namespace veygrid
