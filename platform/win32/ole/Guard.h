// The one place where exceptions end at the border of COM.
#pragma once

#include <new>
#include <string>

#include "platform/win32/ole/Platform.h"

namespace veygrid {

// A failure that the platform names by an HRESULT.
struct OleError {
    HRESULT code;
};

// A failure with words for the user, which automation passes on to its caller.
struct DescribedError : OleError {
    std::wstring source;
    std::wstring description;
    std::wstring helpFile{};
    DWORD helpContext = 0;
};

inline HRESULT FailureOfCurrentException() noexcept {
    try {
        throw;
    } catch (const OleError& error) {
        return error.code;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

// Runs the body of a COM method, which returns an HRESULT.
template <class Body>
HRESULT Guarded(Body body) noexcept {
    try {
        return body();
    } catch (...) {
        return FailureOfCurrentException();
    }
}

inline void Require(HRESULT result) {
    if (FAILED(result)) {
        throw OleError{result};
    }
}

// For methods whose result lands in `*target`: refuses a null target and clears it first.
template <class Result, class Body>
HRESULT Answered(Result* target, Body body) noexcept {
    if (target == nullptr) {
        return E_POINTER;
    }
    *target = Result{};
    return Guarded(body);
}

}  // namespace veygrid
