// An automation object whose members stand in a table of names and functions.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "apps/host/ComObject.h"
#include "apps/host/Variant.h"

namespace veygrid {

// The arguments of one call, in their written order.
class ScriptArguments {
  public:
    explicit ScriptArguments(const DISPPARAMS& parameters) : m_parameters(parameters) {}

    std::size_t Count() const { return m_parameters.cArgs; }
    bool Has(std::size_t index) const;
    std::wstring Text(std::size_t index) const;
    // `otherwise` when the argument is omitted. Throws Mismatch when it is no number.
    long Number(std::size_t index, long otherwise = 0) const;

    // An argument of the wrong type, counted from the left.
    struct Mismatch {
        std::size_t index;
    };

  private:
    const VARIANT& At(std::size_t index) const {
        return m_parameters.rgvarg[m_parameters.cArgs - 1 - index];
    }

    const DISPPARAMS& m_parameters;
};

// Thrown by a member to raise an error in the script.
struct ScriptFault {
    std::wstring text;
};

class ScriptObject : public ComObject<IDispatch> {
  public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

  protected:
    using Function = std::function<Variant(const ScriptArguments&)>;
    using Action = std::function<void(const ScriptArguments&)>;

    // Members are called and read alike. The first one added is the object's default member.
    void Add(const wchar_t* name, std::size_t least, std::size_t most, Function function);
    void AddAction(const wchar_t* name, std::size_t least, std::size_t most, Action action);
    // Makes a member that was added writable.
    void AddPut(const wchar_t* name, Action action);

  private:
    struct Member {
        const wchar_t* name;
        std::size_t least;
        std::size_t most;
        Function function;
        Action put;
    };

    // Null when there is none.
    Member* Find(const wchar_t* name);
    static HRESULT Run(const Member& member, WORD kind, const DISPPARAMS& parameters,
                       VARIANT* result);

    std::vector<Member> m_members;
};

}  // namespace veygrid
