// What the tests of the grid file share: bytes by hand, a host that records its calls, a rich
// sheet.
#pragma once

#include <cstdint>
#include <cstring>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "persist/GridFile.h"
#include "valuetext/CodePage936.h"

namespace veygrid {

// Expected bytes, put together without the code under test.
class Bytes {
  public:
    Bytes& Raw(std::string_view bytes) {
        m_bytes.append(bytes);
        return *this;
    }
    Bytes& U8(unsigned value) { return Little(value, 1); }
    Bytes& U16(unsigned value) { return Little(value, 2); }
    Bytes& U32(std::uint32_t value) { return Little(value, 4); }
    Bytes& I32(std::int32_t value) { return Little(static_cast<std::uint32_t>(value), 4); }
    Bytes& Pos(std::int32_t row, std::int32_t col) { return I32(row).I32(col); }
    // A text shorter than 255 bytes.
    Bytes& Text(std::string_view text) { return U8(static_cast<unsigned>(text.size())).Raw(text); }
    Bytes& Repeat(unsigned value, std::size_t times) {
        m_bytes.append(times, static_cast<char>(value));
        return *this;
    }

    const std::string& Take() const { return m_bytes; }
    operator std::string() const { return m_bytes; }

  private:
    Bytes& Little(std::uint32_t value, int size) {
        for (int i = 0; i < size; ++i) {
            m_bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
        }
        return *this;
    }

    std::string m_bytes;
};

inline std::string Gbk(const char8_t* text) {
    const std::u8string_view view(text);
    return CodePage936FromUtf8({reinterpret_cast<const char*>(view.data()), view.size()});
}

// Every call becomes one line.
class RecordingHost : public GridFileHost {
  public:
    void ShowMessage(std::string_view text, std::int32_t style) override {
        Calls.push_back("ShowMessage " + std::to_string(style) + " " + Utf8FromCodePage936(text));
    }
    bool HasWindow() override { return Window; }
    std::optional<StoredRect> ParentWindowRect() override { return Parent; }
    void PostSizeParentWindow(std::uint32_t leftTop, std::uint32_t widthHeight) override {
        std::ostringstream line;
        line << "PostSizeParentWindow " << std::hex << leftTop << " " << widthHeight;
        Calls.push_back(line.str());
    }
    void DestroyFormWindows() override { Calls.push_back("DestroyFormWindows"); }
    void CreateFormWindows() override { Calls.push_back("CreateFormWindows"); }
    void RunQuery(std::int16_t getAllRecord) override {
        Calls.push_back("RunQuery " + std::to_string(getAllRecord));
    }

    bool Window = false;
    std::optional<StoredRect> Parent;
    std::vector<std::string> Calls;
};

// A store with its document.
struct Grid {
    StoreWatcher Watcher;
    GridStore Store{Watcher};
    GridDocument Document;

    std::string Save(GridFileHost& host) {
        MemorySink sink;
        ArchiveWriter archive(sink);
        WriteGrid(archive, Store, Document, host);
        archive.Close();
        return sink.Bytes;
    }
    std::string Save() {
        GridFileHost host;
        return Save(host);
    }
    bool Load(std::string_view bytes, GridFileHost& host) {
        MemorySource source(bytes);
        ArchiveReader archive(source);
        return ReadGrid(archive, Store, Document, host);
    }
    bool Load(std::string_view bytes) {
        GridFileHost host;
        return Load(bytes, host);
    }
};

inline LogFont SampleFont() {
    LogFont font;
    font.lfHeight = -12;
    font.lfWeight = 700;
    font.lfItalic = 1;
    font.lfCharSet = 134;
    const std::string face = Gbk(u8"宋体");
    std::memcpy(font.lfFaceName.data(), face.data(), face.size());
    return font;
}

// One object of each of the eight types and one of a type without a window.
inline void FillFormObjects(GridDocument& document) {
    for (std::uint16_t type = 1; type <= 9; ++type) {
        GuiObjRecord object;
        object.m_nType = type;
        object.m_nCtrlID = 1000U + type;
        object.m_bCellPos = type % 2;
        object.m_rcPos = {1, type, 3, type + 1};
        object.Window = MakeWindowRecord(type);
        if (auto* label = std::get_if<LabelRecord>(&object.Window)) {
            label->Name = Gbk(u8"标签");
            label->Caption = Gbk(u8"姓名：");
            label->TextFlags = 0x0101;
            label->LogFont = SampleFont();
            label->HDib = type == 3 ? "picture" : "";
        } else if (auto* field = std::get_if<FieldRecord>(&object.Window)) {
            field->Name = "edit";
            field->BindSource = "R1C2";
            field->Data = Gbk(u8"男\x0B女");
            field->Reserved = "kept";
            field->FillKind = type == 5 ? 2 : 0;
        } else if (auto* button = std::get_if<ButtonRecord>(&object.Window)) {
            button->Caption = Gbk(u8"确定");
            button->CommandID = 33000;
            button->LogFont = SampleFont();
            button->HDib = type == 6 ? "icon" : "";
        }
        document.m_guiObjects.push_back(std::move(object));
    }
}

// Something in every section.
inline void FillRichly(Grid& grid) {
    GridStore& store = grid.Store;
    store.Properties.DataSource = "SELECT * FROM T";
    store.Properties.BkImage = Gbk(u8"图.bmp");
    store.Properties.LastRow = 7;
    store.RowHeightMap.Set({3, 0}, 24);
    store.ColWidthMap.Set({0, 2}, 0);
    store.RowHeaderMap.Set({1, 0}, Gbk(u8"合计"));
    store.ColHeaderMap.Set({0, 1}, Gbk(u8"金额"));
    store.RowNameMap.Set({4, 0}, "row");
    store.ColNameMap.Set({0, 5}, "T.A");
    store.RowInfoMap.Set({6, 0}, "info");
    store.ColInfoMap.Set({0, 1},
                         "2\x0B"
                         "1");
    for (std::int32_t row = 1; row <= 40; row += 3) {
        store.CellTextMap.Set({row, 1}, "text " + std::to_string(row));
        store.CellTextMap.Set({row, 2}, "\x81\x7C\x95\x7E\x81\x41");
    }
    store.CellTextMap.Set({500, 3}, std::string(300, 'x'));
    store.Params.AppendRaw("name\tvalue");
    store.Params.AppendRaw("");
    CCellFormat format;
    format.Align = 0x0204;
    format.ShowFormat = "YYYY-MM-DD";
    format.Validity = Gbk(u8"大于0");
    format.Font = SampleFont();
    format.Extra = {1, 2, 3, 4};
    store.CellFormatMap.Set({2, 2}, format);
    store.CellFormatMap.Set({0, 2}, CCellFormat{});
    FillFormObjects(grid.Document);
    grid.Document.m_nNextCtrlID = 1010;
    grid.Document.BkImageBits = std::string(50, '\x28');
    grid.Document.PrintDevNames = "names";
    grid.Document.PrintDevMode = "mode";
    grid.Document.Stock.Font = SampleFont();
    store.Switches.CanWriteTable = true;
}

}  // namespace veygrid
