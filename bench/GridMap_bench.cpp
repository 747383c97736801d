// GridMap against boost::unordered_flat_map with the same keys and values, and against the literal
// map of 17 chains.
#include <boost/unordered/unordered_flat_map.hpp>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "bench/Ratio.h"
#include "grid/GridMap.h"
#include "support/ChainMap.h"

namespace veygrid::bench {
namespace {

struct PosHash {
    std::size_t operator()(CellPos key) const {
        return boost::hash<std::uint64_t>()(std::uint64_t{static_cast<std::uint32_t>(key.Row)}
                                                << 32U |
                                            static_cast<std::uint32_t>(key.Col));
    }
};
using PeerMap = boost::unordered_flat_map<CellPos, std::string, PosHash>;
using OurMap = GridMap<std::string>;
using Keys = std::vector<CellPos>;

constexpr std::int32_t Columns = 20;

Keys SheetOrder(std::int32_t cells) {
    Keys keys;
    keys.reserve(static_cast<std::size_t>(cells));
    for (std::int32_t i = 0; i < cells; ++i) {
        keys.push_back({i / Columns + 1, i % Columns + 1});
    }
    return keys;
}

Keys Shuffled(Keys keys, std::uint32_t seed) {
    std::mt19937 random(seed);
    std::shuffle(keys.begin(), keys.end(), random);
    return keys;
}

Keys RandomOrder(std::int32_t cells) {
    return Shuffled(SheetOrder(cells), 1);
}

const std::string Text = "12345678";

void SetAll(OurMap& map, const Keys& keys) {
    for (const CellPos key : keys) {
        map.Set(key, Text);
    }
}
void SetAll(PeerMap& map, const Keys& keys) {
    for (const CellPos key : keys) {
        map.insert_or_assign(key, Text);
    }
}
void SetAll(ChainMap<std::string>& map, const Keys& keys) {
    for (const CellPos key : keys) {
        map.Set(key, Text);
    }
}

template <class Map>
std::size_t GetAll(Map& map, const Keys& keys) {
    std::size_t bytes = 0;
    for (const CellPos key : keys) {
        bytes += map.Find(key)->size();
    }
    return bytes;
}
std::size_t GetAll(PeerMap& map, const Keys& keys) {
    std::size_t bytes = 0;
    for (const CellPos key : keys) {
        bytes += map.find(key)->second.size();
    }
    return bytes;
}

template <class Map>
void RemoveAllKeys(Map& map, const Keys& keys) {
    for (const CellPos key : keys) {
        map.Remove(key);
    }
}
void RemoveAllKeys(PeerMap& map, const Keys& keys) {
    for (const CellPos key : keys) {
        map.erase(key);
    }
}

template <class Map>
double TimeSet(const Keys& keys) {
    Map map;
    return Seconds([&] { SetAll(map, keys); });
}
template <class Map>
double TimeGet(const Keys& filled, const Keys& keys) {
    Map map;
    SetAll(map, filled);
    return Seconds([&] { Keep(GetAll(map, keys)); });
}
template <class Map>
double TimeRemove(const Keys& filled, const Keys& keys) {
    Map map;
    SetAll(map, filled);
    return Seconds([&] { RemoveAllKeys(map, keys); });
}

// Filled in one order, read and emptied in another, so that no map profits from its own layout.
void AgainstFlatMap(const char* order, const Keys& filled, const Keys& used) {
    const std::string in = std::string(" 1 M cells, ") + order;
    Ratio("GridMap set" + in, 1.5)
        .Run([&] { return TimeSet<OurMap>(filled); }, [&] { return TimeSet<PeerMap>(filled); });
    Ratio("GridMap get" + in, 1.25)
        .Run([&] { return TimeGet<OurMap>(filled, used); },
             [&] { return TimeGet<PeerMap>(filled, used); });
    Ratio("GridMap remove" + in, 0)
        .Run([&] { return TimeRemove<OurMap>(filled, used); },
             [&] { return TimeRemove<PeerMap>(filled, used); });
}

template <class Map>
double TimeLife(const Keys& keys) {
    return TimeSet<Map>(keys) + TimeGet<Map>(keys, keys) + TimeRemove<Map>(keys, keys);
}

// The factor is to grow with the number of cells.
void AgainstChains(std::int32_t cells, double atLeast) {
    const Keys keys = RandomOrder(cells);
    Ratio("GridMap set, get, remove against 17 chains, " + std::to_string(cells) + " cells",
          atLeast, Ratio::Goal::AtLeast)
        .Run([&] { return TimeLife<OurMap>(keys); },
             [&] { return TimeLife<ChainMap<std::string>>(keys); }, 1);
}

}  // namespace
}  // namespace veygrid::bench

int main() {
    using namespace veygrid::bench;
    const Keys sheet = SheetOrder(1'000'000);
    AgainstFlatMap("sheet order", sheet, sheet);
    AgainstFlatMap("random order", Shuffled(sheet, 1), Shuffled(sheet, 2));
    AgainstFlatMap("random order in a sheet filled in order", sheet, Shuffled(sheet, 2));
    AgainstChains(10'000, 0);
    AgainstChains(40'000, 50);
    return 0;
}
