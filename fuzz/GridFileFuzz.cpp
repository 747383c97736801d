// Fuzz target: bytes read as a grid file, within bounded memory, and written and read again.
#include <string>

#include "fuzz/AllocationWatch.h"
#include "fuzz/FuzzTools.h"
#include "persist/GridFile.h"

namespace veygrid {
namespace {

// What the reader promises for each byte of the stream. Its fixed amount is held to less than it
// promises, since the streams here are short.
constexpr std::size_t MostBytesPerByte = 160;
constexpr std::size_t MostFixedBytes = std::size_t{1} << 18U;

// A sheet and what a file holds beside it.
struct Sheet {
    StoreWatcher Watcher;
    GridStore Store{Watcher};
    GridDocument Document;
};

enum class Outcome { Read, Refused, Damaged };

Outcome Read(std::string_view bytes, Sheet& sheet) {
    MemorySource source(bytes);
    GridFileHost host;
    try {
        ArchiveReader archive(source);
        return ReadGrid(archive, sheet.Store, sheet.Document, host) ? Outcome::Read
                                                                    : Outcome::Refused;
    } catch (const ArchiveError& error) {
        Claim(error.Position() <= bytes.size(), "an error lies in the stream");
        return Outcome::Damaged;
    }
}

Outcome ReadWatched(std::string_view bytes, Sheet& sheet) {
    const AllocationWatch watch;
    const Outcome outcome = Read(bytes, sheet);
    Claim(watch.Peak() <= MostBytesPerByte * bytes.size() + MostFixedBytes,
          "memory stays within the promised multiple of the stream");
    return outcome;
}

std::string Write(Sheet& sheet) {
    MemorySink sink;
    GridFileHost host;
    ArchiveWriter archive(sink);
    WriteGrid(archive, sheet.Store, sheet.Document, host);
    const std::uint64_t position = archive.Position();
    archive.Close();
    Claim(position == sink.Bytes.size(), "the writer knows its position");
    return sink.Bytes;
}

template <class Map>
bool SameEntries(const Map& a, const Map& b) {
    for (const auto& [key, value] : a) {
        const auto* other = b.Find(key);
        if (other == nullptr || !(*other == value)) {
            return false;
        }
    }
    return a.Count() == b.Count() && a.Check() && b.Check();
}

bool SameMaps(const GridStore& a, const GridStore& b) {
    return SameEntries(a.RowHeightMap, b.RowHeightMap) &&
           SameEntries(a.ColWidthMap, b.ColWidthMap) &&
           SameEntries(a.RowHeaderMap, b.RowHeaderMap) &&
           SameEntries(a.ColHeaderMap, b.ColHeaderMap) && SameEntries(a.RowNameMap, b.RowNameMap) &&
           SameEntries(a.ColNameMap, b.ColNameMap) && SameEntries(a.RowInfoMap, b.RowInfoMap) &&
           SameEntries(a.ColInfoMap, b.ColInfoMap) && SameEntries(a.CellTextMap, b.CellTextMap) &&
           SameEntries(a.CellFormatMap, b.CellFormatMap);
}

void CheckRefused(const Sheet& sheet) {
    const GridStore& store = sheet.Store;
    Claim(store.Properties == GridProperties{} && store.CellTextMap.IsEmpty() &&
              store.CellFormatMap.IsEmpty() && store.Params.Count() == 0 &&
              sheet.Document.m_guiObjects.empty(),
          "a refused stream changes nothing");
}

// Chains turn round with each reading, so that the bytes come back after the second.
void CheckRoundTrip(Sheet& first) {
    const std::string bytes = Write(first);
    Sheet second;
    Claim(Read(bytes, second) == Outcome::Read, "what was written is read");
    Claim(SameMaps(first.Store, second.Store), "the maps survive");
    Claim(first.Store.Properties == second.Store.Properties &&
              first.Store.Switches == second.Store.Switches,
          "the properties survive");
    Claim(first.Document == second.Document, "what stands beside the sheet survives");
    const std::string turned = Write(second);
    Sheet third;
    Claim(Read(turned, third) == Outcome::Read && Write(third) == bytes,
          "the bytes survive two readings");
}

void CheckReadingTwice(std::string_view bytes, Sheet& sheet) {
    const std::size_t params = sheet.Store.Params.Count();
    const std::size_t texts = sheet.Store.CellTextMap.Count();
    const std::size_t objects = sheet.Document.m_guiObjects.size();
    Claim(Read(bytes, sheet) == Outcome::Read, "a stream is read twice");
    Claim(sheet.Store.Params.Count() == 2 * params, "parameters double");
    Claim(sheet.Store.CellTextMap.Count() == texts && sheet.Document.m_guiObjects.size() == objects,
          "nothing else doubles");
}

}  // namespace
}  // namespace veygrid

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace veygrid;
    const std::string_view bytes = TextOf(data, size);
    Sheet sheet;
    const Outcome outcome = ReadWatched(bytes, sheet);
    if (outcome == Outcome::Refused) {
        CheckRefused(sheet);
    }
    // What was read of a damaged stream stays, and is a sheet like any other.
    CheckRoundTrip(sheet);
    if (outcome == Outcome::Read) {
        CheckReadingTwice(bytes, sheet);
    }
    return 0;
}
