// Enumerators over a fixed list, as OLE hands out its lists.
#pragma once

#include <cstddef>
#include <cstring>
#include <utility>
#include <vector>

#include "platform/win32/ole/Guard.h"
#include "platform/win32/ole/Module.h"
#include "platform/win32/ole/Platform.h"

namespace veygrid {

// How an item is copied for a caller, who then owns the copy, and how such a copy is let go.
template <class Item>
struct ItemCopy;

template <class Enum, class Item>
class Enumerator final : public Enum {
  public:
    // Owns the items.
    explicit Enumerator(std::vector<Item> items) : m_items(std::move(items)) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** target) override {
        return Answered(target, [&] {
            if (iid != IID_IUnknown && iid != __uuidof(Enum)) {
                return E_NOINTERFACE;
            }
            AddRef();
            *target = this;
            return S_OK;
        });
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++m_references); }
    STDMETHODIMP_(ULONG) Release() override {
        const LONG left = --m_references;
        if (left == 0) {
            delete this;
        }
        return static_cast<ULONG>(left);
    }
    STDMETHODIMP Next(ULONG count, Item* items, ULONG* fetched) override {
        if (items == nullptr || (fetched == nullptr && count != 1)) {
            return E_POINTER;
        }
        return Guarded([&] {
            ULONG done = 0;
            for (; done < count && m_next < m_items.size(); ++done) {
                items[done] = ItemCopy<Item>::Copy(m_items[m_next++]);
            }
            if (fetched != nullptr) {
                *fetched = done;
            }
            return done == count ? S_OK : S_FALSE;
        });
    }
    STDMETHODIMP Skip(ULONG count) override {
        const std::size_t left = m_items.size() - m_next;
        m_next += count < left ? count : left;
        return count <= left ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() override {
        m_next = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(Enum** target) override {
        return Answered(target, [&] {
            std::vector<Item> items;
            for (const Item& item : m_items) {
                items.push_back(ItemCopy<Item>::Copy(item));
            }
            auto* const clone = new Enumerator(std::move(items));
            clone->m_next = m_next;
            *target = clone;
            return S_OK;
        });
    }

  private:
    ~Enumerator() {
        for (Item& item : m_items) {
            ItemCopy<Item>::Free(item);
        }
    }

    module::LockHolder m_lock;
    std::vector<Item> m_items;
    std::size_t m_next = 0;
    LONG m_references = 1;
};

template <>
struct ItemCopy<FORMATETC> {
    static FORMATETC Copy(const FORMATETC& item) { return item; }
    static void Free(FORMATETC&) {}
};

// Text that the task allocator owns; throws std::bad_alloc.
inline wchar_t* TaskText(const wchar_t* text) {
    const std::size_t size = (std::wcslen(text) + 1) * sizeof(wchar_t);
    auto* const copy = static_cast<wchar_t*>(::CoTaskMemAlloc(size));
    if (copy == nullptr) {
        throw std::bad_alloc();
    }
    std::memcpy(copy, text, size);
    return copy;
}

template <>
struct ItemCopy<OLEVERB> {
    static OLEVERB Copy(const OLEVERB& item) {
        OLEVERB copy = item;
        copy.lpszVerbName = TaskText(item.lpszVerbName);
        return copy;
    }
    static void Free(OLEVERB& item) { ::CoTaskMemFree(item.lpszVerbName); }
};
template <>
struct ItemCopy<IConnectionPoint*> {
    static IConnectionPoint* Copy(IConnectionPoint* item) {
        item->AddRef();
        return item;
    }
    static void Free(IConnectionPoint*& item) { item->Release(); }
};
template <>
struct ItemCopy<CONNECTDATA> {
    static CONNECTDATA Copy(const CONNECTDATA& item) {
        item.pUnk->AddRef();
        return item;
    }
    static void Free(CONNECTDATA& item) { item.pUnk->Release(); }
};

}  // namespace veygrid
