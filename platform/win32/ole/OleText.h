// Automation strings, the system's wide strings and text in code page 936.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/win32/ole/Platform.h"

namespace veygrid {

// A BSTR with an owner.
class OwnedBstr {
  public:
    OwnedBstr() = default;
    explicit OwnedBstr(BSTR text) : m_text(text) {}
    OwnedBstr(OwnedBstr&& other) noexcept : m_text(other.Release()) {}
    OwnedBstr& operator=(OwnedBstr&& other) noexcept {
        std::swap(m_text, other.m_text);
        return *this;
    }
    ~OwnedBstr() { ::SysFreeString(m_text); }

    BSTR Get() const { return m_text; }
    BSTR* Address() { return &m_text; }
    BSTR Release() { return std::exchange(m_text, nullptr); }

  private:
    BSTR m_text = nullptr;
};

// Text up to the first zero character, as narrow hosts end theirs; a null BSTR is the empty text.
// A character that code page 936 cannot hold becomes "?".
std::string TakeBstr(BSTR text);
std::string TextFromWide(std::wstring_view text);
std::wstring WideFromText(std::string_view text);

// Never null: an empty text is an empty BSTR. Throws std::bad_alloc.
OwnedBstr BstrFromText(std::string_view text);
OwnedBstr BstrFromWide(std::wstring_view text);

}  // namespace veygrid
