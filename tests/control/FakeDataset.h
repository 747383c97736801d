// A dataset as a host writes one: an object that answers by number.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "control/DispatchDataset.h"
#include "tests/control/NumberedObject.h"

namespace veygrid {

// Counts itself, and notes every call with its arguments and how they came.
class FakeDataset final : public NumberedObject {
  public:
    // What outlives the object.
    struct Told {
        int Alive = 0;
        std::vector<std::string> Calls;
    };

    FakeDataset(Told& told, int rows, int cols) : Rows(rows), Cols(cols), m_told(told) {
        ++m_told.Alive;
    }
    ~FakeDataset() override {
        --m_told.Alive;
        if (OnEnd) {
            OnEnd();
        }
    }

    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* given, VARIANT* result,
                        EXCEPINFO* exception, UINT*) override {
        if (iid != IID_NULL || flags != DISPATCH_METHOD || given->cNamedArgs != 0) {
            ADD_FAILURE() << "called as no method";
            return E_INVALIDARG;
        }
        m_told.Calls.push_back(Line(id, *given));
        if (OnCall) {
            OnCall(id);
        }
        if (Fails(id)) {
            return Fail(exception);
        }
        return Answer(id, *given, *result);
    }

    int Rows;
    int Cols;
    // The text of cells, "R1C2" where there is none of its own; the value itself where `Value`
    // makes one.
    std::function<void(VARIANT& value)> Value;
    // The count and name results in place of a number and a text.
    std::function<void(DISPID id, VARIANT& result)> Result;
    LONG CaptionAnswer = 0;
    DISPID FailingId = 0;
    HRESULT FailingCode = E_FAIL;
    const wchar_t* FailingText = L"the table is locked";
    std::function<void(DISPID id)> OnCall;
    std::function<void()> OnEnd;

  private:
    static std::string ArgumentText(const VARIANT& argument) {
        switch (argument.vt) {
            case VT_I4:
                return std::to_string(argument.lVal);
            case VT_BOOL:
                return argument.boolVal == VARIANT_TRUE ? "True" : "False";
            case VT_BSTR:
                return TakeBstr(argument.bstrVal);
            case VT_BYREF | VT_VARIANT:
                return argument.pvarVal->vt == VT_EMPTY ? "result" : "a result that is not empty";
            default:
                return "type " + std::to_string(argument.vt);
        }
    }
    static std::string Line(DISPID id, const DISPPARAMS& given) {
        std::string line = std::to_string(id);
        for (UINT i = given.cArgs; i > 0; --i) {
            line += " " + ArgumentText(given.rgvarg[i - 1]);
        }
        return line;
    }
    bool Fails(DISPID id) const { return FailingId == id; }
    HRESULT Fail(EXCEPINFO* exception) const {
        if (FailingCode == DISP_E_EXCEPTION) {
            *exception = {};
            exception->wCode = 1000;
            exception->bstrSource = ::SysAllocString(L"Data Server");
            exception->bstrDescription = ::SysAllocString(FailingText);
        }
        return FailingCode;
    }
    HRESULT Answer(DISPID id, const DISPPARAMS& given, VARIANT& result) const {
        if (Result && id != datasetid::GetCellValue) {
            Result(id, result);
            return S_OK;
        }
        result.vt = VT_I4;
        switch (id) {
            case datasetid::GetCellValue:
                PutValue(*given.rgvarg[1].pvarVal, given.rgvarg[3].lVal, given.rgvarg[2].lVal);
                result.lVal = 77;  // ignored
                return S_OK;
            case datasetid::GetColCount:
                result.lVal = Cols;
                return S_OK;
            case datasetid::GetRowCount:
                result.lVal = Rows;
                return S_OK;
            case datasetid::SetColCaption:
                result.lVal = CaptionAnswer;
                return S_OK;
            case datasetid::GetColName:
                result.vt = VT_BSTR;
                result.bstrVal =
                    ::SysAllocString((L"列" + std::to_wstring(given.rgvarg[0].lVal)).c_str());
                return S_OK;
            default:
                return DISP_E_MEMBERNOTFOUND;
        }
    }
    void PutValue(VARIANT& value, LONG row, LONG col) const {
        if (Value) {
            Value(value);
            return;
        }
        value.vt = VT_BSTR;
        value.bstrVal =
            ::SysAllocString((L"R" + std::to_wstring(row) + L"C" + std::to_wstring(col)).c_str());
    }

    Told& m_told;
};

// Binds as a host does that gives its one reference away.
inline HRESULT Bind(const Late& grid, IDispatch* dataset) {
    return grid.Call(L"BindDataset", {Arg(dataset)});
}

}  // namespace veygrid
