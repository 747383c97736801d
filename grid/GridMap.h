// The sparse map from cell positions to values: chained order, constant-time access.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "grid/CellPos.h"
#include "grid/TileIndex.h"

namespace veygrid {

// Entries stand in 17 chains. The chain of a key is (row as unsigned >> 4) % 17; a new key goes to
// the head of its chain, a known key keeps its place, and iteration runs over the chains in
// ascending order, each from its head. Hosts and files see this order, so it never changes. Access
// does not walk the chains: an index by tiles of cells finds the node of a key.
//
// A handle names an entry in 31 bits. It stays good until the entry is removed or the map is
// rebuilt; overwriting and inserting leave it good. Using a stale handle is the caller's error.
template <class Value>
class GridMap {
  public:
    using Handle = std::int32_t;

    static constexpr Handle BeforeFirst = -1;
    static constexpr Handle PastLast = 0;
    static constexpr std::size_t BucketCount = 17;

    // The chain, from 0, in which a key stands.
    static std::size_t Bucket(CellPos key) {
        return (static_cast<std::uint32_t>(key.Row) >> 4U) % BucketCount;
    }

    GridMap() = default;
    GridMap(const GridMap&) = delete;
    GridMap& operator=(const GridMap&) = delete;
    GridMap(GridMap&& other) noexcept { Swap(other); }
    GridMap& operator=(GridMap&& other) noexcept {
        Swap(other);
        return *this;
    }
    ~GridMap() { DestroyValues(); }

    std::size_t Count() const { return m_count; }
    bool IsEmpty() const { return m_count == 0; }

    // The value of a key, or null.
    Value* Find(CellPos key) { return const_cast<Value*>(std::as_const(*this).Find(key)); }
    const Value* Find(CellPos key) const {
        const Handle node = m_index.Find(key);
        return node == PastLast ? nullptr : &NodeAt(node).value;
    }

    // Inserts at the head of the key's chain, or overwrites in place.
    template <class Given>
    Value& Set(CellPos key, Given&& given) {
        Handle& place = m_index.Locate(key);
        if (place != PastLast) {
            Node& node = NodeAt(place);
            node.value = std::forward<Given>(given);
            return node.value;
        }
        const Handle added = FillNode(std::forward<Given>(given));
        m_index.Occupy(place, added);
        Node& node = NodeAt(added);
        m_free = node.next;
        node.key = key;
        LinkAtHead(m_heads, added);
        ++m_count;
        return node.value;
    }

    // False when there is no such key. Removing the last entry gives all memory back.
    bool Remove(CellPos key) {
        const Handle node = m_index.Take(key);
        if (node == PastLast) {
            return false;
        }
        Unlink(node);
        ReleaseNode(node);
        if (--m_count == 0) {
            RemoveAll();
        }
        return true;
    }

    void RemoveAll() {
        GridMap empty;
        Swap(empty);
    }

    // Builds the map anew: every entry in iteration order is put under the key that
    // `newKey(CellPos) -> std::optional<CellPos>` gives, or dropped when it gives none. Where two
    // entries get one key, the later one's value takes the place of the earlier's. The order
    // afterwards is that of the new insertions. Values do not move in memory.
    template <class NewKey>
    void Rebuild(NewKey newKey) {
        if (IsEmpty()) {
            return;
        }
        const Heads old = std::exchange(m_heads, Heads{});
        m_index.Clear();
        for (const Handle head : old) {
            for (Handle handle = head; handle != PastLast;) {
                const Handle next = NodeAt(handle).next;
                PutAgain(handle, newKey(NodeAt(handle).key));
                handle = next;
            }
        }
        if (m_count == 0) {
            RemoveAll();
        }
    }

    // Handle of the first entry, or PastLast.
    Handle First() const { return FirstFrom(0); }
    // Handle of the entry behind a good handle, or PastLast.
    Handle Next(Handle handle) const {
        const Node& node = NodeAt(handle);
        return node.next != PastLast ? node.next : FirstFrom(Bucket(node.key) + 1);
    }
    // Whether any number at all is a good handle.
    bool IsHandle(Handle handle) const {
        return handle > PastLast && static_cast<std::size_t>(handle) < m_fresh &&
               m_index.Find(NodeAt(handle).key) == handle;
    }
    const CellPos& KeyAt(Handle handle) const { return NodeAt(handle).key; }
    Value& ValueAt(Handle handle) { return NodeAt(handle).value; }
    const Value& ValueAt(Handle handle) const { return NodeAt(handle).value; }

    struct Entry {
        const CellPos& key;
        const Value& value;
    };

    class Iterator {
      public:
        using value_type = Entry;
        using difference_type = std::ptrdiff_t;
        using reference = Entry;
        using pointer = void;
        using iterator_category = std::input_iterator_tag;

        Iterator(const GridMap* map, Handle handle) : m_map(map), m_handle(handle) {}
        Entry operator*() const { return {m_map->KeyAt(m_handle), m_map->ValueAt(m_handle)}; }
        Iterator& operator++() {
            m_handle = m_map->Next(m_handle);
            return *this;
        }
        Iterator operator++(int) {
            Iterator before = *this;
            ++*this;
            return before;
        }
        bool operator==(const Iterator& other) const { return m_handle == other.m_handle; }

      private:
        const GridMap* m_map;
        Handle m_handle;
    };

    Iterator begin() const { return {this, First()}; }
    Iterator end() const { return {this, PastLast}; }

    void Swap(GridMap& other) noexcept {
        std::swap(m_heads, other.m_heads);
        m_index.Swap(other.m_index);
        m_blocks.swap(other.m_blocks);
        std::swap(m_free, other.m_free);
        std::swap(m_fresh, other.m_fresh);
        std::swap(m_count, other.m_count);
    }

    // Bytes held for nodes and index, without what the values own elsewhere.
    std::size_t MemoryBytes() const {
        return m_blocks.size() * BlockSize * sizeof(Node) +
               m_blocks.capacity() * sizeof(m_blocks[0]) + m_index.MemoryBytes();
    }

    // True when chains, index and count agree. Linear; for tests.
    bool Check() const {
        std::size_t chained = 0;
        for (std::size_t bucket = 0; bucket < BucketCount; ++bucket) {
            Handle before = PastLast;
            for (Handle h = m_heads[bucket]; h != PastLast; h = NodeAt(h).next) {
                if (NodeAt(h).previous != before || Bucket(NodeAt(h).key) != bucket ||
                    m_index.Find(NodeAt(h).key) != h || ++chained > m_count) {
                    return false;
                }
                before = h;
            }
        }
        return chained == m_count && m_index.Count() == m_count &&
               (m_count != 0 || m_blocks.empty());
    }

  private:
    struct Node {
        Handle previous;
        Handle next;  // in the chain, or in the list of free nodes
        CellPos key;
        union {
            Value value;
        };
        // The value is made and destroyed by hand.
        Node() : previous(PastLast), next(PastLast) {}  // NOLINT(modernize-use-equals-default)
        ~Node() {}                                      // NOLINT(modernize-use-equals-default)
    };
    static constexpr std::size_t BlockShift = 8;
    static constexpr std::size_t BlockSize = std::size_t{1} << BlockShift;

    using Heads = std::array<Handle, BucketCount>;

    // Straight through the pointers: this is the hot path of everything.
    const Node& NodeAt(Handle handle) const {
        const auto index = static_cast<std::size_t>(static_cast<std::uint32_t>(handle));
        return m_blocks.data()[index >> BlockShift].get()[index & (BlockSize - 1)];
    }
    Node& NodeAt(Handle handle) { return const_cast<Node&>(std::as_const(*this).NodeAt(handle)); }

    // A node to fill, still the head of the free list.
    Handle TakeNode() {
        if (m_free != PastLast) {
            return m_free;
        }
        if (m_fresh >= m_blocks.size() * BlockSize) {
            if (m_fresh >
                static_cast<std::size_t>(std::numeric_limits<Handle>::max()) - BlockSize) {
                throw std::length_error("GridMap: more entries than handles");
            }
            m_blocks.push_back(std::make_unique<Node[]>(BlockSize));
        }
        m_free = static_cast<Handle>(m_fresh++);
        NodeAt(m_free).next = PastLast;
        return m_free;
    }
    // Makes the value in a node to fill, which stays the head of the free list. Failure leaves the
    // map as it was.
    template <class Given>
    Handle FillNode(Given&& given) {
        try {
            const Handle handle = TakeNode();
            ::new (static_cast<void*>(&NodeAt(handle).value)) Value(std::forward<Given>(given));
            return handle;
        } catch (...) {
            m_index.Abandon();
            throw;
        }
    }
    void ReleaseNode(Handle handle) {
        Node& node = NodeAt(handle);
        std::destroy_at(&node.value);
        node.next = m_free;
        m_free = handle;
    }

    void LinkAtHead(Heads& heads, Handle handle) {
        Node& node = NodeAt(handle);
        Handle& head = heads[Bucket(node.key)];
        node.previous = PastLast;
        node.next = head;
        if (head != PastLast) {
            NodeAt(head).previous = handle;
        }
        head = handle;
    }
    void Unlink(Handle handle) {
        const Node& node = NodeAt(handle);
        if (node.previous == PastLast) {
            m_heads[Bucket(node.key)] = node.next;
        } else {
            NodeAt(node.previous).next = node.next;
        }
        if (node.next != PastLast) {
            NodeAt(node.next).previous = node.previous;
        }
    }

    void PutAgain(Handle handle, std::optional<CellPos> key) {
        if (key) {
            Handle& place = m_index.Locate(*key);
            if (place == PastLast) {
                m_index.Occupy(place, handle);
                NodeAt(handle).key = *key;
                LinkAtHead(m_heads, handle);
                return;
            }
            NodeAt(place).value = std::move(NodeAt(handle).value);
        }
        ReleaseNode(handle);
        --m_count;
    }

    Handle FirstFrom(std::size_t bucket) const {
        while (bucket < BucketCount && m_heads[bucket] == PastLast) {
            ++bucket;
        }
        return bucket < BucketCount ? m_heads[bucket] : PastLast;
    }

    void DestroyValues() {
        for (const Handle head : m_heads) {
            for (Handle h = head; h != PastLast; h = NodeAt(h).next) {
                std::destroy_at(&NodeAt(h).value);
            }
        }
    }

    Heads m_heads{};
    TileIndex m_index;
    std::vector<std::unique_ptr<Node[]>> m_blocks;
    Handle m_free = PastLast;
    std::size_t m_fresh = 1;  // the next node never handed out; node 0 is none
    std::size_t m_count = 0;
};

}  // namespace veygrid
