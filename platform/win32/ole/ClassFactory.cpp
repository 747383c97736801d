// The class object through which hosts make objects of one class.
#include "platform/win32/ole/ClassFactory.h"

#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/OleObject.h"

namespace veygrid {

namespace {

class Factory final : public OleObject {
  public:
    explicit Factory(ObjectMaker maker) : OleObject(nullptr), m_maker(maker) {}

  private:
    class FactoryPart final : public Part<IClassFactory, Factory> {
      public:
        using Part::Part;

        STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** target) override {
            return Answered(target, [&] {
                // An aggregate must have the part's own unknown to count by.
                if (outer != nullptr && iid != IID_IUnknown) {
                    return CLASS_E_NOAGGREGATION;
                }
                ComPtr<IUnknown> object;
                object.Attach(m_owner.m_maker(outer));
                return object->QueryInterface(iid, target);
            });
        }
        STDMETHODIMP LockServer(BOOL lock) override {
            lock != FALSE ? module::Lock() : module::Unlock();
            return S_OK;
        }
    };

    IUnknown* FindInterface(REFIID iid) override {
        return iid == IID_IClassFactory ? &m_part : nullptr;
    }

    ObjectMaker m_maker;
    FactoryPart m_part{*this};
};

}  // namespace

HRESULT MakeClassFactory(ObjectMaker maker, REFIID iid, void** target) {
    return Answered(target, [&] {
        ComPtr<IUnknown> factory;
        factory.Attach((new Factory(maker))->Inner());
        return factory->QueryInterface(iid, target);
    });
}

}  // namespace veygrid
