// The literal map of 17 chains that GridMap's order is defined by; slow, for tests and benchmarks.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <list>
#include <optional>
#include <utility>

#include "grid/CellPos.h"

namespace veygrid {

template <class Value>
class ChainMap {
  public:
    using Entry = std::pair<CellPos, Value>;
    using Chains = std::array<std::list<Entry>, 17>;

    static std::size_t Bucket(CellPos key) {
        return (static_cast<std::uint32_t>(key.Row) >> 4U) % 17U;
    }

    Value* Find(CellPos key) {
        for (Entry& entry : m_chains[Bucket(key)]) {
            if (entry.first == key) {
                return &entry.second;
            }
        }
        return nullptr;
    }

    void Set(CellPos key, Value value) {
        if (Value* present = Find(key)) {
            *present = std::move(value);
            return;
        }
        m_chains[Bucket(key)].emplace_front(key, std::move(value));
        ++m_count;
    }

    bool Remove(CellPos key) {
        auto& chain = m_chains[Bucket(key)];
        for (auto it = chain.begin(); it != chain.end(); ++it) {
            if (it->first == key) {
                chain.erase(it);
                --m_count;
                return true;
            }
        }
        return false;
    }

    void RemoveAll() { *this = ChainMap(); }

    template <class NewKey>
    void Rebuild(NewKey newKey) {
        ChainMap rebuilt;
        for (auto& chain : m_chains) {
            for (Entry& entry : chain) {
                if (const std::optional<CellPos> key = newKey(entry.first)) {
                    rebuilt.Set(*key, std::move(entry.second));
                }
            }
        }
        *this = std::move(rebuilt);
    }

    std::size_t Count() const { return m_count; }
    const Chains& All() const { return m_chains; }

  private:
    Chains m_chains;
    std::size_t m_count = 0;
};

}  // namespace veygrid
