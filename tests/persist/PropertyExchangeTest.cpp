// The 41 properties: their order, names, kinds and defaults, and the routes that carry them.
#include "persist/PropertyExchange.h"

#include <gtest/gtest.h>

#include <map>

#include "Support.h"
#include "persist/PropertyBag.h"

namespace veygrid {
namespace {

// What an exchange hands over, as text: kind, name, value and default.
class Recorder final : public PropertyExchanger {
  public:
    void Version(std::uint32_t current) override { Add("Version", "", current, current); }
    void Bool(std::string_view name, bool& value, bool fallback) override {
        Add("PX_Bool", name, value, fallback);
    }
    void Short(std::string_view name, std::int16_t& value, std::int16_t fallback) override {
        Add("PX_Short", name, value, fallback);
    }
    void Long(std::string_view name, std::int32_t& value, std::int32_t fallback) override {
        Add("PX_Long", name, value, fallback);
    }
    void Color(std::string_view name, std::uint32_t& value, std::uint32_t fallback) override {
        Add("PX_Color", name, value, fallback);
    }
    void String(std::string_view name, std::string& value, const std::string& fallback) override {
        Add("PX_String", name, value, fallback);
    }
    void Font(std::string_view name, LogFont&) override { Add("Font", name, "", ""); }

    std::vector<std::string> Lines;

  private:
    template <class Value>
    void Add(std::string_view kind, std::string_view name, const Value& value,
             const Value& fallback) {
        std::ostringstream line;
        line << kind << " " << name << " " << value << " " << fallback;
        Lines.push_back(line.str());
    }
};

TEST(PropertyExchange, VersionThenStockThenThe41InTheirOrderWithTheirKindsAndDefaults) {
    Recorder recorder;
    StockProperties stock;
    GridProperties properties;
    DoPropExchange(recorder, stock, properties);
    const std::vector<std::string> expected{
        "Version  65536 65536",
        "PX_Long _ExtentX 0 0",
        "PX_Long _ExtentY 0 0",
        "PX_Short BorderStyle 0 0",
        "PX_Bool Enabled 1 1",
        "PX_Color ForeColor 2147483656 2147483656",
        "Font Font  ",
        "PX_Bool ShowRowHeaders 1 1",
        "PX_Bool ShowColHeaders 1 1",
        "PX_Bool ShowDefRowHeader 1 1",
        "PX_Bool ShowDefColHeader 1 1",
        "PX_Bool ShowHGridLines 1 1",
        "PX_Bool ShowVGridLines 1 1",
        "PX_Bool ShowHScrollBar 1 1",
        "PX_Bool ShowVScrollBar 1 1",
        "PX_Bool ShowZeroValues 1 1",
        "PX_Bool AllowResize 1 1",
        "PX_Bool AllowEdit 1 1",
        "PX_Bool AllowEditHeader 1 1",
        "PX_Bool AllowSelections 1 1",
        "PX_Bool AllowPopMenu 1 1",
        "PX_Bool AlwaysOnEdit 0 0",
        "PX_Bool EnterGoDown 1 1",
        "PX_Bool SingleRowSelection 1 1",
        "PX_Bool RowMode 0 0",
        "PX_Bool GuiMode 0 0",
        "PX_Bool AutoMaxRC 1 1",
        "PX_Long MaxRow 50 50",
        "PX_Long MaxCol 20 20",
        "PX_Long FixedRow 1 1",
        "PX_Long FixedRows 0 0",
        "PX_Long FixedCol 1 1",
        "PX_Long FixedCols 0 0",
        "PX_Long DefCellWidth 60 60",
        "PX_Long DefCellHeight 18 18",
        "PX_Long RowHeaderWidth 50 50",
        "PX_Long ColHeaderHeight 20 20",
        "PX_Long LastRow 0 0",
        "PX_Long LastCol 0 0",
        "PX_Short ModifiedLog 0 0",
        "PX_Color GridLinesColor 2147483663 2147483663",
        "PX_String DataSource  ",
        "PX_String BkImage  ",
        "PX_Color BackColor 16777215 16777215",
        "PX_Bool AllowMoveRow 1 1",
        "PX_Bool AllowMoveCol 1 1",
        "PX_Bool AllowMoveCell 1 1",
        "PX_Bool FormObjectNotifyToParent 0 0",
    };
    EXPECT_EQ(recorder.Lines, expected);
    EXPECT_EQ(PropertyTable().size(), 41U);
}

GridProperties Changed() {
    GridProperties properties;
    properties.ShowRowHeaders = false;
    properties.AlwaysOnEdit = true;
    properties.MaxRow = -5;
    properties.LastRow = 2147483647;
    properties.LastCol = 12;
    properties.ModifiedLog = -3;
    properties.GridLinesColor = 0x00FF8000;
    properties.DataSource = Gbk(u8"SELECT 姓名 FROM 表");
    properties.BkImage = "\x81\x5C.bmp";
    properties.BackColor = 0x80000005U;
    properties.FormObjectNotifyToParent = true;
    return properties;
}

StockProperties ChangedStock() {
    StockProperties stock;
    stock.ExtentWidth = 5000;
    stock.ExtentHeight = -1;
    stock.BorderStyle = 1;
    stock.Enabled = false;
    stock.ForeColor = 0x123456;
    stock.Font = SampleFont();
    return stock;
}

std::string Saved(const StockProperties& stock, const GridProperties& properties) {
    MemorySink sink;
    ArchiveWriter archive(sink);
    SaveProperties(archive, stock, properties);
    archive.Close();
    return sink.Bytes;
}

void Load(std::string_view bytes, StockProperties& stock, GridProperties& properties) {
    MemorySource source(bytes);
    ArchiveReader archive(source);
    LoadProperties(archive, stock, properties);
    EXPECT_EQ(archive.Left(), 0U);
}

// From the version up to the 41 properties.
Bytes DefaultStart() {
    return Bytes().U32(0x00010000).I32(0).I32(0).U16(0).U8(1).U32(0x80000008U).U8(0);
}

TEST(PropertyExchange, AStreamOfThisVersionHolds65536AsItsVersionNumber) {
    const std::string bytes = Saved({}, {});
    EXPECT_EQ(bytes.substr(0, 4), std::string(Bytes().U32(65536)));
    EXPECT_EQ(bytes.substr(0, 20), std::string(DefaultStart()));
}

TEST(PropertyExchange, ALoadedVersionIsReplacedByTheCurrentOne) {
    std::string bytes = Saved({}, Changed());
    bytes.replace(0, 4, Bytes().U32(0x00050007).Take());
    StockProperties stock;
    GridProperties properties;
    Load(bytes, stock, properties);
    EXPECT_EQ(properties, Changed());
    EXPECT_EQ(Saved(stock, properties), Saved({}, Changed()));
}

TEST(PropertyExchange, TheStreamHoldsBarePropertiesWithoutNamesOrTags) {
    GridProperties properties;
    properties.DataSource = "ds";
    const std::string expected = DefaultStart()
                                     .Repeat(1, 14)
                                     .U8(0)
                                     .Repeat(1, 2)
                                     .Repeat(0, 2)
                                     .U8(1)
                                     .I32(50)
                                     .I32(20)
                                     .I32(1)
                                     .I32(0)
                                     .I32(1)
                                     .I32(0)
                                     .I32(60)
                                     .I32(18)
                                     .I32(50)
                                     .I32(20)
                                     .I32(0)
                                     .I32(0)
                                     .U16(0)
                                     .U32(0x8000000FU)
                                     .Text("ds")
                                     .Text("")
                                     .U32(0xFFFFFF)
                                     .Repeat(1, 3)
                                     .U8(0);
    EXPECT_EQ(Saved({}, properties), expected);
}

TEST(PropertyExchange, TheStockBlockReadsBackWithAndWithoutAFont) {
    StockProperties withFont = ChangedStock();
    StockProperties without = ChangedStock();
    without.Font = AmbientFont;
    for (const StockProperties& given : {withFont, without}) {
        StockProperties stock;
        GridProperties properties;
        Load(Saved(given, Changed()), stock, properties);
        EXPECT_EQ(stock, given);
        EXPECT_EQ(properties, Changed());
    }
    EXPECT_EQ(Saved(withFont, {}).size(), Saved(without, {}).size() + 60);
}

TEST(PropertyExchange, ALoadWithoutAFontTakesTheContainersFont) {
    StockProperties stock = ChangedStock();
    GridProperties properties;
    Load(Saved({}, {}), stock, properties);
    EXPECT_EQ(stock, StockProperties{});
}

TEST(PropertyExchange, AFontRecordThatNamesNoFontIsTheContainersFontWhateverElseItHolds) {
    StockProperties given = ChangedStock();
    std::string bytes = Saved(given, {});
    LogFont nameless = given.Font;
    nameless.lfWeight = NoFontWeight;
    const std::string_view named(reinterpret_cast<const char*>(&given.Font), sizeof given.Font);
    bytes.replace(bytes.find(named), named.size(), reinterpret_cast<const char*>(&nameless),
                  sizeof nameless);
    StockProperties stock;
    GridProperties properties;
    Load(bytes, stock, properties);
    EXPECT_EQ(stock.Font, AmbientFont);
}

TEST(PropertyExchange, AnyNonZeroByteIsTrueAndIsWrittenAsOne) {
    std::string bytes = Saved({}, {});
    bytes[20] = '\x7F';
    bytes[21] = '\0';
    StockProperties stock;
    GridProperties properties;
    Load(bytes, stock, properties);
    EXPECT_TRUE(properties.ShowRowHeaders);
    EXPECT_FALSE(properties.ShowColHeaders);
    EXPECT_EQ(Saved(stock, properties)[20], '\1');
}

TEST(PropertyExchange, AnErrorNamesTheProperty) {
    const std::string bytes = Saved({}, {}).substr(0, 42);
    StockProperties stock;
    GridProperties properties;
    try {
        Load(bytes, stock, properties);
        FAIL();
    } catch (const ArchiveError& error) {
        EXPECT_STREQ(error.what(), "MaxRow: 4 bytes wanted at byte 40, 2 left");
    }
}

TEST(PropertyExchange, AfterOnResetStateAControlReadsTheDefaultsWhileItsCellTextIsUnchanged) {
    Grid grid;
    grid.Store.CellTextMap.Set({1, 1}, "kept");
    grid.Store.Switches.GuiDesignSnapToX = 8;
    grid.Store.Properties = Changed();
    grid.Document.Stock = ChangedStock();
    ResetProperties(grid.Document.Stock, grid.Store.Properties);
    EXPECT_EQ(grid.Store.Properties, GridProperties{});
    EXPECT_EQ(grid.Store.CellText(1, 1), "kept");
    EXPECT_EQ(grid.Store.Switches.GuiDesignSnapToX, 8);
}

TEST(PropertyExchange, AResetKeepsTheExtentOfAPlacedControl) {
    StockProperties stock = ChangedStock();
    GridProperties properties;
    ResetProperties(stock, properties);
    StockProperties expected;
    expected.ExtentWidth = 5000;
    expected.ExtentHeight = -1;
    EXPECT_EQ(stock, expected);
}

class MapBag final : public PropertyBag {
  public:
    std::optional<BagValue> Read(std::string_view name, PropertyKind) override {
        Asked.emplace_back(name);
        const auto found = Values.find(name);
        return found == Values.end() ? std::nullopt : std::optional(found->second);
    }
    void Write(std::string_view name, PropertyKind kind, const BagValue& value) override {
        Values[std::string(name)] = value;
        Kinds[std::string(name)] = kind;
    }

    std::map<std::string, BagValue, std::less<>> Values;
    std::map<std::string, PropertyKind, std::less<>> Kinds;
    std::vector<std::string> Asked;
};

TEST(PropertyExchange, APropertyBagGivesBackWhatItWasGiven) {
    MapBag bag;
    SaveToBag(bag, ChangedStock(), Changed());
    EXPECT_EQ(bag.Values.size(), 48U);
    EXPECT_EQ(bag.Values["_Version"], BagValue(65536));
    EXPECT_EQ(bag.Values["GridLinesColor"], BagValue(0x00FF8000));
    EXPECT_EQ(bag.Values["BackColor"], BagValue(0x80000005LL));
    EXPECT_EQ(bag.Kinds["ModifiedLog"], PropertyKind::Short);
    EXPECT_EQ(bag.Kinds["AlwaysOnEdit"], PropertyKind::Bool);
    StockProperties stock;
    GridProperties properties;
    LoadFromBag(bag, stock, properties);
    EXPECT_EQ(stock, ChangedStock());
    EXPECT_EQ(properties, Changed());
}

TEST(PropertyExchange, AnEmptyPropertyBagGivesTheDefaults) {
    MapBag bag;
    StockProperties stock;
    GridProperties properties = Changed();
    LoadFromBag(bag, stock, properties);
    EXPECT_EQ(properties, GridProperties{});
}

TEST(PropertyExchange, GuiDesignSnapToXDoesNotExistInAPropertyBagAndAReloadedControlHas5) {
    MapBag bag;
    Grid saved;
    saved.Store.Switches.GuiDesignSnapToX = 9;
    SaveToBag(bag, saved.Document.Stock, saved.Store.Properties);
    EXPECT_FALSE(bag.Values.contains("GuiDesignSnapToX"));
    bag.Values["GuiDesignSnapToX"] = 9;
    Grid loaded;
    LoadFromBag(bag, loaded.Document.Stock, loaded.Store.Properties);
    EXPECT_EQ(loaded.Store.Switches, GridSwitches{});
    EXPECT_EQ(loaded.Store.Switches.GuiDesignSnapToX, 5);
    EXPECT_EQ(std::count(bag.Asked.begin(), bag.Asked.end(), "GuiDesignSnapToX"), 0);
}

TEST(PropertyExchange, NoneOfTheSwitchesOfTheGridFileIsAProperty) {
    for (const PropertyEntry& entry : PropertyTable()) {
        EXPECT_NE(entry.Name, "CanWriteTable");
        EXPECT_NE(entry.Name, "AutoCommit");
        EXPECT_NE(entry.Name, "RunQueryAfterSerialize");
        EXPECT_NE(entry.Name, "GuiDesignSnapToY");
    }
}

TEST(PropertyExchange, APropertyBagLoadCanReportRowsThatHoldNothing) {
    MapBag bag;
    bag.Values["LastRow"] = 30;
    bag.Values["LastCol"] = 4;
    Grid grid;
    LoadFromBag(bag, grid.Document.Stock, grid.Store.Properties);
    EXPECT_EQ(grid.Store.Properties.LastRow, 30);
    EXPECT_EQ(grid.Store.Properties.LastCol, 4);
    EXPECT_TRUE(grid.Store.CellTextMap.IsEmpty());
}

TEST(PropertyExchange, APropertyBagMayHoldTextsForNumbersAndTheOtherWayRound) {
    MapBag bag;
    bag.Values["MaxRow"] = " 77 ";
    bag.Values["ShowRowHeaders"] = "false";
    bag.Values["ShowColHeaders"] = "0";
    bag.Values["AlwaysOnEdit"] = -1;
    bag.Values["BackColor"] = "-2147483643";
    bag.Values["GridLinesColor"] = -2147483643;
    bag.Values["DataSource"] = 12;
    StockProperties stock;
    GridProperties properties;
    LoadFromBag(bag, stock, properties);
    EXPECT_EQ(properties.MaxRow, 77);
    EXPECT_FALSE(properties.ShowRowHeaders);
    EXPECT_FALSE(properties.ShowColHeaders);
    EXPECT_TRUE(properties.AlwaysOnEdit);
    EXPECT_EQ(properties.BackColor, 0x80000005U);
    EXPECT_EQ(properties.GridLinesColor, 0x80000005U);
    EXPECT_EQ(properties.DataSource, "12");
}

TEST(PropertyExchange, WhatCannotBeConvertedFromAPropertyBagGetsItsDefault) {
    MapBag bag;
    bag.Values["MaxRow"] = "many";
    bag.Values["MaxCol"] = 2147483648LL;
    bag.Values["ModifiedLog"] = 32768;
    bag.Values["AllowEdit"] = "";
    bag.Values["BackColor"] = 4294967296LL;
    bag.Values["Font"] = std::string(120, 'G');
    StockProperties stock = ChangedStock();
    GridProperties properties = Changed();
    LoadFromBag(bag, stock, properties);
    EXPECT_EQ(properties, GridProperties{});
    EXPECT_EQ(stock.Font, AmbientFont);
}

}  // namespace
}  // namespace veygrid
