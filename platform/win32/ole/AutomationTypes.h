// The types of automation arguments and results, and how each is read from and put into a VARIANT.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "platform/win32/ole/OwnedVariant.h"
#include "platform/win32/ole/Platform.h"

namespace veygrid {

using Microsoft::WRL::ComPtr;

// Takes over a reference. The Attach of some versions of ComPtr adds one of its own.
template <class Interface>
ComPtr<Interface> Adopt(Interface* reference) {
    ComPtr<Interface> owner;
    *owner.GetAddressOf() = reference;
    return owner;
}

// How a type library knows a type.
struct ValueType {
    VARTYPE vt = VT_EMPTY;
    bool isResultPointer = false;
    std::string_view name = "void";
};

// A colour, 0x00BBGGRR or a system colour, as 32 bits; scripts hand it in with a sign.
struct OleColor {
    std::uint32_t value = 0;
};
// Any object; null is legal.
struct AnyObject {
    ComPtr<IDispatch> object;
};
// An object whose reference the handler takes over from the caller, which adds none for it.
class GivenObject {
  public:
    // For Take() alone. Null itself is legal too; throws OleError as ReadObject does.
    explicit GivenObject(const VARIANT& given);

    // Null is legal. To be called once, by a handler that was reached.
    ComPtr<IDispatch> Take();

  private:
    IUnknown* m_given = nullptr;
    ComPtr<IDispatch> m_object;
};
// A VARIANT taken and given as it stands; the handler does not own an argument.
struct AnyValue {
    VARIANT value;
};

// Argument readers throw OleError with the platform's code: DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW.
bool ReadBool(const VARIANT& given, LCID locale);
std::int16_t ReadShort(const VARIANT& given, LCID locale);
std::int32_t ReadLong(const VARIANT& given, LCID locale);
OleColor ReadColor(const VARIANT& given, LCID locale);
std::string ReadText(const VARIANT& given, LCID locale);
ComPtr<IDispatch> ReadObject(const VARIANT& given);
// The value behind any depth of references to a VARIANT.
const VARIANT& Dereferenced(const VARIANT& given);

void PutBool(VARIANT& target, bool value);
void PutShort(VARIANT& target, std::int16_t value);
void PutLong(VARIANT& target, std::int32_t value);
void PutText(VARIANT& target, std::string_view text);
void PutObject(VARIANT& target, ComPtr<IDispatch> object);

// Puts a result into what the caller handed for it: a VARIANT is cleared and written, a reference
// to a typed value is written after conversion, a plain value is left alone. Takes over `result`.
void PutIntoArgument(VARIANT& argument, OwnedVariant& result, LCID locale);

template <class T>
struct AutomationType;

template <>
struct AutomationType<void> {
    static constexpr ValueType Type{};
};
template <>
struct AutomationType<bool> {
    static constexpr ValueType Type{VT_BOOL, false, "VARIANT_BOOL"};
    static bool Read(const VARIANT& given, LCID locale) { return ReadBool(given, locale); }
    static void Put(VARIANT& target, bool value) { PutBool(target, value); }
};
template <>
struct AutomationType<std::int16_t> {
    static constexpr ValueType Type{VT_I2, false, "short"};
    static std::int16_t Read(const VARIANT& given, LCID locale) { return ReadShort(given, locale); }
    static void Put(VARIANT& target, std::int16_t value) { PutShort(target, value); }
};
template <>
struct AutomationType<std::int32_t> {
    static constexpr ValueType Type{VT_I4, false, "long"};
    static std::int32_t Read(const VARIANT& given, LCID locale) { return ReadLong(given, locale); }
    static void Put(VARIANT& target, std::int32_t value) { PutLong(target, value); }
};
template <>
struct AutomationType<OleColor> {
    static constexpr ValueType Type{VT_I4, false, "OLE_COLOR"};
    static OleColor Read(const VARIANT& given, LCID locale) { return ReadColor(given, locale); }
    static void Put(VARIANT& target, OleColor color) {
        PutLong(target, static_cast<std::int32_t>(color.value));
    }
};
template <>
struct AutomationType<std::string> {
    static constexpr ValueType Type{VT_BSTR, false, "BSTR"};
    static std::string Read(const VARIANT& given, LCID locale) { return ReadText(given, locale); }
    static void Put(VARIANT& target, std::string_view text) { PutText(target, text); }
};
template <>
struct AutomationType<AnyObject> {
    static constexpr ValueType Type{VT_DISPATCH, false, "IDispatch*"};
    static AnyObject Read(const VARIANT& given, LCID) { return {ReadObject(given)}; }
    static void Put(VARIANT& target, AnyObject value) {
        PutObject(target, std::move(value.object));
    }
};
template <>
struct AutomationType<GivenObject> {
    static constexpr ValueType Type = AutomationType<AnyObject>::Type;
    static GivenObject Read(const VARIANT& given, LCID) { return GivenObject(given); }
};
template <>
struct AutomationType<AnyValue> {
    static constexpr ValueType Type{VT_VARIANT, false, "VARIANT"};
    static AnyValue Read(const VARIANT& given, LCID) { return {Dereferenced(given)}; }
    static void Put(VARIANT& target, AnyValue value) { target = value.value; }
};

// What a parameter holds while its handler runs. An argument left out is refused.
template <class T>
class HeldArgument {
  public:
    static constexpr ValueType Type = AutomationType<T>::Type;

    HeldArgument(VARIANT& given, LCID locale) : m_value(AutomationType<T>::Read(given, locale)) {}

    T& Pass() { return m_value; }
    void WriteBack() {}

  private:
    T m_value;
};

constexpr bool IsLeftOut(const VARIANT& given) {
    return given.vt == VT_ERROR && given.scode == DISP_E_PARAMNOTFOUND;
}

// A result pointer: what the caller holds comes in, what the handler leaves goes back. An argument
// left out gives a null pointer.
template <class T>
class HeldArgument<T*> {
  public:
    static constexpr ValueType Type{AutomationType<T>::Type.vt, true, AutomationType<T>::Type.name};

    HeldArgument(VARIANT& given, LCID locale)
        : m_argument(given),
          m_locale(locale),
          m_value(IsLeftOut(given) ? T{} : AutomationType<T>::Read(given, locale)) {}

    T* Pass() { return IsLeftOut(m_argument) ? nullptr : &m_value; }
    void WriteBack() {
        if (!IsLeftOut(m_argument)) {
            OwnedVariant result;
            AutomationType<T>::Put(result.Get(), m_value);
            PutIntoArgument(m_argument, result, m_locale);
        }
    }

  private:
    VARIANT& m_argument;
    LCID m_locale;
    T m_value;
};

}  // namespace veygrid
