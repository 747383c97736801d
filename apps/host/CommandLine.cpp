// The host's command line.
#include "apps/host/CommandLine.h"

// The shell's header needs the base types first.
#include <shellapi.h>

#include <cwchar>

namespace veygrid {

namespace {

// Walks over the arguments that the system splits off the command line.
class Arguments {
  public:
    Arguments() : m_list(CommandLineToArgvW(GetCommandLineW(), &m_count)) {}
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;
    ~Arguments() { LocalFree(m_list); }

    // Null at the end.
    const wchar_t* Next() { return m_at < m_count ? m_list[m_at++] : nullptr; }

  private:
    int m_count = 0;
    int m_at = 1;
    LPWSTR* m_list;
};

bool TakeText(Arguments& arguments, std::wstring& text) {
    const wchar_t* given = arguments.Next();
    text = given == nullptr ? L"" : given;
    return !text.empty();
}

bool TakePixels(Arguments& arguments, LONG& pixels) {
    const wchar_t* given = arguments.Next();
    wchar_t* end = nullptr;
    pixels = given == nullptr ? 0 : std::wcstol(given, &end, 10);
    return pixels > 0 && pixels <= 16384 && *end == L'\0';
}

// A name such as zh-CN, or a locale's number.
bool TakeLocale(Arguments& arguments, LCID& locale) {
    const wchar_t* given = arguments.Next();
    if (given == nullptr) {
        return false;
    }
    wchar_t* end = nullptr;
    locale = std::wcstoul(given, &end, 0);
    if (*end != L'\0') {
        locale = LocaleNameToLCID(given, 0);
    }
    return locale != 0 && IsValidLocale(locale, LCID_SUPPORTED);
}

bool TakeOption(const std::wstring& option, Arguments& arguments, CommandLine& line) {
    if (option == L"/script") {
        return TakeText(arguments, line.script);
    }
    if (option == L"/shot") {
        return TakeText(arguments, line.shot);
    }
    if (option == L"/dsn") {
        return TakeText(arguments, line.dsn);
    }
    if (option == L"/sql") {
        return TakeText(arguments, line.sql);
    }
    if (option == L"/size") {
        return TakePixels(arguments, line.size.cx) && TakePixels(arguments, line.size.cy);
    }
    if (option == L"/locale") {
        return TakeLocale(arguments, line.locale);
    }
    return false;
}

// A path of another system's kind, "/home/…", is a file and no option.
bool IsOption(const std::wstring& argument) {
    return argument.size() > 1 && argument[0] == L'/' &&
           argument.find(L'/', 1) == std::wstring::npos &&
           argument.find(L'.') == std::wstring::npos;
}

}  // namespace

std::optional<CommandLine> ParseCommandLine(std::wstring& problem) {
    CommandLine line;
    Arguments arguments;
    while (const wchar_t* given = arguments.Next()) {
        const std::wstring argument = given;
        if (IsOption(argument)) {
            if (!TakeOption(argument, arguments, line)) {
                problem = L"wrong option " + argument;
                return std::nullopt;
            }
        } else if (line.file.empty()) {
            line.file = argument;
        } else {
            problem = L"more than one file: " + argument;
            return std::nullopt;
        }
    }
    if (!line.sql.empty() && line.dsn.empty()) {
        problem = L"/sql without /dsn";
        return std::nullopt;
    }
    return line;
}

}  // namespace veygrid
