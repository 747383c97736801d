// Owner types for VARIANT and BSTR.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace veygrid {

// A VARIANT that clears itself. Copies are deep (VariantCopy).
class Variant : public VARIANT {
  public:
    Variant() noexcept { VariantInit(this); }
    Variant(const Variant& other) : Variant() { VariantCopy(this, Mutable(other)); }
    Variant(Variant&& other) noexcept : VARIANT(other) { VariantInit(&other); }
    // The value itself where the other refers to one.
    explicit Variant(const VARIANT& other) : Variant() { VariantCopyInd(this, Mutable(other)); }
    Variant& operator=(Variant other) noexcept;
    ~Variant() { VariantClear(this); }

    static Variant Of(long value);
    static Variant Of(bool value);
    static Variant Of(std::wstring_view value);
    // Without it, a literal would count as true.
    static Variant Of(const wchar_t* value) { return Of(std::wstring_view(value)); }
    // Takes a reference of its own; null makes the "Nothing" of scripts.
    static Variant Of(IDispatch* value);
    // Refers to the number, which must live as long.
    static Variant ByReference(long& value);
    static Variant ByReference(short& value);
    // An array of variants, as scripts want them.
    static Variant Of(const std::vector<Variant>& values);

    // The value as text, as a script would write it; empty when it cannot be text.
    std::wstring Text() const;
    // The value as a number; `otherwise` when it cannot be one.
    long Number(long otherwise = 0) const;
    bool Truth() const;

  private:
    // The system's calls are not const-correct.
    static VARIANT* Mutable(const VARIANT& value) { return const_cast<VARIANT*>(&value); }
};

// The text of a BSTR, which may be null.
std::wstring_view TextOfBstr(BSTR text);

// Text for the length of a call that takes a BSTR.
class Bstr {
  public:
    explicit Bstr(std::wstring_view text)
        : m_text(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    Bstr() = default;
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { SysFreeString(m_text); }

    BSTR Get() const { return m_text; }
    BSTR* Out() { return &m_text; }
    std::wstring_view Text() const { return TextOfBstr(m_text); }

  private:
    BSTR m_text = nullptr;
};

}  // namespace veygrid
