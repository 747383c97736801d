// A dataset that answers at random: nonsense, failures, and calls of its own in between.
#pragma once

#include <functional>

#include "control/DispatchDataset.h"
#include "tests/control/FuzzSupport.h"
#include "tests/control/NumberedObject.h"

namespace veygrid {

class HostileDataset final : public NumberedObject {
  public:
    // `act` is what it does in the middle of an answer. Both must outlive it, as must `alive`,
    // which counts the datasets there are.
    HostileDataset(Random& random, IDispatch* other, const std::function<void()>& act, int& alive)
        : m_random(random), m_other(other), m_act(act), m_alive(alive) {
        ++m_alive;
    }
    ~HostileDataset() override { --m_alive; }

    static constexpr const wchar_t* Words = L"a hostile dataset";

    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrong) override {
        if (m_random.OneIn(40)) {
            m_act();
        }
        if (m_random.OneIn(30)) {
            return Fail(*exception, *wrong);
        }
        PutCount(*result);
        if (id == datasetid::GetCellValue) {
            PutAny(*given->rgvarg[1].pvarVal);
        } else if (id == datasetid::GetColName || m_random.OneIn(20)) {
            PutAny(*result);
        }
        return S_OK;
    }

  private:
    static HRESULT STDMETHODCALLTYPE FillIn(EXCEPINFO* told) {
        ::SysFreeString(told->bstrSource);
        told->bstrSource = ::SysAllocString(Words);
        return S_OK;
    }
    HRESULT Fail(EXCEPINFO& exception, UINT& wrong) {
        static constexpr HRESULT codes[] = {
            E_FAIL,           E_OUTOFMEMORY,      E_UNEXPECTED,    DISP_E_EXCEPTION,
            DISP_E_EXCEPTION, RPC_E_DISCONNECTED, DISP_E_OVERFLOW, DISP_E_TYPEMISMATCH};
        exception = {};
        wrong = m_random.Bits();
        if (m_random.OneIn(2)) {
            exception.bstrDescription = ::SysAllocString(Words);
            exception.wCode = static_cast<WORD>(m_random.Bits());
            exception.scode = m_random.OneIn(2) ? 0 : E_ACCESSDENIED;
        }
        if (m_random.OneIn(4)) {
            exception.pfnDeferredFillIn = FillIn;
        }
        return m_random.Of(codes);
    }
    void PutCount(VARIANT& result) {
        static constexpr LONG huge[] = {-1, 2147483647, -2147483647 - 1};
        result.vt = VT_I4;
        result.lVal =
            m_random.IsHuge() && m_random.OneIn(20) ? m_random.Of(huge) : m_random.Below(30);
    }
    // A value of any type, the receiver's to free.
    void PutAny(VARIANT& target) {
        RandomArguments values(m_random, m_other);
        VARIANT value = values.Next();
        ::VariantInit(&target);
        const bool isNullReference = (value.vt & VT_BYREF) != 0 && value.byref == nullptr;
        if (isNullReference) {
            target = value;
        } else if (FAILED(::VariantCopyInd(&target, &value))) {
            ::VariantInit(&target);
        }
    }

    Random& m_random;
    IDispatch* m_other;
    const std::function<void()>& m_act;
    int& m_alive;
};

}  // namespace veygrid
