// The sparse map from cell positions to values: chained order, constant-time access.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "grid/CellPos.h"

namespace veygrid {

// Entries stand in 17 chains. The chain of a key is (row as unsigned >> 4) % 17; a new key goes to
// the head of its chain, a known key keeps its place, and iteration runs over the chains in
// ascending order, each from its head. Hosts and files see this order, so it never changes. Access
// does not walk the chains: an open-addressed index finds the node of a key.
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
    Value* Find(CellPos key) {
        const Handle node = FindNode(key);
        return node == PastLast ? nullptr : &NodeAt(node).value;
    }
    const Value* Find(CellPos key) const {
        const Handle node = FindNode(key);
        return node == PastLast ? nullptr : &NodeAt(node).value;
    }

    // Inserts at the head of the key's chain, or overwrites in place.
    template <class Given>
    Value& Set(CellPos key, Given&& given) {
        const std::uint32_t hash = Hash(key);
        const Handle found = FindNode(key, hash);
        if (found != PastLast) {
            Node& node = NodeAt(found);
            node.value = std::forward<Given>(given);
            return node.value;
        }
        GrowIndexFor(m_count + 1);
        const Handle added = TakeNode();
        Node& node = NodeAt(added);
        ::new (static_cast<void*>(&node.value)) Value(std::forward<Given>(given));
        m_free = node.next;
        node.key = key;
        LinkAtHead(m_heads, added);
        InsertIntoIndex(hash, added);
        ++m_count;
        return node.value;
    }

    // False when there is no such key. Removing the last entry gives all memory back.
    bool Remove(CellPos key) {
        const std::size_t slot = FindSlot(key, Hash(key));
        if (slot == NoSlot) {
            return false;
        }
        const Handle node = m_slots[slot].node;
        EraseSlot(slot);
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
        std::fill(m_slots.begin(), m_slots.end(), Slot{});
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
        using iterator_category = std::input_iterator_tag;

        Iterator(const GridMap* map, Handle handle) : m_map(map), m_handle(handle) {}
        Entry operator*() const { return {m_map->KeyAt(m_handle), m_map->ValueAt(m_handle)}; }
        Iterator& operator++() {
            m_handle = m_map->Next(m_handle);
            return *this;
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
        m_slots.swap(other.m_slots);
        m_blocks.swap(other.m_blocks);
        std::swap(m_free, other.m_free);
        std::swap(m_fresh, other.m_fresh);
        std::swap(m_count, other.m_count);
    }

    // Bytes held for nodes and index, without what the values own elsewhere.
    std::size_t MemoryBytes() const {
        return m_blocks.size() * sizeof(Block) + m_blocks.capacity() * sizeof(m_blocks[0]) +
               m_slots.capacity() * sizeof(Slot);
    }

    // True when chains, index and count agree. Linear; for tests.
    bool Check() const {
        std::size_t chained = 0;
        for (std::size_t bucket = 0; bucket < BucketCount; ++bucket) {
            Handle before = PastLast;
            for (Handle h = m_heads[bucket]; h != PastLast; h = NodeAt(h).next) {
                if (NodeAt(h).previous != before || Bucket(NodeAt(h).key) != bucket ||
                    FindNode(NodeAt(h).key) != h || ++chained > m_count) {
                    return false;
                }
                before = h;
            }
        }
        std::size_t indexed = 0;
        for (const Slot& slot : m_slots) {
            indexed += slot.node != PastLast ? 1U : 0U;
        }
        return chained == m_count && indexed == m_count && (m_count != 0 || m_blocks.empty());
    }

  private:
    struct Node {
        Handle previous;
        Handle next;  // in the chain, or in the list of free nodes
        CellPos key;
        union {
            Value value;
        };
        Node() : previous(PastLast), next(PastLast) {}
        ~Node() {}
    };
    static constexpr std::size_t BlockShift = 8;
    static constexpr std::size_t BlockSize = std::size_t{1} << BlockShift;
    using Block = std::array<Node, BlockSize>;

    // An empty slot has no node. The whole hash stands beside the node, so that growing the index
    // and most mismatches never touch a node.
    struct Slot {
        std::uint32_t hash = 0;
        Handle node = PastLast;
    };
    using Heads = std::array<Handle, BucketCount>;
    static constexpr std::size_t NoSlot = static_cast<std::size_t>(-1);
    static constexpr std::size_t FirstIndexSize = 16;

    // Eight neighbours in a row share the mixed part, so that a walk along rows stays within a
    // cache line of the index.
    static std::uint32_t Hash(CellPos key) {
        const auto row = static_cast<std::uint32_t>(key.Row);
        const auto col = static_cast<std::uint32_t>(key.Col);
        std::uint64_t mixed = (std::uint64_t{row} << 32U | col >> 3U) * 0x9E3779B97F4A7C15U;
        mixed ^= mixed >> 32U;
        mixed *= 0xD6E8FEB86659FD93U;
        return static_cast<std::uint32_t>(mixed >> 32U) + (col & 7U);
    }

    Node& NodeAt(Handle handle) {
        const auto index = static_cast<std::size_t>(handle - 1);
        return (*m_blocks[index >> BlockShift])[index & (BlockSize - 1)];
    }
    const Node& NodeAt(Handle handle) const {
        const auto index = static_cast<std::size_t>(handle - 1);
        return (*m_blocks[index >> BlockShift])[index & (BlockSize - 1)];
    }

    std::size_t FindSlot(CellPos key, std::uint32_t hash) const {
        if (m_slots.empty()) {
            return NoSlot;
        }
        const Slot* const slots = m_slots.data();
        const std::size_t mask = m_slots.size() - 1;
        for (std::size_t i = hash & mask; slots[i].node != PastLast; i = (i + 1) & mask) {
            if (slots[i].hash == hash && NodeAt(slots[i].node).key == key) {
                return i;
            }
        }
        return NoSlot;
    }
    Handle FindNode(CellPos key, std::uint32_t hash) const {
        const std::size_t slot = FindSlot(key, hash);
        return slot == NoSlot ? PastLast : m_slots[slot].node;
    }
    Handle FindNode(CellPos key) const { return FindNode(key, Hash(key)); }

    // Slots stay at most 5/8 full.
    void GrowIndexFor(std::size_t count) {
        if (count * 8 <= m_slots.size() * 5) {
            return;
        }
        std::vector<Slot> old(m_slots.empty() ? FirstIndexSize : m_slots.size() * 2);
        m_slots.swap(old);
        for (const Slot& slot : old) {
            if (slot.node != PastLast) {
                InsertIntoIndex(slot.hash, slot.node);
            }
        }
    }

    void InsertIntoIndex(std::uint32_t hash, Handle node) {
        Slot* const slots = m_slots.data();
        const std::size_t mask = m_slots.size() - 1;
        std::size_t i = hash & mask;
        while (slots[i].node != PastLast) {
            i = (i + 1) & mask;
        }
        slots[i] = {hash, node};
    }

    // Takes a slot out and moves later members of its run forward, so that no run has a hole.
    void EraseSlot(std::size_t hole) {
        const std::size_t mask = m_slots.size() - 1;
        for (std::size_t i = (hole + 1) & mask; m_slots[i].node != PastLast; i = (i + 1) & mask) {
            const std::size_t home = m_slots[i].hash & mask;
            if (((i - home) & mask) >= ((i - hole) & mask)) {
                m_slots[hole] = m_slots[i];
                hole = i;
            }
        }
        m_slots[hole] = Slot{};
    }

    // A node to fill, still the head of the free list.
    Handle TakeNode() {
        if (m_free != PastLast) {
            return m_free;
        }
        if (m_fresh == m_blocks.size() * BlockSize) {
            if (m_fresh >
                static_cast<std::size_t>(std::numeric_limits<Handle>::max()) - BlockSize) {
                throw std::length_error("GridMap: more entries than handles");
            }
            m_blocks.push_back(std::make_unique<Block>());
        }
        m_free = static_cast<Handle>(++m_fresh);
        NodeAt(m_free).next = PastLast;
        return m_free;
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
        Handle present = PastLast;
        const std::uint32_t hash = key ? Hash(*key) : 0;
        if (key) {
            present = FindNode(*key, hash);
        }
        if (key && present == PastLast) {
            NodeAt(handle).key = *key;
            LinkAtHead(m_heads, handle);
            InsertIntoIndex(hash, handle);
            return;
        }
        if (key) {
            NodeAt(present).value = std::move(NodeAt(handle).value);
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
    std::vector<Slot> m_slots;
    std::vector<std::unique_ptr<Block>> m_blocks;
    Handle m_free = PastLast;
    std::size_t m_fresh = 0;  // nodes ever handed out
    std::size_t m_count = 0;
};

}  // namespace veygrid
