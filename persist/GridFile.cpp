// The grid file: one stream that holds the sheet, its properties and its form objects.
#include "persist/GridFile.h"

#include <array>

#include "persist/PropertyExchange.h"
#include "valuetext/CodePage936.h"
#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

// Banners from which on a file holds more sections. They compare as texts, not as numbers.
constexpr std::string_view BannerWithSwitches = "Veynor Data Grid Control Ver1.1";
constexpr std::string_view BannerWithQuerySwitch = "Veynor Data Grid Control Ver1.1.1";
constexpr std::string_view BannerWithPrinter = CurrentBanner;

// A saved window outside these bounds, in pixels, is not given to the parent.
constexpr std::int64_t LeastWindowSide = 20;
constexpr std::int64_t MostWindowWidth = 1024;
constexpr std::int64_t MostWindowHeight = 800;

constexpr std::size_t LeastTextEntryBytes = CellPosBytes + LeastStringBytes;
constexpr std::size_t SizeEntryBytes = CellPosBytes + sizeof(std::int32_t);
constexpr std::size_t LeastFormatEntryBytes =
    CellPosBytes + 28 + 2 * LeastStringBytes + sizeof(LogFont);

struct SizeSection {
    std::string_view name;
    SizeMap GridStore::*map;
};
constexpr std::array<SizeSection, 2> SizeSections{{
    {"row heights", &GridStore::RowHeightMap},
    {"column widths", &GridStore::ColWidthMap},
}};

struct TextSection {
    std::string_view name;
    TextMap GridStore::*map;
};
constexpr std::array<TextSection, 7> TextSections{{
    {"row headers", &GridStore::RowHeaderMap},
    {"column headers", &GridStore::ColHeaderMap},
    {"row names", &GridStore::RowNameMap},
    {"column names", &GridStore::ColNameMap},
    {"row infos", &GridStore::RowInfoMap},
    {"column infos", &GridStore::ColInfoMap},
    {"cell text map", &GridStore::CellTextMap},
}};

void WriteSizes(ArchiveWriter& archive, const SizeMap& map) {
    archive.WriteCount(map.Count());
    for (const auto& [key, size] : map) {
        archive.WriteCellPos(key);
        archive.WriteI32(size);
    }
}

void ReadSizes(ArchiveReader& archive, SizeMap& map) {
    for (std::uint32_t left = archive.ReadCount(SizeEntryBytes); left != 0; --left) {
        const CellPos key = archive.ReadCellPos();
        map.Set(key, archive.ReadI32());
    }
}

void ReadTexts(ArchiveReader& archive, TextMap& map) {
    for (std::uint32_t left = archive.ReadCount(LeastTextEntryBytes); left != 0; --left) {
        const CellPos key = archive.ReadCellPos();
        map.Set(key, archive.ReadString());
    }
}

class MapSource final : public CellTextSource {
  public:
    explicit MapSource(const TextMap& map) : m_map(map) {}

    std::size_t Count() const override { return m_map.Count(); }
    void WriteEntries(ArchiveWriter& archive) const override {
        for (const auto& [key, text] : m_map) {
            archive.WriteCellPos(key);
            archive.WriteString(text);
        }
    }

  private:
    const TextMap& m_map;
};

void WriteTexts(ArchiveWriter& archive, const CellTextSource& texts) {
    archive.WriteCount(texts.Count());
    texts.WriteEntries(archive);
}

void WriteMaps(ArchiveWriter& archive, const GridStore& store, const CellTextSource& cells) {
    for (const SizeSection& section : SizeSections) {
        WriteSizes(archive, store.*section.map);
    }
    for (const TextSection& section : TextSections) {
        if (section.map == &GridStore::CellTextMap) {
            WriteTexts(archive, cells);
        } else {
            WriteTexts(archive, MapSource(store.*section.map));
        }
    }
}

void ReadMaps(ArchiveReader& archive, GridStore& store) {
    for (const SizeSection& section : SizeSections) {
        archive.EnterSection(section.name);
        ReadSizes(archive, store.*section.map);
    }
    for (const TextSection& section : TextSections) {
        archive.EnterSection(section.name);
        ReadTexts(archive, store.*section.map);
    }
}

void WriteParams(ArchiveWriter& archive, const ParamList& params) {
    archive.WriteCount(params.Count());
    params.ForEachRaw([&](const std::string& entry) { archive.WriteString(entry); });
}

void ReadParams(ArchiveReader& archive, ParamList& params) {
    archive.EnterSection("parameters");
    for (std::uint32_t left = archive.ReadCount(LeastStringBytes); left != 0; --left) {
        params.AppendRaw(std::string(archive.ReadString()));
    }
}

// In the order of the file, which is not that of the members.
void WriteFormat(ArchiveWriter& archive, const CCellFormat& format) {
    archive.WriteU16(format.Align);
    archive.WriteU8(format.Flags);
    archive.WriteU8(format.DataType);
    archive.WriteI32(format.Foreground);
    archive.WriteI32(format.Background);
    for (const std::int32_t extra : format.Extra) {
        archive.WriteI32(extra);
    }
    archive.WriteString(format.ShowFormat);
    archive.WriteString(format.Validity);
    archive.WriteLogFont(format.Font);
}

void ReadFormat(ArchiveReader& archive, CCellFormat& format) {
    format.Align = archive.ReadU16();
    format.Flags = archive.ReadU8();
    format.DataType = archive.ReadU8();
    format.Foreground = archive.ReadI32();
    format.Background = archive.ReadI32();
    for (std::int32_t& extra : format.Extra) {
        extra = archive.ReadI32();
    }
    format.ShowFormat = archive.ReadString();
    format.Validity = archive.ReadString();
    format.Font = archive.ReadLogFont();
}

void WriteFormats(ArchiveWriter& archive, const FormatMap& formats) {
    archive.WriteLongCount(formats.Count());
    for (const auto& [key, format] : formats) {
        archive.WriteCellPos(key);
        WriteFormat(archive, format);
    }
}

void ReadFormats(ArchiveReader& archive, GridStore& store) {
    archive.EnterSection("cell formats");
    std::uint32_t left = archive.ReadLongCount(LeastFormatEntryBytes);
    store.CellFormatMap.RemoveAll();
    for (CCellFormat format; left != 0; --left) {
        const CellPos key = archive.ReadCellPos();
        ReadFormat(archive, format);
        store.StoreCellFormat(key.Row, key.Col, format);
    }
}

void WriteFormObjects(ArchiveWriter& archive, const GridDocument& document) {
    archive.WriteLongCount(document.m_guiObjects.size());
    for (const GuiObjRecord& object : document.m_guiObjects) {
        WriteGuiObj(archive, object);
    }
    archive.WriteU32(document.m_nNextCtrlID);
}

void ReadFormObjects(ArchiveReader& archive, GridDocument& document, GridFileHost& host) {
    archive.EnterSection("form objects");
    std::uint32_t left = archive.ReadLongCount(LeastGuiObjBytes);
    host.DestroyFormWindows();
    document.m_guiObjects.clear();
    for (; left != 0; --left) {
        document.m_guiObjects.push_back(ReadGuiObj(archive));
    }
    archive.EnterSection("next control id");
    document.m_nNextCtrlID = archive.ReadU32();
}

void WriteBlock(ArchiveWriter& archive, const std::string& block) {
    archive.WriteLongCount(block.size());
    archive.WriteBytes(block);
}

// A size of 0 leaves the present block in its place.
void ReadBlock(ArchiveReader& archive, std::string_view name, std::string& block) {
    archive.EnterSection(name);
    const std::uint32_t size = archive.ReadU32();
    if (size != 0) {
        block = archive.ReadBlock(size, "block");
    }
}

bool IsPlausible(std::int64_t width, std::int64_t height) {
    return width > LeastWindowSide && width <= MostWindowWidth && height > LeastWindowSide &&
           height <= MostWindowHeight;
}

std::uint32_t PackWords(std::int64_t low, std::int64_t high) {
    return static_cast<std::uint16_t>(low) |
           static_cast<std::uint32_t>(static_cast<std::uint16_t>(high)) << 16U;
}

void ReadWindowRect(ArchiveReader& archive, GridDocument& document, GridFileHost& host) {
    archive.EnterSection("window rectangle");
    document.SavedWindowRect = archive.ReadRect();
    const StoredRect& rect = document.SavedWindowRect;
    const std::int64_t width = std::int64_t{rect.right} - rect.left;
    const std::int64_t height = std::int64_t{rect.bottom} - rect.top;
    if (host.ParentWindowRect() && IsPlausible(width, height)) {
        host.PostSizeParentWindow(PackWords(rect.left, rect.top), PackWords(width, height));
    }
}

bool IsAtLeast(std::string_view banner, std::string_view bound) {
    return CompareMultiByte(banner, bound) >= 0;
}

void WriteSwitches(ArchiveWriter& archive, const GridSwitches& switches) {
    archive.WriteBool32(switches.CanWriteTable);
    archive.WriteBool32(switches.AutoCommit);
    archive.WriteBool32(switches.RunQueryAfterSerialize);
}

void ReadSwitches(ArchiveReader& archive, std::string_view banner, GridSwitches& switches) {
    archive.EnterSection("switches");
    if (IsAtLeast(banner, BannerWithSwitches)) {
        switches.CanWriteTable = archive.ReadBool32();
        switches.AutoCommit = archive.ReadBool32();
    }
    if (IsAtLeast(banner, BannerWithQuerySwitch)) {
        switches.RunQueryAfterSerialize = archive.ReadBool32();
    }
}

void StartWindows(const GridStore& store, GridFileHost& host) {
    if (!host.HasWindow()) {
        return;
    }
    host.CreateFormWindows();
    if (store.Switches.RunQueryAfterSerialize && !store.Properties.DataSource.empty()) {
        host.RunQuery(0);
    }
}

// Whether the bytes are those at which a grid file could begin, as far as they go.
bool BeginsAsGridFile(std::string_view start) {
    return start.empty() || BannerPrefix.starts_with(start.substr(1, BannerPrefix.size()));
}

// A first byte that announces more text than the file has is what most foreign files begin with;
// only a file that is a grid file as far as it goes counts as cut short.
std::string ReadBanner(ArchiveReader& archive) {
    archive.EnterSection("banner");
    const std::string start(archive.Peek(BannerPrefix.size() + 1));
    try {
        return std::string(archive.ReadString());
    } catch (const ArchiveError&) {
        if (BeginsAsGridFile(start)) {
            throw;
        }
        return {};
    }
}

const std::string& RefusedBannerText() {
    static const std::string text = CodePage936FromUtf16(u"无效的文件格式或错误版本号,打开失败!");
    return text;
}

}  // namespace

void WriteGrid(ArchiveWriter& archive, const GridStore& store, GridDocument& document,
               GridFileHost& host) {
    WriteGrid(archive, store, MapSource(store.CellTextMap), document, host);
}

void WriteGrid(ArchiveWriter& archive, const GridStore& store, const CellTextSource& cells,
               GridDocument& document, GridFileHost& host) {
    document.FileBanner = CurrentBanner;
    archive.WriteString(document.FileBanner);
    SaveProperties(archive, document.Stock, store.Properties);
    WriteMaps(archive, store, cells);
    WriteParams(archive, store.Params);
    WriteFormats(archive, store.CellFormatMap);
    WriteFormObjects(archive, document);
    WriteBlock(archive, document.BkImageBits);
    document.SavedWindowRect = host.ParentWindowRect().value_or(StoredRect{});
    archive.WriteRect(document.SavedWindowRect);
    WriteSwitches(archive, store.Switches);
    WriteBlock(archive, document.PrintDevNames);
    WriteBlock(archive, document.PrintDevMode);
}

bool ReadGrid(ArchiveReader& archive, GridStore& store, GridDocument& document,
              GridFileHost& host) {
    document.FileBanner = ReadBanner(archive);
    if (FindText(document.FileBanner, BannerPrefix) == NotFound) {
        host.ShowMessage(RefusedBannerText(), StopMessageStyle);
        return false;
    }
    LoadProperties(archive, document.Stock, store.Properties);
    ReadMaps(archive, store);
    ReadParams(archive, store.Params);
    ReadFormats(archive, store);
    ReadFormObjects(archive, document, host);
    ReadBlock(archive, "picture", document.BkImageBits);
    ReadWindowRect(archive, document, host);
    ReadSwitches(archive, document.FileBanner, store.Switches);
    // Before the printer blocks on purpose: windows and query start while the stream is open.
    StartWindows(store, host);
    if (IsAtLeast(document.FileBanner, BannerWithPrinter)) {
        ReadBlock(archive, "printer names", document.PrintDevNames);
        ReadBlock(archive, "printer settings", document.PrintDevMode);
    }
    return true;
}

}  // namespace veygrid
