// Automation strings, the system's wide strings and text in code page 936.
#include "platform/win32/ole/OleText.h"

#include <limits>
#include <new>

#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

std::u16string_view AsUtf16(std::wstring_view text) {
    return {reinterpret_cast<const char16_t*>(text.data()), text.size()};
}

}  // namespace

std::string TextFromWide(std::wstring_view text) {
    return CodePage936FromUtf16(AsUtf16(text));
}

std::wstring WideFromText(std::string_view text) {
    const std::u16string wide = Utf16FromCodePage936(text);
    return {wide.begin(), wide.end()};
}

std::string TakeBstr(BSTR text) {
    if (text == nullptr) {
        return {};
    }
    const std::wstring_view whole(text, ::SysStringLen(text));
    return TextFromWide(whole.substr(0, whole.find(L'\0')));
}

OwnedBstr BstrFromWide(std::wstring_view text) {
    if (text.size() > std::numeric_limits<UINT>::max() / sizeof(OLECHAR)) {
        throw std::bad_alloc();
    }
    OwnedBstr result(::SysAllocStringLen(text.data(), static_cast<UINT>(text.size())));
    if (result.Get() == nullptr) {
        throw std::bad_alloc();
    }
    return result;
}

OwnedBstr BstrFromText(std::string_view text) {
    const std::u16string wide = Utf16FromCodePage936(text);
    return BstrFromWide({reinterpret_cast<const wchar_t*>(wide.data()), wide.size()});
}

}  // namespace veygrid
