// Text between the encodings of files, the console and the wide calls of the system.
#include "apps/host/Text.h"

#include <windows.h>

#include <cwchar>
#include <iterator>

#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

std::wstring WideFromUtf8(std::string_view text) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size);
    wide.resize(static_cast<std::size_t>(length));
    return wide;
}

std::wstring WideFromUtf16Bytes(std::string_view bytes, bool isBigEndian) {
    std::wstring wide;
    wide.reserve(bytes.size() / 2);
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        wide.push_back(
            static_cast<wchar_t>(isBigEndian ? first << 8 | second : second << 8 | first));
    }
    return wide;
}

std::wstring SystemMessage(long result) {
    wchar_t text[512];
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, static_cast<DWORD>(result), 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    const std::wstring_view message(text, length);
    return std::wstring(message.substr(0, message.find_last_not_of(L" .") + 1));
}

}  // namespace

std::wstring ErrorText(long result, std::wstring text) {
    if (text.empty()) {
        text = SystemMessage(result);
    }
    wchar_t number[16];
    swprintf(number, std::size(number), L"(0x%08lX)", static_cast<unsigned long>(result));
    return (text.empty() ? L"error" : text) + L" " + number;
}

std::string Utf8FromWide(std::wstring_view text) {
    const int size = static_cast<int>(text.size());
    // A UTF-16 unit never needs more than three bytes.
    std::string utf8(text.size() * 3, '\0');
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(),
                                           static_cast<int>(utf8.size()), nullptr, nullptr);
    utf8.resize(static_cast<std::size_t>(length));
    return utf8;
}

std::wstring WideFromFileBytes(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE")) {
        return WideFromUtf16Bytes(bytes.substr(2), false);
    }
    if (bytes.starts_with("\xFE\xFF")) {
        return WideFromUtf16Bytes(bytes.substr(2), true);
    }
    if (bytes.starts_with("\xEF\xBB\xBF")) {
        return WideFromUtf8(bytes.substr(3));
    }
    return IsUtf8(bytes) ? WideFromUtf8(bytes) : WideFromNarrow(bytes);
}

std::wstring WideFromNarrow(std::string_view text) {
    const std::u16string decoded = Utf16FromCodePage936(text);
    return std::wstring(decoded.begin(), decoded.end());
}

}  // namespace veygrid
