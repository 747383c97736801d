// Drawing a control without a window, and its picture as data.
#include "platform/win32/ole/ViewParts.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "platform/win32/GdiHandles.h"
#include "platform/win32/ole/Enumerator.h"
#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/OleControl.h"

namespace veygrid {

namespace {

RECT RectOf(const RECTL& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

// A metafile has no device behind it, so its logical units are all there is.
bool IsMetafile(HDC target) {
    return ::GetDeviceCaps(target, TECHNOLOGY) == DT_METAFILE ||
           ::GetObjectType(target) == OBJ_ENHMETADC;
}

constexpr FORMATETC MetafileFormat{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
constexpr FORMATETC EnhancedFormat{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};

bool Offers(const FORMATETC& known, const FORMATETC& asked) {
    return asked.cfFormat == known.cfFormat && (asked.tymed & known.tymed) != 0 &&
           asked.dwAspect == DVASPECT_CONTENT;
}

// The control's size in pixels of the screen, which its picture is drawn in everywhere.
SIZE PixelSize(CVeyOleControl& control) {
    constexpr int HimetricPerInch = 2540;
    const SIZEL extent = control.Extent();
    const HDC screen = ::GetDC(nullptr);
    const auto pixels = [screen](LONG length, int index) {
        return std::max(::MulDiv(length, ::GetDeviceCaps(screen, index), HimetricPerInch), 1);
    };
    const SIZE size{pixels(extent.cx, LOGPIXELSX), pixels(extent.cy, LOGPIXELSY)};
    ::ReleaseDC(nullptr, screen);
    return size;
}

// Draws the control into bounds of a metafile whose whole picture is `picture`, both in the units
// of the metafile.
void DrawInMetafile(CVeyOleControl& control, HDC target, const RECT& bounds, const RECTL& picture) {
    const SIZE size = PixelSize(control);
    const int width = std::max<int>(std::abs(bounds.right - bounds.left), 1);
    const int height = bounds.bottom == bounds.top ? 1 : bounds.bottom - bounds.top;
    const auto x = [&](LONG length) { return ::MulDiv(length, size.cx, width); };
    const auto y = [&](LONG length) { return ::MulDiv(length, size.cy, height); };
    ::SetWindowOrgEx(target, x(picture.left - bounds.left), y(picture.top - bounds.top), nullptr);
    ::SetWindowExtEx(target, x(picture.right - picture.left), y(picture.bottom - picture.top),
                     nullptr);
    control.Draw(target, {0, 0, size.cx, size.cy});
}

// A metafile that is being drawn; dropped unless it is closed.
template <class Picture, Picture(WINAPI* CloseRecord)(HDC), BOOL(WINAPI* Delete)(Picture)>
class Recording {
  public:
    explicit Recording(HDC target) : m_target(target) {}
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;
    ~Recording() {
        if (m_target != nullptr) {
            Delete(CloseRecord(m_target));
        }
    }

    HDC Get() const { return m_target; }
    Picture Close() { return CloseRecord(std::exchange(m_target, nullptr)); }

  private:
    HDC m_target;
};

HGLOBAL MetafilePicture(CVeyOleControl& control) {
    const SIZEL extent = control.Extent();
    Recording<HMETAFILE, ::CloseMetaFile, ::DeleteMetaFile> target(::CreateMetaFileW(nullptr));
    const SIZE size = PixelSize(control);
    ::SetMapMode(target.Get(), MM_ANISOTROPIC);
    ::SetWindowExtEx(target.Get(), size.cx, size.cy, nullptr);
    control.Draw(target.Get(), {0, 0, size.cx, size.cy});
    const HMETAFILE picture = target.Close();
    const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, sizeof(METAFILEPICT));
    auto* const record =
        static_cast<METAFILEPICT*>(block == nullptr ? nullptr : ::GlobalLock(block));
    if (record == nullptr) {
        ::DeleteMetaFile(picture);
        throw OleError{E_OUTOFMEMORY};
    }
    *record = {MM_ANISOTROPIC, extent.cx, extent.cy, picture};
    ::GlobalUnlock(block);
    return block;
}

HENHMETAFILE EnhancedMetafile(CVeyOleControl& control) {
    const SIZEL extent = control.Extent();
    const RECT frame{0, 0, extent.cx, extent.cy};
    Recording<HENHMETAFILE, ::CloseEnhMetaFile, ::DeleteEnhMetaFile> recording(
        ::CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr));
    const HDC target = recording.Get();
    const SIZE size = PixelSize(control);
    const auto device = [target](LONG length, int pixels, int millimetres) {
        constexpr int HimetricPerMillimetre = 100;
        return ::MulDiv(length, ::GetDeviceCaps(target, pixels),
                        ::GetDeviceCaps(target, millimetres) * HimetricPerMillimetre);
    };
    ::SetMapMode(target, MM_ANISOTROPIC);
    ::SetWindowExtEx(target, size.cx, size.cy, nullptr);
    ::SetViewportExtEx(target, device(extent.cx, HORZRES, HORZSIZE),
                       device(extent.cy, VERTRES, VERTSIZE), nullptr);
    control.Draw(target, {0, 0, size.cx, size.cy});
    return recording.Close();
}

}  // namespace

STDMETHODIMP ViewPart::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC target,
                            LPCRECTL bounds, LPCRECTL windowBounds,
                            BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
    if (aspect != DVASPECT_CONTENT && aspect != DVASPECT_OPAQUE) {
        return DV_E_DVASPECT;
    }
    if (target == nullptr || bounds == nullptr) {
        return E_INVALIDARG;
    }
    const KeepAlive keep(m_owner);
    return Guarded([&] {
        const SavedDc saved(target);
        RECT area = RectOf(*bounds);
        if (windowBounds != nullptr && IsMetafile(target)) {
            DrawInMetafile(m_owner, target, area, *windowBounds);
            return S_OK;
        }
        if (!IsMetafile(target)) {
            ::LPtoDP(target, reinterpret_cast<POINT*>(&area), 2);
            ::SetMapMode(target, MM_TEXT);
            ::SetWindowOrgEx(target, 0, 0, nullptr);
            ::SetViewportOrgEx(target, 0, 0, nullptr);
        }
        m_owner.Draw(target, area);
        return S_OK;
    });
}

STDMETHODIMP ViewPart::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** palette) {
    return Answered(palette, [] { return S_FALSE; });
}

STDMETHODIMP ViewPart::Freeze(DWORD, LONG, void*, DWORD* token) {
    return Answered(token, [] { return E_NOTIMPL; });
}

STDMETHODIMP ViewPart::Unfreeze(DWORD) {
    return E_NOTIMPL;
}

STDMETHODIMP ViewPart::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    m_sink = sink;
    m_aspects = aspects;
    m_flags = flags;
    if (sink != nullptr && (flags & ADVF_PRIMEFIRST) != 0) {
        Changed();
    }
    return S_OK;
}

STDMETHODIMP ViewPart::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
    if (aspects != nullptr) {
        *aspects = m_aspects;
    }
    if (flags != nullptr) {
        *flags = m_flags;
    }
    if (sink != nullptr) {
        m_sink.CopyTo(sink);
    }
    return S_OK;
}

STDMETHODIMP ViewPart::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL extent) {
    return Answered(extent, [&] {
        if (aspect != DVASPECT_CONTENT) {
            return DV_E_DVASPECT;
        }
        *extent = m_owner.Extent();
        return S_OK;
    });
}

STDMETHODIMP ViewPart::GetRect(DWORD aspect, LPRECTL rect) {
    return Answered(rect, [&] {
        if (aspect != DVASPECT_CONTENT && aspect != DVASPECT_OPAQUE) {
            return DV_E_DVASPECT;
        }
        const SIZEL extent = m_owner.Extent();
        *rect = {0, 0, extent.cx, extent.cy};
        return S_OK;
    });
}

STDMETHODIMP ViewPart::GetViewStatus(DWORD* status) {
    return Answered(status, [&] {
        *status = VIEWSTATUS_OPAQUE;
        return S_OK;
    });
}

STDMETHODIMP ViewPart::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG,
                                     DWORD* result) {
    return Answered(result, [&] {
        if (aspect != DVASPECT_CONTENT || bounds == nullptr) {
            return aspect != DVASPECT_CONTENT ? DV_E_DVASPECT : E_POINTER;
        }
        *result = ::PtInRect(bounds, point) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
        return S_OK;
    });
}

STDMETHODIMP ViewPart::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT area, LONG,
                                    DWORD* result) {
    return Answered(result, [&] {
        if (aspect != DVASPECT_CONTENT || bounds == nullptr || area == nullptr) {
            return aspect != DVASPECT_CONTENT ? DV_E_DVASPECT : E_POINTER;
        }
        RECT common{};
        *result = ::IntersectRect(&common, bounds, area) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
        return S_OK;
    });
}

STDMETHODIMP ViewPart::GetNaturalExtent(DWORD, LONG, DVTARGETDEVICE*, HDC, DVEXTENTINFO*, LPSIZEL) {
    return E_NOTIMPL;
}

void ViewPart::Changed() {
    const ComPtr<IAdviseSink> sink = m_sink;
    if (sink == nullptr || (m_aspects & DVASPECT_CONTENT) == 0) {
        return;
    }
    if ((m_flags & ADVF_ONLYONCE) != 0) {
        m_sink = nullptr;
    }
    sink->OnViewChange(DVASPECT_CONTENT, -1);
}

STDMETHODIMP DataPart::GetData(FORMATETC* format, STGMEDIUM* medium) {
    if (format == nullptr) {
        return E_POINTER;
    }
    const KeepAlive keep(m_owner);
    return Answered(medium, [&] {
        if (Offers(MetafileFormat, *format)) {
            medium->hMetaFilePict = MetafilePicture(m_owner);
            medium->tymed = TYMED_MFPICT;
            return S_OK;
        }
        if (Offers(EnhancedFormat, *format)) {
            medium->hEnhMetaFile = EnhancedMetafile(m_owner);
            medium->tymed = TYMED_ENHMF;
            return S_OK;
        }
        return DV_E_FORMATETC;
    });
}

STDMETHODIMP DataPart::GetDataHere(FORMATETC*, STGMEDIUM*) {
    return DATA_E_FORMATETC;
}

STDMETHODIMP DataPart::QueryGetData(FORMATETC* format) {
    if (format == nullptr) {
        return E_POINTER;
    }
    return Offers(MetafileFormat, *format) || Offers(EnhancedFormat, *format) ? S_OK
                                                                              : DV_E_FORMATETC;
}

STDMETHODIMP DataPart::GetCanonicalFormatEtc(FORMATETC* in, FORMATETC* out) {
    if (in == nullptr || out == nullptr) {
        return E_POINTER;
    }
    *out = *in;
    out->ptd = nullptr;
    return DATA_S_SAMEFORMATETC;
}

STDMETHODIMP DataPart::SetData(FORMATETC*, STGMEDIUM*, BOOL) {
    return E_NOTIMPL;
}

STDMETHODIMP DataPart::EnumFormatEtc(DWORD direction, IEnumFORMATETC** target) {
    return Answered(target, [&] {
        if (direction != DATADIR_GET) {
            return E_NOTIMPL;
        }
        *target = new Enumerator<IEnumFORMATETC, FORMATETC>({MetafileFormat, EnhancedFormat});
        return S_OK;
    });
}

STDMETHODIMP DataPart::DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* cookie) {
    if (format == nullptr || sink == nullptr) {
        return E_POINTER;
    }
    return Answered(cookie,
                    [&] { return m_owner.DataAdvise().Advise(this, format, flags, sink, cookie); });
}

STDMETHODIMP DataPart::DUnadvise(DWORD cookie) {
    return Guarded([&] { return m_owner.DataAdvise().Unadvise(cookie); });
}

STDMETHODIMP DataPart::EnumDAdvise(IEnumSTATDATA** target) {
    return Answered(target, [&] { return m_owner.DataAdvise().EnumAdvise(target); });
}

}  // namespace veygrid
