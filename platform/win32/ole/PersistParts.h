// The ways in which a container keeps a control: stream, storage, property bag and memory.
#pragma once

#include "platform/win32/ole/OleObject.h"

namespace veygrid {

class CVeyOleControl;

class StreamPart final : public Part<IPersistStreamInit, CVeyOleControl> {
  public:
    using Part::Part;
    STDMETHODIMP GetClassID(CLSID* clsid) override;
    STDMETHODIMP IsDirty() override;
    STDMETHODIMP Load(IStream* stream) override;
    STDMETHODIMP Save(IStream* stream, BOOL clearDirty) override;
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) override;
    STDMETHODIMP InitNew() override;
};

// The state lies in the stream "Contents" of the storage.
class StoragePart final : public Part<IPersistStorage, CVeyOleControl> {
  public:
    using Part::Part;
    STDMETHODIMP GetClassID(CLSID* clsid) override;
    STDMETHODIMP IsDirty() override;
    STDMETHODIMP InitNew(IStorage* storage) override;
    STDMETHODIMP Load(IStorage* storage) override;
    STDMETHODIMP Save(IStorage* storage, BOOL sameAsLoad) override;
    STDMETHODIMP SaveCompleted(IStorage* storage) override;
    STDMETHODIMP HandsOffStorage() override;

  private:
    bool m_clearWhenCompleted = false;
};

class BagPart final : public Part<IPersistPropertyBag, CVeyOleControl> {
  public:
    using Part::Part;
    STDMETHODIMP GetClassID(CLSID* clsid) override;
    STDMETHODIMP InitNew() override;
    STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) override;
    STDMETHODIMP Save(IPropertyBag* bag, BOOL clearDirty, BOOL all) override;
};

class MemoryPart final : public Part<IPersistMemory, CVeyOleControl> {
  public:
    using Part::Part;
    STDMETHODIMP GetClassID(CLSID* clsid) override;
    STDMETHODIMP IsDirty() override;
    STDMETHODIMP Load(void* memory, ULONG size) override;
    STDMETHODIMP Save(void* memory, BOOL clearDirty, ULONG size) override;
    STDMETHODIMP GetSizeMax(ULONG* size) override;
    STDMETHODIMP InitNew() override;
};

}  // namespace veygrid
