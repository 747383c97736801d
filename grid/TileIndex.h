// Finds the number that stands for a cell position, in constant time, by tiles of cells.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "grid/CellPos.h"

namespace veygrid {

// Positions are grouped into tiles of 16 rows by 4 columns; a hash directory finds the tile, and
// the place in the tile is the position itself. A sheet that is filled in any shape but single far
// cells costs a few bytes a cell, neighbours share cache lines, and the directory of a million
// cells fits into a small cache.
class TileIndex {
  public:
    // What is kept for a position; None for positions without anything.
    using Number = std::int32_t;
    static constexpr Number None = 0;

    Number Find(CellPos key) const {
        const Entry* const entry = FindEntry(TileKey(key));
        return entry == nullptr ? None : m_numbers.data()[entry->firstPlace + PlaceInTile(key)];
    }

    // Where the number of a position stands, None if it has none yet; good until the index next
    // changes. Makes the tile; Occupy must follow for a position that had none, or Abandon.
    Number& Locate(CellPos key) {
        const std::uint64_t tileKey = TileKey(key);
        m_located = FindEntry(tileKey);
        if (m_located == nullptr) {
            m_located = AddEntry(tileKey);
        }
        return m_numbers.data()[m_located->firstPlace + PlaceInTile(key)];
    }
    // Puts the number, not None, where Locate has just found none.
    void Occupy(Number& place, Number number) {
        place = number;
        ++m_located->count;
    }
    // Gives back a tile that Locate made in vain.
    void Abandon() {
        if (m_located->count == 0) {
            DropEntry(m_located);
        }
    }

    // Takes out the number of a position and returns it; None if it has none.
    Number Take(CellPos key) {
        Entry* const entry = FindEntry(TileKey(key));
        if (entry == nullptr) {
            return None;
        }
        const Number taken =
            std::exchange(m_numbers.data()[entry->firstPlace + PlaceInTile(key)], None);
        if (taken != None && --entry->count == 0) {
            DropEntry(entry);
        }
        return taken;
    }

    // Empties the index and keeps its memory, for filling it anew.
    void Clear();
    void Swap(TileIndex& other) noexcept;
    std::size_t MemoryBytes() const;
    // Number of positions that have a number. Linear in the tiles.
    std::size_t Count() const;

  private:
    static constexpr unsigned RowShift = 4;
    static constexpr unsigned ColShift = 2;
    static constexpr std::size_t TileSize = std::size_t{1} << (RowShift + ColShift);
    // Rows lose four bits in a tile key, so that this is none.
    static constexpr std::uint64_t NoTileKey = ~std::uint64_t{0};

    struct Entry {
        std::uint64_t tileKey = NoTileKey;
        std::uint32_t firstPlace = 0;  // of the tile, in the numbers
        std::uint32_t count = 0;       // places in use
    };

    static std::uint64_t TileKey(CellPos key) {
        return std::uint64_t{static_cast<std::uint32_t>(key.Row) >> RowShift} << 32U |
               static_cast<std::uint32_t>(key.Col) >> ColShift;
    }
    static std::size_t PlaceInTile(CellPos key) {
        const std::uint32_t row = static_cast<std::uint32_t>(key.Row) % (1U << RowShift);
        const std::uint32_t col = static_cast<std::uint32_t>(key.Col) % (1U << ColShift);
        return row << ColShift | col;
    }
    // Where a tile's search in the directory begins. Few instructions on purpose: the shorter this
    // path, the more look-ups the processor has under way at once.
    std::size_t Home(std::uint64_t tileKey) const {
        return static_cast<std::size_t>(tileKey * m_multiplier >> m_homeShift);
    }

    // The directory always has free entries, so that every search ends.
    const Entry* FindEntry(std::uint64_t tileKey) const {
        const Entry* entry = m_entries + Home(tileKey);
        while (entry->tileKey != tileKey) {
            if (entry->tileKey == NoTileKey) {
                return nullptr;
            }
            entry = entry + 1 == m_entries + m_directory.size() ? m_entries : entry + 1;
        }
        return entry;
    }
    Entry* FindEntry(std::uint64_t tileKey) {
        return const_cast<Entry*>(std::as_const(*this).FindEntry(tileKey));
    }

    // An odd number that each process draws anew, so that no file can be made whose positions all
    // begin their search at one place.
    static std::uint64_t ProcessMultiplier();
    void GrowDirectory();
    void PutEntry(const Entry& entry);
    void AddTiles();
    // With a tile of its own. Allocation failure leaves the index as it was.
    Entry* AddEntry(std::uint64_t tileKey);
    void DropEntry(Entry* entry);
    void ReleaseTile(std::uint32_t firstPlace);
    void ChainFreeTiles(std::size_t fromPlace);

    static constexpr Number NoTile = -1;
    static constexpr unsigned FirstDirectoryBits = 2;

    // What is searched before there is a directory.
    static const std::array<Entry, std::size_t{1} << FirstDirectoryBits> NoEntries;

    std::vector<Entry> m_directory;
    const Entry* m_entries = NoEntries.data();  // those of the directory, once there is one
    std::uint64_t m_multiplier = ProcessMultiplier();
    unsigned m_homeShift = 64 - FirstDirectoryBits;
    // The tiles one behind the other; the first number of a free tile names the next free one.
    std::vector<Number> m_numbers;
    Number m_freeTile = NoTile;  // its first place
    std::size_t m_tileCount = 0;
    Entry* m_located = nullptr;
};

}  // namespace veygrid
