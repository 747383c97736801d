// Drawing a control without a window, and its picture as data.
#pragma once

#include "platform/win32/ole/OleObject.h"

namespace veygrid {

class CVeyOleControl;

class ViewPart final : public Part<IViewObjectEx, CVeyOleControl> {
  public:
    using Part::Part;
    STDMETHODIMP Draw(DWORD aspect, LONG index, void* info, DVTARGETDEVICE* device, HDC information,
                      HDC target, LPCRECTL bounds, LPCRECTL windowBounds,
                      BOOL(STDMETHODCALLTYPE* goOn)(ULONG_PTR), ULONG_PTR token) override;
    STDMETHODIMP GetColorSet(DWORD aspect, LONG index, void* info, DVTARGETDEVICE* device,
                             HDC information, LOGPALETTE** palette) override;
    STDMETHODIMP Freeze(DWORD aspect, LONG index, void* info, DWORD* token) override;
    STDMETHODIMP Unfreeze(DWORD token) override;
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
    STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device,
                           LPSIZEL extent) override;
    STDMETHODIMP GetRect(DWORD aspect, LPRECTL rect) override;
    STDMETHODIMP GetViewStatus(DWORD* status) override;
    STDMETHODIMP QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG hint,
                               DWORD* result) override;
    STDMETHODIMP QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT area, LONG hint,
                              DWORD* result) override;
    STDMETHODIMP GetNaturalExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, HDC target,
                                  DVEXTENTINFO* info, LPSIZEL extent) override;

    // Tells the view's sink that the picture has changed.
    void Changed();

  private:
    ComPtr<IAdviseSink> m_sink;
    DWORD m_aspects = 0;
    DWORD m_flags = 0;
};

class DataPart final : public Part<IDataObject, CVeyOleControl> {
  public:
    using Part::Part;
    STDMETHODIMP GetData(FORMATETC* format, STGMEDIUM* medium) override;
    STDMETHODIMP GetDataHere(FORMATETC* format, STGMEDIUM* medium) override;
    STDMETHODIMP QueryGetData(FORMATETC* format) override;
    STDMETHODIMP GetCanonicalFormatEtc(FORMATETC* in, FORMATETC* out) override;
    STDMETHODIMP SetData(FORMATETC* format, STGMEDIUM* medium, BOOL release) override;
    STDMETHODIMP EnumFormatEtc(DWORD direction, IEnumFORMATETC** target) override;
    STDMETHODIMP DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* cookie) override;
    STDMETHODIMP DUnadvise(DWORD cookie) override;
    STDMETHODIMP EnumDAdvise(IEnumSTATDATA** target) override;
};

}  // namespace veygrid
