// Finds the number that stands for a cell position, in constant time, by tiles of cells.
#include "grid/TileIndex.h"

#include <algorithm>
#include <limits>
#include <random>
#include <stdexcept>
#include <utility>

namespace veygrid {

constinit const std::array<TileIndex::Entry, std::size_t{1} << TileIndex::FirstDirectoryBits>
    TileIndex::NoEntries{};

void TileIndex::Clear() {
    std::fill(m_directory.begin(), m_directory.end(), Entry{});
    std::fill(m_numbers.begin(), m_numbers.end(), None);
    m_tileCount = 0;
    m_located = nullptr;
    m_freeTile = NoTile;
    ChainFreeTiles(0);
}

void TileIndex::Swap(TileIndex& other) noexcept {
    m_directory.swap(other.m_directory);
    std::swap(m_entries, other.m_entries);
    m_numbers.swap(other.m_numbers);
    std::swap(m_homeShift, other.m_homeShift);
    std::swap(m_freeTile, other.m_freeTile);
    std::swap(m_tileCount, other.m_tileCount);
}

std::size_t TileIndex::MemoryBytes() const {
    return m_directory.capacity() * sizeof(Entry) + m_numbers.capacity() * sizeof(Number);
}

std::size_t TileIndex::Count() const {
    std::size_t count = 0;
    for (const Entry& entry : m_directory) {
        count += entry.count;
    }
    return count;
}

std::uint64_t TileIndex::ProcessMultiplier() {
    static const std::uint64_t multiplier = [] {
        std::random_device device;
        return (std::uint64_t{device()} << 32U | device()) | 1U;
    }();
    return multiplier;
}

void TileIndex::PutEntry(const Entry& entry) {
    std::size_t i = Home(entry.tileKey);
    while (m_directory[i].tileKey != NoTileKey) {
        i = (i + 1) & (m_directory.size() - 1);
    }
    m_directory[i] = entry;
}

void TileIndex::GrowDirectory() {
    const bool first = m_directory.empty();
    std::vector<Entry> old(first ? std::size_t{1} << FirstDirectoryBits : m_directory.size() * 2);
    m_directory.swap(old);
    m_entries = m_directory.data();
    m_homeShift -= first ? 0U : 1U;
    for (const Entry& entry : old) {
        if (entry.tileKey != NoTileKey) {
            PutEntry(entry);
        }
    }
}

// Grows the tiles by half, so that little stays unused however large the sheet is.
void TileIndex::AddTiles() {
    const std::size_t places = m_numbers.size();
    const std::size_t tiles = places / TileSize;
    const std::size_t grown = (tiles + std::max<std::size_t>(1, tiles / 2)) * TileSize;
    if (grown > static_cast<std::size_t>(std::numeric_limits<Number>::max())) {
        throw std::length_error("TileIndex: more tiles than can be numbered");
    }
    m_numbers.reserve(grown);
    m_numbers.resize(grown, None);
    ChainFreeTiles(places);
}

// Puts all tiles from a place on into the list of free tiles, the first of them foremost.
void TileIndex::ChainFreeTiles(std::size_t fromPlace) {
    for (std::size_t place = m_numbers.size(); place > fromPlace;) {
        place -= TileSize;
        ReleaseTile(static_cast<std::uint32_t>(place));
    }
}

// The directory stays at most half full.
TileIndex::Entry* TileIndex::AddEntry(std::uint64_t tileKey) {
    if ((m_tileCount + 1) * 2 > m_directory.size()) {
        GrowDirectory();
    }
    if (m_freeTile == NoTile) {
        AddTiles();
    }
    const auto firstPlace = static_cast<std::uint32_t>(m_freeTile);
    m_freeTile = std::exchange(m_numbers[firstPlace], None);
    PutEntry({tileKey, firstPlace, 0});
    ++m_tileCount;
    return FindEntry(tileKey);
}

// Takes an entry out and moves later members of its run forward, so that no run has a hole.
void TileIndex::DropEntry(Entry* entry) {
    ReleaseTile(entry->firstPlace);
    auto hole = static_cast<std::size_t>(entry - m_directory.data());
    const std::size_t mask = m_directory.size() - 1;
    for (std::size_t i = (hole + 1) & mask; m_directory[i].tileKey != NoTileKey;
         i = (i + 1) & mask) {
        const std::size_t home = Home(m_directory[i].tileKey);
        if (((i - home) & mask) >= ((i - hole) & mask)) {
            m_directory[hole] = m_directory[i];
            hole = i;
        }
    }
    m_directory[hole] = Entry{};
    --m_tileCount;
}

void TileIndex::ReleaseTile(std::uint32_t firstPlace) {
    m_numbers[firstPlace] = m_freeTile;
    m_freeTile = static_cast<Number>(firstPlace);
}

}  // namespace veygrid
