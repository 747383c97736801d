// The ways in which a container keeps a control: stream, storage, property bag and memory.
#include "platform/win32/ole/PersistParts.h"

#include <algorithm>
#include <limits>

#include "persist/Archive.h"
#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/OleControl.h"
#include "platform/win32/ole/OleText.h"

namespace veygrid {

namespace {

class StreamSink final : public ByteSink {
  public:
    explicit StreamSink(IStream& stream) : m_stream(stream) {}

    void Write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const auto size = static_cast<ULONG>(std::min<std::size_t>(bytes.size(), 1U << 30U));
            ULONG written = 0;
            Require(m_stream.Write(bytes.data(), size, &written));
            if (written == 0 || written > size) {
                throw OleError{STG_E_MEDIUMFULL};
            }
            bytes.remove_prefix(written);
        }
    }

  private:
    IStream& m_stream;
};

// From the stream's present place on. Other objects may have their bytes behind ours.
class StreamSource final : public ByteSource {
  public:
    explicit StreamSource(IStream& stream) : m_stream(stream) {
        ULARGE_INTEGER place{};
        STATSTG stat{};
        m_isSeekable = SUCCEEDED(stream.Seek({}, STREAM_SEEK_CUR, &place)) &&
                       SUCCEEDED(stream.Stat(&stat, STATFLAG_NONAME));
        m_start = place.QuadPart;
        m_size = m_isSeekable ? stat.cbSize.QuadPart - std::min(m_start, stat.cbSize.QuadPart)
                              : std::numeric_limits<std::int32_t>::max();
    }

    std::uint64_t Size() const override { return m_size; }
    std::size_t Read(char* buffer, std::size_t room) override {
        const auto size = static_cast<ULONG>(std::min<std::size_t>(room, 1U << 30U));
        ULONG got = 0;
        Require(m_stream.Read(buffer, size, &got));
        return std::min(got, size);
    }
    // Puts the stream right behind what was used.
    void Leave(std::uint64_t used) {
        if (m_isSeekable) {
            LARGE_INTEGER place{};
            place.QuadPart = static_cast<LONGLONG>(m_start + used);
            Require(m_stream.Seek(place, STREAM_SEEK_SET, nullptr));
        }
    }

  private:
    IStream& m_stream;
    bool m_isSeekable = false;
    std::uint64_t m_start = 0;
    std::uint64_t m_size = 0;
};

class CountingSink final : public ByteSink {
  public:
    void Write(std::string_view bytes) override { Size += bytes.size(); }
    std::uint64_t Size = 0;
};

// A damaged stream is the container's to report.
template <class Body>
HRESULT Reading(Body body) {
    return Guarded([&] {
        try {
            return body();
        } catch (const ArchiveError&) {
            return STG_E_DOCFILECORRUPT;
        } catch (const std::length_error&) {
            return STG_E_DOCFILECORRUPT;
        }
    });
}

HRESULT AnswerClass(CVeyOleControl& control, CLSID* clsid) {
    return Answered(clsid, [&] {
        *clsid = control.Class().automation.clsid;
        return S_OK;
    });
}

HRESULT Reset(CVeyOleControl& control) {
    const KeepAlive keep(control);
    return Guarded([&] {
        control.Reset();
        return S_OK;
    });
}

HRESULT DirtyAnswer(const CVeyOleControl& control) {
    return control.IsModified() ? S_OK : S_FALSE;
}

HRESULT LoadFromStream(CVeyOleControl& control, IStream& stream) {
    const KeepAlive keep(control);
    return Reading([&] {
        StreamSource source(stream);
        source.Leave(control.LoadState(source));
        control.Loaded();
        return S_OK;
    });
}

HRESULT SaveToStream(CVeyOleControl& control, IStream& stream, bool clearDirty) {
    const KeepAlive keep(control);
    return Guarded([&] {
        StreamSink sink(stream);
        control.SaveState(sink);
        if (clearDirty) {
            control.SetModifiedFlag(false);
        }
        return S_OK;
    });
}

std::uint64_t SizeOf(CVeyOleControl& control) {
    CountingSink sink;
    control.SaveState(sink);
    return sink.Size;
}

constexpr const wchar_t* ContentsName = L"Contents";

// The container's bag as properties see it.
class OleBag final : public PropertyBag {
  public:
    OleBag(IPropertyBag& bag, IErrorLog* log) : m_bag(bag), m_log(log) {}

    std::optional<BagValue> Read(std::string_view name, PropertyKind) override {
        OwnedVariant value;
        if (FAILED(m_bag.Read(WideFromText(name).c_str(), &value, m_log))) {
            return std::nullopt;
        }
        return ValueOf(value.Get());
    }
    void Write(std::string_view name, PropertyKind kind, const BagValue& value) override {
        OwnedVariant variant;
        if (const auto* const text = std::get_if<std::string>(&value)) {
            PutText(variant.Get(), *text);
        } else {
            PutNumber(variant.Get(), kind, std::get<std::int64_t>(value));
        }
        Require(m_bag.Write(WideFromText(name).c_str(), &variant));
    }

  private:
    static void PutNumber(VARIANT& target, PropertyKind kind, std::int64_t number) {
        switch (kind) {
            case PropertyKind::Bool:
                return PutBool(target, number != 0);
            case PropertyKind::Short:
                return PutShort(target, static_cast<std::int16_t>(number));
            default:
                return PutLong(target, static_cast<std::int32_t>(number));
        }
    }
    static std::optional<BagValue> ValueOf(const VARIANT& value) {
        if (value.vt == VT_EMPTY || value.vt == VT_NULL) {
            return std::nullopt;
        }
        if (value.vt == VT_BOOL) {
            return value.boolVal != VARIANT_FALSE ? 1 : 0;
        }
        if (value.vt == VT_BSTR) {
            return TakeBstr(value.bstrVal);
        }
        OwnedVariant number;
        if (SUCCEEDED(::VariantChangeTypeEx(&number, const_cast<VARIANT*>(&value), LOCALE_INVARIANT,
                                            0, VT_I8))) {
            return number->llVal;
        }
        return std::nullopt;
    }

    IPropertyBag& m_bag;
    IErrorLog* m_log;
};

}  // namespace

STDMETHODIMP StreamPart::GetClassID(CLSID* clsid) {
    return AnswerClass(m_owner, clsid);
}
STDMETHODIMP StreamPart::IsDirty() {
    return DirtyAnswer(m_owner);
}
STDMETHODIMP StreamPart::Load(IStream* stream) {
    return stream == nullptr ? E_POINTER : LoadFromStream(m_owner, *stream);
}
STDMETHODIMP StreamPart::Save(IStream* stream, BOOL clearDirty) {
    return stream == nullptr ? E_POINTER : SaveToStream(m_owner, *stream, clearDirty != FALSE);
}
STDMETHODIMP StreamPart::GetSizeMax(ULARGE_INTEGER* size) {
    return Answered(size, [&] {
        size->QuadPart = SizeOf(m_owner);
        return S_OK;
    });
}
STDMETHODIMP StreamPart::InitNew() {
    return Reset(m_owner);
}

STDMETHODIMP StoragePart::GetClassID(CLSID* clsid) {
    return AnswerClass(m_owner, clsid);
}
STDMETHODIMP StoragePart::IsDirty() {
    return DirtyAnswer(m_owner);
}
STDMETHODIMP StoragePart::InitNew(IStorage* storage) {
    return storage == nullptr ? E_POINTER : Reset(m_owner);
}
STDMETHODIMP StoragePart::Load(IStorage* storage) {
    if (storage == nullptr) {
        return E_POINTER;
    }
    ComPtr<IStream> stream;
    const HRESULT opened =
        storage->OpenStream(ContentsName, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, &stream);
    return FAILED(opened) ? opened : LoadFromStream(m_owner, *stream.Get());
}
STDMETHODIMP StoragePart::Save(IStorage* storage, BOOL sameAsLoad) {
    if (storage == nullptr) {
        return E_POINTER;
    }
    ComPtr<IStream> stream;
    const HRESULT opened = storage->CreateStream(
        ContentsName, STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0, 0, &stream);
    const HRESULT saved = FAILED(opened) ? opened : SaveToStream(m_owner, *stream.Get(), false);
    m_clearWhenCompleted = SUCCEEDED(saved) && sameAsLoad != FALSE;
    return saved;
}
STDMETHODIMP StoragePart::SaveCompleted(IStorage* storage) {
    if (storage != nullptr || m_clearWhenCompleted) {
        m_owner.SetModifiedFlag(false);
    }
    m_clearWhenCompleted = false;
    return S_OK;
}
STDMETHODIMP StoragePart::HandsOffStorage() {
    return S_OK;
}

STDMETHODIMP BagPart::GetClassID(CLSID* clsid) {
    return AnswerClass(m_owner, clsid);
}
STDMETHODIMP BagPart::InitNew() {
    return Reset(m_owner);
}
STDMETHODIMP BagPart::Load(IPropertyBag* bag, IErrorLog* log) {
    if (bag == nullptr) {
        return E_POINTER;
    }
    const KeepAlive keep(m_owner);
    return Guarded([&] {
        OleBag values(*bag, log);
        m_owner.LoadFromBag(values);
        m_owner.Loaded();
        return S_OK;
    });
}
STDMETHODIMP BagPart::Save(IPropertyBag* bag, BOOL clearDirty, BOOL) {
    if (bag == nullptr) {
        return E_POINTER;
    }
    const KeepAlive keep(m_owner);
    return Guarded([&] {
        OleBag values(*bag, nullptr);
        m_owner.SaveInBag(values);
        if (clearDirty != FALSE) {
            m_owner.SetModifiedFlag(false);
        }
        return S_OK;
    });
}

STDMETHODIMP MemoryPart::GetClassID(CLSID* clsid) {
    return AnswerClass(m_owner, clsid);
}
STDMETHODIMP MemoryPart::IsDirty() {
    return DirtyAnswer(m_owner);
}
STDMETHODIMP MemoryPart::Load(void* memory, ULONG size) {
    if (memory == nullptr) {
        return E_POINTER;
    }
    const KeepAlive keep(m_owner);
    return Reading([&] {
        MemorySource source({static_cast<const char*>(memory), size});
        m_owner.LoadState(source);
        m_owner.Loaded();
        return S_OK;
    });
}
STDMETHODIMP MemoryPart::Save(void* memory, BOOL clearDirty, ULONG size) {
    if (memory == nullptr) {
        return E_POINTER;
    }
    const KeepAlive keep(m_owner);
    return Guarded([&] {
        MemorySink sink;
        m_owner.SaveState(sink);
        if (sink.Bytes.size() > size) {
            return E_INVALIDARG;
        }
        std::ranges::copy(sink.Bytes, static_cast<char*>(memory));
        if (clearDirty != FALSE) {
            m_owner.SetModifiedFlag(false);
        }
        return S_OK;
    });
}
STDMETHODIMP MemoryPart::GetSizeMax(ULONG* size) {
    return Answered(size, [&] {
        *size = static_cast<ULONG>(SizeOf(m_owner));
        return S_OK;
    });
}
STDMETHODIMP MemoryPart::InitNew() {
    return Reset(m_owner);
}

}  // namespace veygrid
