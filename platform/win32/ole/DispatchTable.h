// One table of members for an automation class: names, numbers, types and handlers, and IDispatch
// calls run from it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/win32/ole/AutomationTypes.h"
#include "platform/win32/ole/Platform.h"

namespace veygrid {

// The arguments of one call by the place of their parameter, first parameter first.
class CallArguments {
  public:
    static constexpr std::size_t Most = 8;

    explicit CallArguments(LCID locale);

    // Takes the arguments in; throws OleError for a wrong count or name. `count` parameters are
    // known, of which the last `optional` may be left out.
    void Bind(const DISPPARAMS& given, std::size_t count, std::size_t optional);
    template <class T>
    HeldArgument<T> Hold(std::size_t place) {
        m_current = place;
        return HeldArgument<T>(Given(place, std::is_pointer_v<T>), m_locale);
    }
    // Where the argument last looked at stands in the caller's own array.
    UINT CurrentIndex() const { return m_index[m_current]; }

  private:
    // The caller's argument. One that was left out is a zero where it is optional, stays itself for
    // a result pointer, and throws otherwise.
    VARIANT& Given(std::size_t place, bool isResultPointer);
    void BindNamed(const DISPPARAMS& given, std::size_t count);

    LCID m_locale;
    std::array<VARIANT*, Most> m_arguments{};
    std::array<UINT, Most> m_index{};
    std::size_t m_firstOptional = 0;
    std::size_t m_current = 0;
    VARIANT m_leftOut{};
    VARIANT m_zero{};
};

// One way of calling a member: its types and the code that runs.
struct CallForm {
    using Run = void (*)(void* object, CallArguments& arguments, VARIANT& result);

    Run run = nullptr;
    ValueType result{};
    std::array<ValueType, CallArguments::Most> parameters{};
    std::size_t count = 0;

    constexpr bool Exists() const { return run != nullptr; }
};

template <auto Handler, class Function = decltype(+Handler)>
struct CallFormOf;

// Handlers are functions of the object and its arguments.
template <auto Handler, class Object, class Result, class... Args>
struct CallFormOf<Handler, Result (*)(Object&, Args...)> {
    static void Run(void* object, CallArguments& arguments, VARIANT& result) {
        RunWith(*static_cast<Object*>(object), arguments, result,
                std::index_sequence_for<Args...>());
    }
    template <std::size_t... Place>
    static void RunWith(Object& object, [[maybe_unused]] CallArguments& arguments,
                        [[maybe_unused]] VARIANT& result, std::index_sequence<Place...>) {
        std::tuple<HeldArgument<std::remove_cvref_t<Args>>...> held{
            arguments.Hold<std::remove_cvref_t<Args>>(Place)...};
        if constexpr (std::is_void_v<Result>) {
            Handler(object, std::get<Place>(held).Pass()...);
        } else {
            AutomationType<Result>::Put(result, Handler(object, std::get<Place>(held).Pass()...));
        }
        (std::get<Place>(held).WriteBack(), ...);
    }
    static constexpr CallForm Form{
        &Run,
        AutomationType<Result>::Type,
        {HeldArgument<std::remove_cvref_t<Args>>::Type...},
        sizeof...(Args),
    };
};

enum class MemberKind : std::uint8_t { Property, IndexedProperty, Method };

// What a write does beside storing; docs/automation.md spells it out.
enum class WriteCode : char {
    None = '-',
    Notify = 'A',
    RepaintNotify = 'B',
    RebuildForm = 'G',
    RebuildNames = 'D',
    LoadPicture = 'I',
    ModifiedFlag = 'M',
    CopyFormat = 'F',
    ChangeMode = 'X',
};

struct DispatchMember {
    DISPID id;
    std::string_view name;
    MemberKind kind;
    // Names of the parameters or indexes, separated by single blanks.
    std::string_view parameterNames{};
    CallForm get{};  // of a property, or the method itself
    CallForm put{};
    // The written value is an object: `Set` in Basic.
    bool putByReference = false;
    WriteCode write = WriteCode::None;
    // Trailing parameters that may be left out.
    std::size_t optional = 0;
    // False for the few members that the type library does not list.
    bool listed = true;
    // The value of a fresh object, as Basic writes it.
    std::string_view initial{};
};

class DispatchTable {
  public:
    // The members must outlive the table; no two share a number or a name.
    explicit DispatchTable(std::span<const DispatchMember> members);

    std::span<const DispatchMember> Members() const { return m_members; }
    const DispatchMember* FindById(DISPID id) const;
    // Letter case plays no part.
    const DispatchMember* FindByName(std::wstring_view name) const;

    HRESULT GetIDsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const noexcept;
    // `object` is what the handlers of the members take. Nothing is thrown.
    HRESULT Invoke(void* object, DISPID id, REFIID riid, LCID locale, WORD flags,
                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                   UINT* argumentInError) const noexcept;

  private:
    const CallForm& ChooseForm(const DispatchMember& member, WORD flags) const;

    std::span<const DispatchMember> m_members;
    std::vector<std::uint16_t> m_names;  // open addressing; 0 is free, else index + 1
    std::vector<std::uint16_t> m_ids;
};

}  // namespace veygrid
