// The grid file as a whole: its bytes, its versions, and what reading does in which order.
#include "persist/GridFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "Support.h"

namespace veygrid {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view RefusedCall = "ShowMessage 16 无效的文件格式或错误版本号,打开失败!";

// Banner and property block of a fresh control.
Bytes EmptyStart() {
    return Bytes()
        .Text("Veynor Data Grid Control Ver3.0")
        .U32(65536)
        .I32(0)
        .I32(0)
        .U16(0)
        .U8(1)
        .U32(0x80000008U)
        .U8(0)
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
        .Text("")
        .Text("")
        .U32(0xFFFFFF)
        .Repeat(1, 3)
        .U8(0);
}

// Sections 13 to 22 of a fresh control.
Bytes EmptyEnd() {
    return Bytes().U32(0).U32(0).U32(1001).U32(0).Repeat(0, 16).U32(0).U32(0).U32(1).U32(0).U32(0);
}

// The stream of a fresh control in which section `index`, counted from 3, has other bytes.
std::string WithSection(int index, const std::string& section) {
    Bytes bytes = EmptyStart();
    for (int i = 3; i <= 12; ++i) {
        i == index ? bytes.Raw(section) : bytes.U16(0);
    }
    return bytes.Raw(EmptyEnd().Take());
}

std::string WithBanner(const std::string& stream, const std::string& banner,
                       std::size_t bytesDropped) {
    return Bytes().Text(banner).Raw(stream.substr(32, stream.size() - 32 - bytesDropped));
}

TEST(GridFile, AnEmptyControlHasBannerPropertiesTenEmptyCountsAndZeroesBut1001And1) {
    Grid grid;
    EXPECT_EQ(grid.Save(), WithSection(0, ""));
}

TEST(GridFile, EachMapHasItsOwnSection) {
    const std::string sizes = Bytes().U16(1).Pos(2, 0).I32(33);
    const std::string texts = Bytes().U16(1).Pos(4, 5).Text("\x81\x7C");
    struct Case {
        int section;
        void (*fill)(GridStore&);
        std::string bytes;
    };
    const std::vector<Case> cases{
        {3,
         [](GridStore& s) {
             s.RowHeightMap.Set({2, 0}, 33);
         },
         sizes},
        {4,
         [](GridStore& s) {
             s.ColWidthMap.Set({2, 0}, 33);
         },
         sizes},
        {5,
         [](GridStore& s) {
             s.RowHeaderMap.Set({4, 5}, "\x81\x7C");
         },
         texts},
        {6,
         [](GridStore& s) {
             s.ColHeaderMap.Set({4, 5}, "\x81\x7C");
         },
         texts},
        {7,
         [](GridStore& s) {
             s.RowNameMap.Set({4, 5}, "\x81\x7C");
         },
         texts},
        {8,
         [](GridStore& s) {
             s.ColNameMap.Set({4, 5}, "\x81\x7C");
         },
         texts},
        {9,
         [](GridStore& s) {
             s.RowInfoMap.Set({4, 5}, "\x81\x7C");
         },
         texts},
        {10,
         [](GridStore& s) {
             s.ColInfoMap.Set({4, 5}, "\x81\x7C");
         },
         texts},
        {11,
         [](GridStore& s) {
             s.CellTextMap.Set({4, 5}, "\x81\x7C");
         },
         texts},
        {12, [](GridStore& s) { s.Params.AppendRaw("a\tb"); }, Bytes().U16(1).Text("a\tb")},
    };
    for (const Case& one : cases) {
        Grid grid;
        one.fill(grid.Store);
        EXPECT_EQ(grid.Save(), WithSection(one.section, one.bytes)) << one.section;
        Grid loaded;
        EXPECT_TRUE(loaded.Load(grid.Save()));
        EXPECT_EQ(loaded.Save(), grid.Save()) << one.section;
    }
}

TEST(GridFile, ACellFormatRecordStandsInFileOrderBehindAPlainCount) {
    Grid grid;
    CCellFormat format;
    format.Align = 0x0204;
    format.Flags = 3;
    format.DataType = 9;
    format.Extra = {1, 2, 3, -4};
    format.ShowFormat = "0.00";
    format.Validity = Gbk(u8"大");
    format.Font = SampleFont();
    format.Foreground = 0x0000FF;
    grid.Store.CellFormatMap.Set({0, 7}, format);
    const std::string record = Bytes()
                                   .U32(1)
                                   .Pos(0, 7)
                                   .U16(0x0204)
                                   .U8(3)
                                   .U8(9)
                                   .I32(0xFF)
                                   .I32(-1)
                                   .I32(1)
                                   .I32(2)
                                   .I32(3)
                                   .I32(-4)
                                   .Text("0.00")
                                   .Text("\xB4\xF3")
                                   .I32(-12)
                                   .Repeat(0, 12)
                                   .I32(700)
                                   .U32(0x86000001U)
                                   .U32(0)
                                   .Raw("\xCB\xCE\xCC\xE5")
                                   .Repeat(0, 28);
    const std::string expected =
        EmptyStart().Repeat(0, 20).Raw(record).Raw(EmptyEnd().Take().substr(4));
    EXPECT_EQ(grid.Save(), expected);
    Grid loaded;
    EXPECT_TRUE(loaded.Load(expected));
    ASSERT_NE(loaded.Store.CellFormatMap.Find({0, 7}), nullptr);
    EXPECT_EQ(*loaded.Store.CellFormatMap.Find({0, 7}), format);
}

TEST(GridFile, TheSectionsBehindTheFormatsHaveTheirBytes) {
    Grid grid;
    RecordingHost host;
    host.Parent = StoredRect{10, 20, 330, 260};
    GuiObjRecord object;
    object.m_nType = 77;
    object.m_nCtrlID = 5;
    grid.Document.m_guiObjects.push_back(object);
    grid.Document.m_nNextCtrlID = 0x01020304;
    grid.Document.BkImageBits = "dib";
    grid.Document.PrintDevNames = "nm";
    grid.Document.PrintDevMode = "md";
    grid.Store.Switches = {true, true, false, 9, 9};
    const std::string end = Bytes()
                                .U32(0)
                                .U32(1)
                                .U16(77)
                                .U32(5)
                                .U32(1)
                                .Repeat(0, 16)
                                .U32(0x01020304)
                                .U32(3)
                                .Raw("dib")
                                .I32(10)
                                .I32(20)
                                .I32(330)
                                .I32(260)
                                .U32(1)
                                .U32(1)
                                .U32(0)
                                .U32(2)
                                .Raw("nm")
                                .U32(2)
                                .Raw("md");
    EXPECT_EQ(grid.Save(host), std::string(EmptyStart().Repeat(0, 20).Raw(end)));
    EXPECT_EQ(grid.Document.SavedWindowRect, (StoredRect{10, 20, 330, 260}));
}

TEST(GridFile, ACellTextSectionPassesTheCountBoundary) {
    for (const int count : {0xFFFE, 0xFFFF, 0x10000}) {
        Grid grid;
        for (int i = 1; i <= count; ++i) {
            grid.Store.CellTextMap.Set({i, 1}, "x");
        }
        const std::string bytes = grid.Save();
        const std::size_t wide = count < 0xFFFF ? 0 : 4;
        EXPECT_EQ(bytes.size(),
                  WithSection(0, "").size() + static_cast<std::size_t>(count) * 10 + wide);
        Grid loaded;
        EXPECT_TRUE(loaded.Load(bytes));
        EXPECT_EQ(loaded.Store.CellTextMap.Count(), static_cast<std::size_t>(count));
    }
}

TEST(GridFile, WithoutAWindowTheSavedRectangleIsEmptyAgain) {
    Grid grid;
    grid.Document.SavedWindowRect = {1, 2, 3, 4};
    EXPECT_EQ(grid.Save(), WithSection(0, ""));
    EXPECT_EQ(grid.Document.SavedWindowRect, StoredRect{});
}

TEST(GridFile, SavingPutsTheCurrentBannerInPlaceOfTheLoadedOne) {
    Grid grid;
    EXPECT_TRUE(grid.Load(WithBanner(WithSection(0, ""), "Veynor Data Grid Control Ver1.0", 20)));
    EXPECT_EQ(grid.Document.FileBanner, "Veynor Data Grid Control Ver1.0");
    EXPECT_EQ(grid.Save(), WithSection(0, ""));
    EXPECT_EQ(grid.Document.FileBanner, "Veynor Data Grid Control Ver3.0");
}

TEST(GridFile, ARichFileGivesBackAllThatItHolds) {
    Grid grid;
    FillRichly(grid);
    const std::string bytes = grid.Save();
    Grid loaded;
    EXPECT_TRUE(loaded.Load(bytes));
    EXPECT_EQ(loaded.Document, grid.Document);
    // Formats raise the last row and column, so those may differ and nothing else.
    EXPECT_EQ(loaded.Store.Properties.DataSource, grid.Store.Properties.DataSource);
    EXPECT_EQ(loaded.Store.Switches, grid.Store.Switches);
    EXPECT_EQ(loaded.Store.CellText(500, 3), std::string(300, 'x'));
    EXPECT_EQ(loaded.Store.CellTextMap.Count(), grid.Store.CellTextMap.Count());
    EXPECT_EQ(loaded.Store.RowHeight(3), 24);
    EXPECT_EQ(loaded.Store.ColWidth(2), 0);
    EXPECT_EQ(loaded.Store.RowName(4), "row");
    EXPECT_EQ(loaded.Store.ColName(5), "T.A");
    EXPECT_EQ(loaded.Store.Params.GetParam("NAME"), "value");
    EXPECT_EQ(loaded.Store.Params.Count(), 2U);
    EXPECT_EQ(loaded.Store.EffectiveFormat(2, 2), grid.Store.EffectiveFormat(2, 2));
    EXPECT_EQ(loaded.Save(), Bytes().Raw(loaded.Save()).Take());
}

std::vector<CellPos> Order(const TextMap& map) {
    std::vector<CellPos> keys;
    for (const auto& [key, text] : map) {
        keys.push_back(key);
    }
    return keys;
}

TEST(GridFile, LoadingReversesTheChainsAndLoadingAgainRestoresThem) {
    Grid original;
    for (std::int32_t i = 1; i <= 700; ++i) {
        original.Store.CellTextMap.Set({i * 37 % 301, i % 9}, std::to_string(i));
    }
    const std::string first = original.Save();
    Grid once;
    EXPECT_TRUE(once.Load(first));
    Grid twice;
    EXPECT_TRUE(twice.Load(once.Save()));
    EXPECT_NE(once.Save(), first);
    EXPECT_EQ(twice.Save(), first);

    // Within a chain the order is reversed; the chains keep their own order.
    const auto bucket = [](CellPos key) { return (static_cast<unsigned>(key.Row) >> 4U) % 17U; };
    std::vector<CellPos> expected = Order(original.Store.CellTextMap);
    for (auto start = expected.begin(); start != expected.end();) {
        const auto end = std::find_if(start, expected.end(),
                                      [&](CellPos key) { return bucket(key) != bucket(*start); });
        std::reverse(start, end);
        start = end;
    }
    EXPECT_EQ(Order(once.Store.CellTextMap), expected);
}

TEST(GridFile, TheModifiedFlagTheActiveCellAndTheLogAreLeftAlone) {
    struct Watcher : StoreWatcher {
        void SetModifiedFlag(bool) override { ++told; }
        void FireModified() override { ++told; }
        void InvalidateControl() override { ++told; }
        void InvalidateCell(CellPos) override { ++told; }
        void UpdateScrollBars() override { ++told; }
        void PostCellSelChange(std::int32_t, std::int32_t) override { ++told; }
        int told = 0;
    } watcher;
    GridStore store(watcher);
    store.ActiveRow = 9;
    store.Log.LogModification(3, 1, 1, ModifiedType::Insert);
    Grid rich;
    FillRichly(rich);
    const std::string bytes = rich.Save();
    MemorySource source(bytes);
    ArchiveReader archive(source);
    GridDocument document;
    GridFileHost host;
    EXPECT_TRUE(ReadGrid(archive, store, document, host));
    EXPECT_EQ(watcher.told, 0);
    EXPECT_EQ(store.ActiveRow, 9);
    EXPECT_EQ(store.Log.ModifiedLogMap.Count(), 1U);
}

TEST(GridFile, DataSourceDoesNotRebuildTheColumnNames) {
    Grid grid;
    grid.Store.Properties.DataSource = "SELECT A FROM T";
    grid.Store.ColNameMap.Set({0, 1}, "other");
    Grid loaded;
    EXPECT_TRUE(loaded.Load(grid.Save()));
    EXPECT_EQ(loaded.Store.ColName(1), "other");
    EXPECT_EQ(loaded.Store.ColNameMap.Count(), 1U);
}

// --- versions ---

// A stream in which each gated section differs from a fresh control.
std::string Versioned(const std::string& banner) {
    Grid grid;
    grid.Store.Switches.CanWriteTable = true;
    grid.Store.Switches.AutoCommit = true;
    grid.Store.Switches.RunQueryAfterSerialize = false;
    grid.Document.PrintDevNames = "names";
    grid.Document.PrintDevMode = "mode";
    return WithBanner(grid.Save(), banner, 0);
}

struct VersionCase {
    const char* name;
    std::string banner;
    bool switches;
    bool querySwitch;
    bool printer;
};

std::ostream& operator<<(std::ostream& out, const VersionCase& version) {
    return out << version.banner;
}

class Version : public testing::TestWithParam<VersionCase> {};

TEST_P(Version, ReadsTheSectionsOfItsBanner) {
    const VersionCase& version = GetParam();
    // What the version does not have is cut off.
    const std::size_t printer = 4 + 5 + 4 + 4;
    const std::size_t cut = version.printer       ? 0
                            : version.querySwitch ? printer
                            : version.switches    ? printer + 4
                                                  : printer + 12;
    std::string bytes = Versioned(version.banner);
    bytes.resize(bytes.size() - cut);
    Grid grid;
    EXPECT_TRUE(grid.Load(bytes));
    EXPECT_EQ(grid.Document.FileBanner, version.banner);
    EXPECT_EQ(grid.Store.Switches.CanWriteTable, version.switches);
    EXPECT_EQ(grid.Store.Switches.AutoCommit, version.switches);
    EXPECT_EQ(grid.Store.Switches.RunQueryAfterSerialize, !version.querySwitch);
    EXPECT_EQ(grid.Document.PrintDevNames, version.printer ? "names" : "");
    EXPECT_EQ(grid.Document.PrintDevMode, version.printer ? "mode" : "");
    bytes.pop_back();
    Grid cutShort;
    EXPECT_THROW(cutShort.Load(bytes), ArchiveError);
}

INSTANTIATE_TEST_SUITE_P(
    Banners, Version,
    testing::Values(
        VersionCase{"Ver30", "Veynor Data Grid Control Ver3.0", true, true, true},
        VersionCase{"Ver31", "Veynor Data Grid Control Ver3.1", true, true, true},
        VersionCase{"Ver30WithMore", "Veynor Data Grid Control Ver3.0a", true, true, true},
        VersionCase{"Ver2", "Veynor Data Grid Control Ver2", true, true, false},
        // As texts, not as numbers.
        VersionCase{"Ver10AsTextIsBelow30", "Veynor Data Grid Control Ver10", true, true, false},
        VersionCase{"Ver3AsTextIsBelow30", "Veynor Data Grid Control Ver3", true, true, false},
        VersionCase{"Ver111", "Veynor Data Grid Control Ver1.1.1", true, true, false},
        VersionCase{"Ver11", "Veynor Data Grid Control Ver1.1", true, false, false},
        VersionCase{"AFileWhoseBannerEndsInVer10LoadsWithoutSections18To22",
                    "Veynor Data Grid Control Ver1.0", false, false, false},
        VersionCase{"AFileWhoseBannerIsJustThePrefixLoadsAsTheOldestForm",
                    "Veynor Data Grid Control Ver", false, false, false},
        // The prefix may stand anywhere; the comparison is of the whole text.
        VersionCase{"AHigherTextBeforeThePrefix", "X Veynor Data Grid Control Ver", true, true,
                    true},
        VersionCase{"ALowerTextBeforeThePrefix", "A Veynor Data Grid Control Ver3.0", false, false,
                    false},
        VersionCase{"ATwoByteCharacterSortsBehindAllSingleBytes",
                    "Veynor Data Grid Control Ver\x81\x30\x81\x40", true, true, true}),
    [](const testing::TestParamInfo<VersionCase>& info) { return std::string(info.param.name); });

TEST(GridFile, AbsentSectionsLeaveTheMembersAsTheyStood) {
    Grid grid;
    grid.Store.Switches = {true, true, false, 5, 5};
    grid.Document.PrintDevNames = "kept";
    EXPECT_TRUE(grid.Load(WithBanner(WithSection(0, ""), "Veynor Data Grid Control Ver1.0", 20)));
    EXPECT_EQ(grid.Store.Switches, (GridSwitches{true, true, false, 5, 5}));
    EXPECT_EQ(grid.Document.PrintDevNames, "kept");
}

TEST(GridFile, ABannerInSixteenBitCharactersIsABanner) {
    Bytes bytes;
    bytes.U8(0xFF).U16(0xFFFE).U8(31);
    for (const char c : CurrentBanner) {
        bytes.U16(static_cast<unsigned char>(c));
    }
    Grid grid;
    EXPECT_TRUE(grid.Load(bytes.Raw(WithSection(0, "").substr(32)).Take()));
    EXPECT_EQ(grid.Document.FileBanner, CurrentBanner);
}

TEST(GridFile, ABannerWithoutThePrefixIsRefusedAndNothingElseChanges) {
    Grid grid;
    FillRichly(grid);
    const std::string before = grid.Save();
    RecordingHost host;
    EXPECT_FALSE(
        grid.Load(WithBanner(WithSection(0, ""), "Veynor Data Grid Control ver3.0", 0), host));
    EXPECT_THAT(host.Calls, ElementsAre(RefusedCall));
    EXPECT_EQ(grid.Document.FileBanner, "Veynor Data Grid Control ver3.0");
    EXPECT_EQ(grid.Save(), before);
}

TEST(GridFile, TheRefusalIsSaidInCodePage936) {
    struct Host : GridFileHost {
        void ShowMessage(std::string_view text, std::int32_t style) override {
            shown = text;
            shownStyle = style;
        }
        std::string shown;
        std::uint32_t shownStyle = 0;
    } host;
    Grid grid;
    grid.Load(Bytes().Text("x").Take(), host);
    EXPECT_EQ(host.shown, Gbk(u8"无效的文件格式或错误版本号,打开失败!"));
    EXPECT_EQ(host.shownStyle, 16U);
    EXPECT_EQ(MessageCaption, "Veynor Grid Control");
}

TEST(GridFile, AForeignFileShorterThanItsFirstByteAnnouncesIsRefusedToo) {
    for (const std::string foreign : {"hello", "PK\x03\x04 and so on", "\xFF\xD8\xFF\xE0JFIF"}) {
        Grid grid;
        RecordingHost host;
        EXPECT_FALSE(grid.Load(foreign, host));
        EXPECT_THAT(host.Calls, ElementsAre(RefusedCall));
    }
}

TEST(GridFile, AGridFileCutShortInItsBannerIsAnError) {
    const std::string whole = WithSection(0, "");
    for (std::size_t length = 0; length < 32; ++length) {
        Grid grid;
        RecordingHost host;
        EXPECT_THROW(grid.Load(whole.substr(0, length), host), ArchiveError) << length;
        EXPECT_THAT(host.Calls, IsEmpty());
    }
}

// --- a second load ---

TEST(GridFile, OpeningTheSameFileTwiceDoublesTheEntriesOfParamListAndNotTheOthers) {
    Grid rich;
    FillRichly(rich);
    const std::string bytes = rich.Save();
    Grid grid;
    EXPECT_TRUE(grid.Load(bytes));
    EXPECT_TRUE(grid.Load(bytes));
    EXPECT_EQ(grid.Store.Params.Count(), 4U);
    EXPECT_EQ(grid.Store.Params.GetParam("name"), "value");
    EXPECT_EQ(grid.Store.CellTextMap.Count(), rich.Store.CellTextMap.Count());
    EXPECT_EQ(grid.Store.CellFormatMap.Count(), rich.Store.CellFormatMap.Count());
    EXPECT_EQ(grid.Store.RowHeightMap.Count(), 1U);
    EXPECT_EQ(grid.Document, rich.Document);
}

TEST(GridFile, OpeningASecondFileOverAFirstLeavesTheUnionOfMapsAndTheSecondsFormats) {
    Grid first;
    first.Store.CellTextMap.Set({1, 1}, "first");
    first.Store.CellTextMap.Set({1, 2}, "kept");
    first.Store.CellFormatMap.Set({1, 1}, CCellFormat{});
    first.Document.m_guiObjects.emplace_back();
    Grid second;
    second.Store.CellTextMap.Set({1, 1}, "second");
    second.Store.CellFormatMap.Set({2, 2}, CCellFormat{});
    EXPECT_TRUE(first.Load(second.Save()));
    EXPECT_EQ(first.Store.CellText(1, 1), "second");
    EXPECT_EQ(first.Store.CellText(1, 2), "kept");
    EXPECT_EQ(first.Store.CellFormatMap.Count(), 1U);
    EXPECT_NE(first.Store.CellFormatMap.Find({2, 2}), nullptr);
    EXPECT_THAT(first.Document.m_guiObjects, IsEmpty());
}

TEST(GridFile, TheFirstOfTwoParametersOfOneNameWinsInASearch) {
    Grid first;
    first.Store.Params.AppendRaw("p\tone");
    Grid second;
    second.Store.Params.AppendRaw("P\ttwo");
    EXPECT_TRUE(first.Load(second.Save()));
    EXPECT_EQ(first.Store.Params.Count(), 2U);
    EXPECT_EQ(first.Store.Params.GetParam("p"), "one");
}

TEST(GridFile, FormatsRaiseLastRowAndLastColAndTextsDoNot) {
    Grid grid;
    grid.Store.CellTextMap.Set({90, 91}, "x");
    grid.Store.CellFormatMap.Set({30, 0}, CCellFormat{});
    grid.Store.CellFormatMap.Set({0, 40}, CCellFormat{});
    Grid loaded;
    EXPECT_TRUE(loaded.Load(grid.Save()));
    EXPECT_EQ(loaded.Store.Properties.LastRow, 30);
    EXPECT_EQ(loaded.Store.Properties.LastCol, 40);
}

TEST(GridFile, ASizeOfZeroLeavesPictureAndPrinterBlocksAsTheyStood) {
    Grid grid;
    grid.Document.BkImageBits = "picture";
    grid.Document.PrintDevNames = "names";
    grid.Document.PrintDevMode = "mode";
    EXPECT_TRUE(grid.Load(Grid().Save()));
    EXPECT_EQ(grid.Document.BkImageBits, "picture");
    EXPECT_EQ(grid.Document.PrintDevNames, "names");
    EXPECT_EQ(grid.Document.PrintDevMode, "mode");
}

// --- windows and the order of events ---

TEST(GridFile, WithAWindowTheFormWindowsComeBackAndTheQueryRunsBeforeThePrinterBlocksAreRead) {
    struct Host : RecordingHost {
        void CreateFormWindows() override {
            RecordingHost::CreateFormWindows();
            objectsAtCreation = document->m_guiObjects.size();
        }
        void DestroyFormWindows() override {
            RecordingHost::DestroyFormWindows();
            objectsAtDestruction = document->m_guiObjects.size();
        }
        void RunQuery(std::int16_t all) override {
            RecordingHost::RunQuery(all);
            namesAtQuery = document->PrintDevNames;
        }
        GridDocument* document = nullptr;
        std::size_t objectsAtDestruction = 0;
        std::size_t objectsAtCreation = 0;
        std::string namesAtQuery;
    } host;
    Grid rich;
    FillRichly(rich);
    RecordingHost saver;
    saver.Parent = StoredRect{-3, 4, 297, 204};
    const std::string bytes = rich.Save(saver);
    Grid grid;
    grid.Document.m_guiObjects.resize(2);
    grid.Document.PrintDevNames = "before";
    host.document = &grid.Document;
    host.Window = true;
    host.Parent = StoredRect{};
    EXPECT_TRUE(grid.Load(bytes, host));
    EXPECT_THAT(host.Calls, ElementsAre("DestroyFormWindows", "PostSizeParentWindow 4fffd c8012c",
                                        "CreateFormWindows", "RunQuery 0"));
    EXPECT_EQ(host.objectsAtDestruction, 2U);
    EXPECT_EQ(host.objectsAtCreation, 9U);
    EXPECT_EQ(host.namesAtQuery, "before");
    EXPECT_EQ(grid.Document.PrintDevNames, "names");
}

TEST(GridFile, WithoutAWindowNeitherFormWindowsNorTheQueryStart) {
    Grid rich;
    FillRichly(rich);
    Grid grid;
    RecordingHost host;
    EXPECT_TRUE(grid.Load(rich.Save(), host));
    EXPECT_THAT(host.Calls, ElementsAre("DestroyFormWindows"));
}

TEST(GridFile, TheQueryNeedsItsSwitchAndADataSource) {
    for (const bool withSwitch : {false, true}) {
        for (const bool withSource : {false, true}) {
            Grid saved;
            saved.Store.Switches.RunQueryAfterSerialize = withSwitch;
            saved.Store.Properties.DataSource = withSource ? "SELECT" : "";
            Grid grid;
            RecordingHost host;
            host.Window = true;
            EXPECT_TRUE(grid.Load(saved.Save(), host));
            const auto queries = std::count(host.Calls.begin(), host.Calls.end(), "RunQuery 0");
            EXPECT_EQ(queries, withSwitch && withSource ? 1 : 0);
        }
    }
}

struct RectCase {
    const char* name;
    StoredRect rect;
    bool posted;
};

std::ostream& operator<<(std::ostream& out, const RectCase& rect) {
    return out << rect.name;
}

class SavedRect : public testing::TestWithParam<RectCase> {};

TEST_P(SavedRect, IsPostedWhenPlausible) {
    RecordingHost saver;
    saver.Parent = GetParam().rect;
    Grid saved;
    const std::string bytes = saved.Save(saver);
    RecordingHost host;
    host.Window = true;
    host.Parent = StoredRect{};
    Grid grid;
    EXPECT_TRUE(grid.Load(bytes, host));
    EXPECT_EQ(grid.Document.SavedWindowRect, GetParam().rect);
    const bool posted = std::any_of(host.Calls.begin(), host.Calls.end(), [](const auto& call) {
        return call.starts_with("PostSizeParentWindow");
    });
    EXPECT_EQ(posted, GetParam().posted);
}

constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();

INSTANTIATE_TEST_SUITE_P(
    Sizes, SavedRect,
    testing::Values(
        RectCase{"Width20", {0, 0, 20, 100}, false}, RectCase{"Width21", {0, 0, 21, 100}, true},
        RectCase{"Width1024", {0, 0, 1024, 100}, true},
        RectCase{"ASavedRectangle1025WidePostsNoMessage", {0, 0, 1025, 100}, false},
        RectCase{"Height20", {0, 0, 100, 20}, false}, RectCase{"Height21", {0, 0, 100, 21}, true},
        RectCase{"Height800", {0, 0, 100, 800}, true},
        RectCase{"Height801", {0, 0, 100, 801}, false}, RectCase{"Empty", {0, 0, 0, 0}, false},
        RectCase{"Reversed", {100, 100, 0, 0}, false},
        RectCase{"FarLeft", {-2000, -2000, -1900, -1900}, true},
        RectCase{"WidthThatWouldWrapToALittle", {Most, 0, Least + 99, 100}, false},
        RectCase{"WidestOfAll", {Least, Least, Most, Most}, false}),
    [](const testing::TestParamInfo<RectCase>& info) { return std::string(info.param.name); });

TEST(GridFile, WithoutAParentNoSizeIsPosted) {
    RecordingHost saver;
    saver.Parent = StoredRect{0, 0, 200, 200};
    Grid saved;
    const std::string bytes = saved.Save(saver);
    RecordingHost host;
    host.Window = true;
    Grid grid;
    EXPECT_TRUE(grid.Load(bytes, host));
    EXPECT_THAT(host.Calls, ElementsAre("DestroyFormWindows", "CreateFormWindows"));
}

TEST(GridFile, WhatWasReadBeforeAFaultStays) {
    Grid saved;
    saved.Store.Properties.MaxRow = 99;
    saved.Store.CellTextMap.Set({1, 1}, "text");
    saved.Document.BkImageBits = "picture";
    std::string bytes = saved.Save();
    bytes.resize(bytes.size() - 4);
    Grid grid;
    EXPECT_THROW(grid.Load(bytes), ArchiveError);
    EXPECT_EQ(grid.Store.Properties.MaxRow, 99);
    EXPECT_EQ(grid.Store.CellText(1, 1), "text");
    EXPECT_EQ(grid.Document.BkImageBits, "picture");
}

TEST(GridFile, BytesBehindTheEndBelongToTheContainer) {
    Grid saved;
    const std::string bytes = saved.Save();
    const std::string longer = bytes + "more";
    MemorySource source(longer);
    ArchiveReader archive(source);
    Grid grid;
    GridFileHost host;
    EXPECT_TRUE(ReadGrid(archive, grid.Store, grid.Document, host));
    EXPECT_EQ(archive.Position(), bytes.size());
}

}  // namespace
}  // namespace veygrid
