// Saving and loading a sheet of a million cells, against the bare bytes and the peer map.
#include <boost/unordered/unordered_flat_map.hpp>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/Ratio.h"
#include "grid/GridStore.h"
#include "persist/FileCommands.h"
#include "platform/FileSystem.h"

namespace veygrid::bench {
namespace {

constexpr std::int32_t Rows = 50'000;
constexpr std::int32_t Columns = 20;

struct PosHash {
    std::size_t operator()(CellPos key) const {
        return boost::hash<std::uint64_t>()(std::uint64_t{static_cast<std::uint32_t>(key.Row)}
                                                << 32U |
                                            static_cast<std::uint32_t>(key.Col));
    }
};
using PeerMap = boost::unordered_flat_map<CellPos, std::string, PosHash>;

void Fill(GridStore& store) {
    for (std::int32_t row = 1; row <= Rows; ++row) {
        for (std::int32_t col = 1; col <= Columns; ++col) {
            store.SetCellText(row, col, "12345678");
        }
    }
}

// Saving writes through to the disk before it puts the file in its place; the bare write does not,
// so that the ratio counts what durability costs against us.
void WriteBare(const std::string& path, const std::vector<char>& bytes) {
    const std::string beside = path + ".part";
    std::FILE* const file = std::fopen(beside.c_str(), "wb");
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    std::fclose(file);
    std::filesystem::rename(beside, path);
}

std::vector<char> ReadBare(const std::string& path) {
    std::vector<char> bytes(std::filesystem::file_size(path));
    std::FILE* const file = std::fopen(path.c_str(), "rb");
    const std::size_t read = std::fread(bytes.data(), 1, bytes.size(), file);
    std::fclose(file);
    bytes.resize(read);
    return bytes;
}

PeerMap PeerPairs() {
    PeerMap map;
    for (std::int32_t row = 1; row <= Rows; ++row) {
        for (std::int32_t col = 1; col <= Columns; ++col) {
            map.insert_or_assign({row, col}, std::string("12345678"));
        }
    }
    return map;
}

void SaveAndLoad(const std::string& folder) {
    const std::string path = folder + "/million.grd";
    const auto files = MakeFileSystem();
    GridFileHost host;
    StoreWatcher watcher;
    GridStore store(watcher);
    GridDocument document;
    Fill(store);
    SaveFile(*files, path, store, document, host);
    const std::vector<char> bytes = ReadBare(path);
    Ratio("save of 1 M cells, against fwrite of the same bytes", 3)
        .Run([&] { return Seconds([&] { SaveFile(*files, path, store, document, host); }); },
             [&] { return Seconds([&] { WriteBare(folder + "/bare", bytes); }); });
    Ratio("load of 1 M cells, against fread and the same pairs in a flat map", 1.5)
        .Run(
            [&] {
                StoreWatcher otherWatcher;
                GridStore loaded(otherWatcher);
                GridDocument other;
                return Seconds([&] { OpenFile(*files, path, 0, loaded, other, host); });
            },
            [&] {
                return Seconds([&] {
                    Keep(ReadBare(path).size());
                    Keep(PeerPairs().size());
                });
            });
}

}  // namespace
}  // namespace veygrid::bench

int main() {
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / "veygrid-file-bench";
    std::filesystem::create_directories(folder);
    veygrid::bench::SaveAndLoad(folder.string());
    std::filesystem::remove_all(folder);
    return 0;
}
