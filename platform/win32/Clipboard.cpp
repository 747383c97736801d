// Text on the system's clipboard.
#include "platform/win32/Clipboard.h"

#include <cstring>
#include <memory>

#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

constexpr LCID SimplifiedChinese = 0x0804;

class OpenedClipboard {
  public:
    explicit OpenedClipboard(HWND owner) : m_isOpen(::OpenClipboard(owner) != 0) {}
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    ~OpenedClipboard() {
        if (m_isOpen) {
            ::CloseClipboard();
        }
    }
    bool IsOpen() const { return m_isOpen; }

  private:
    bool m_isOpen;
};

// A movable block with the bytes; the clipboard takes it over when it accepts it.
bool Hand(UINT format, const void* bytes, std::size_t size) {
    const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_DDESHARE, size);
    void* const target = block == nullptr ? nullptr : ::GlobalLock(block);
    if (target != nullptr) {
        std::memcpy(target, bytes, size);
        ::GlobalUnlock(block);
        if (::SetClipboardData(format, block) != nullptr) {
            return true;
        }
    }
    ::GlobalFree(block);
    return false;
}

}  // namespace

bool PutClipboardText(HWND owner, std::string_view text) {
    const std::u16string wide = Utf16FromCodePage936(text);
    const std::string narrow(text);
    const OpenedClipboard clipboard(owner);
    if (!clipboard.IsOpen()) {
        return false;
    }
    ::EmptyClipboard();
    Hand(CF_UNICODETEXT, wide.c_str(), (wide.size() + 1) * sizeof(char16_t));
    Hand(CF_TEXT, narrow.c_str(), narrow.size() + 1);
    Hand(CF_LOCALE, &SimplifiedChinese, sizeof SimplifiedChinese);
    return true;
}

std::optional<std::string> GetClipboardText(HWND owner) {
    const OpenedClipboard clipboard(owner);
    const HANDLE block = clipboard.IsOpen() ? ::GetClipboardData(CF_UNICODETEXT) : nullptr;
    const auto* const text =
        static_cast<const char16_t*>(block == nullptr ? nullptr : ::GlobalLock(block));
    if (text == nullptr) {
        return std::nullopt;
    }
    const std::u16string_view whole(text, ::GlobalSize(block) / sizeof(char16_t));
    std::string result = CodePage936FromUtf16(whole.substr(0, whole.find(u'\0')));
    ::GlobalUnlock(block);
    return result;
}

}  // namespace veygrid
