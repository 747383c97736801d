// Tests of info, check, diff, set and get.
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "grd/Support.h"

namespace veygrid {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class CommandsTest : public ::testing::Test {
  protected:
    CommandsTest() {
        FillRichly(m_first);
        FillRichly(m_second);
        m_tool.Put("a.grd", m_first);
    }
    std::string Diff(const std::vector<std::string>& arguments = {}) {
        m_tool.Put("a.grd", m_first);
        m_tool.Put("b.grd", m_second);
        std::vector<std::string> words{"diff", "a.grd", "b.grd"};
        words.insert(words.end(), arguments.begin(), arguments.end());
        m_code = m_tool.Run(words);
        return m_tool.Terminal.Out + m_tool.Terminal.Error;
    }
    std::string& Bytes(const std::string& path) { return m_tool.Files.Content[path]; }

    Tool m_tool;
    Grid m_first;
    Grid m_second;
    int m_code = -1;
};

TEST_F(CommandsTest, InfoTellsSizesCountsAndLists) {
    const std::string text = m_tool.Ask({"info", "a.grd"});
    EXPECT_THAT(text, StartsWith("a.grd\n  size "));
    for (const char* line : {"  banner                    Veynor Data Grid Control Ver3.0\n",
                             "  MaxRow x MaxCol           9 x 20\n",
                             "  LastRow x LastCol         3 x 2\n",
                             "  cells                     3\n",
                             "  cell formats              2\n",
                             "  row heights               1\n",
                             "  column widths             1\n",
                             "  row headers               1\n",
                             "  column headers            1\n",
                             "  row names                 1\n",
                             "  column names              1\n",
                             "  row infos                 0\n",
                             "  column infos              1\n",
                             "  parameters                1\n",
                             "  form objects              1\n",
                             "  picture                   7 bytes\n",
                             "  printer names             5 bytes\n",
                             "  printer settings          none\n",
                             "  单位                      \"42\"\n",
                             "  1001 edit box             \"编辑\" at 1,2 to 1,2 in cells\n",
                             "* MaxRow                    9  (default 50)\n",
                             "  MaxCol                    20\n",
                             "* DataSource                \"SELECT * FROM 表\"  (default \"\")\n",
                             "  GridLinesColor            0x8000000F\n",
                             "  RunQueryAfterSerialize    true\n"}) {
        EXPECT_THAT(text, HasSubstr(line));
    }
}

TEST_F(CommandsTest, InfoAsJsonIsOneObject) {
    const auto info = nlohmann::json::parse(m_tool.Ask({"info", "a.grd", "--json"}));
    EXPECT_EQ(info["size"], Bytes("a.grd").size());
    EXPECT_EQ(info["sheet"]["MaxRow"], 9);
    EXPECT_EQ(info["counts"]["cells"], 3);
    EXPECT_EQ(info["parameters"][0]["name"], "单位");
    EXPECT_EQ(info["formObjects"][0]["Name"], "编辑");
    EXPECT_EQ(info["formObjects"][0]["type"], "edit box");
    EXPECT_EQ(info["properties"].size(), 41U + 6U + 3U);
    EXPECT_EQ(info["properties"]["MaxRow"]["changed"], true);
    EXPECT_EQ(info["properties"]["MaxRow"]["default"], 50);
    EXPECT_EQ(info["properties"]["MaxCol"]["changed"], false);
    EXPECT_EQ(info["columns"][1]["key"], true);
    EXPECT_EQ(info["columns"][1]["width"], 90);
}

TEST_F(CommandsTest, InfoEndsLongListsForPeopleOnly) {
    for (int i = 0; i < 150; ++i) {
        m_first.Store.Params.SetParam(std::to_string(i) + "p", "v");
    }
    m_tool.Put("a.grd", m_first);
    const std::string text = m_tool.Ask({"info", "a.grd"});
    EXPECT_THAT(text, AllOf(HasSubstr("  and 51 more\n"), Not(HasSubstr("120p"))));
    EXPECT_THAT(m_tool.Ask({"info", "a.grd", "--json"}), HasSubstr("120p"));
}

TEST_F(CommandsTest, CheckTellsThatAFileIsInOrder) {
    const std::string size = std::to_string(Bytes("a.grd").size());
    EXPECT_EQ(m_tool.Ask({"check", "a.grd"}),
              "a.grd: ok, " + size + " bytes, 3 cells, 2 formats, 1 parameters, 1 form objects\n");
}

TEST_F(CommandsTest, CheckNamesEveryCutWithAPosition) {
    const std::string whole = Bytes("a.grd");
    for (std::size_t size = 1; size < whole.size(); size += 7) {
        Bytes("a.grd") = whole.substr(0, size);
        EXPECT_EQ(m_tool.Run({"check", "a.grd"}), ExitFailed) << size;
        EXPECT_THAT(m_tool.Terminal.Error, AllOf(StartsWith("grd: a.grd: "), HasSubstr("at byte ")))
            << size;
        EXPECT_EQ(std::count(m_tool.Terminal.Error.begin(), m_tool.Terminal.Error.end(), '\n'), 1);
    }
}

TEST_F(CommandsTest, CheckReportsBytesBehindTheLastPart) {
    const std::string size = std::to_string(Bytes("a.grd").size());
    Bytes("a.grd") += "xyz";
    EXPECT_EQ(m_tool.Run({"check", "a.grd"}), ExitFailed);
    EXPECT_EQ(m_tool.Terminal.Error,
              "grd: a.grd: 3 bytes stand behind the last part, from byte " + size + " on\n");
}

TEST_F(CommandsTest, OtherFilesAreNoGridFiles) {
    Bytes("x.csv") = "id,name\n1,a\n";
    EXPECT_EQ(m_tool.Ask({"check", "x.csv"}), "grd: x.csv: is not a grid file\n");
    Bytes("empty.grd") = "";
    EXPECT_EQ(m_tool.Ask({"check", "empty.grd"}), "grd: empty.grd: is empty, and no grid file\n");
    EXPECT_EQ(m_tool.Ask({"info", "none.grd"}), "grd: none.grd: no such file\n");
}

TEST_F(CommandsTest, MessagesStayOnOneLineWhateverTheName) {
    EXPECT_EQ(m_tool.Ask({"info", "a\nb\x7F"}), "grd: a?b?: no such file\n");
}

TEST_F(CommandsTest, DiffOfTheSameContentIsSilent) {
    EXPECT_EQ(Diff(), "");
    EXPECT_EQ(m_code, ExitOk);
    EXPECT_EQ(Diff({"--json"}), "[]\n");
    EXPECT_EQ(Diff({"--brief"}), "");
}

TEST_F(CommandsTest, DiffDoesNotMindTheOrderOfEntries) {
    m_second.Store.CellTextMap.Remove({1, 1});
    m_second.Store.CellTextMap.Set({1, 1}, Gbk("名称"));
    Diff();
    EXPECT_NE(Bytes("a.grd"), Bytes("b.grd"));
    EXPECT_EQ(m_code, ExitOk);
}

TEST_F(CommandsTest, DiffTellsEachDifferenceOnALine) {
    GridStore& store = m_second.Store;
    store.Properties.MaxRow = 10;
    store.Properties.BackColor = 0xFF;
    store.SetCellText(1, 1, "new");
    store.SetCellText(3, 1, "more");
    store.CellTextMap.Remove({2, 2});
    store.SetRowHeight(2, 31);
    store.SetColName(1, Gbk("甲"));
    store.Params.SetParam(Gbk("单位"), "43");
    store.Params.SetParam("new", "");
    CCellFormat format = store.EffectiveFormat(1, 1);
    format.SetHAlign(1);
    format.Foreground = NoColor;
    store.StoreCellFormat(1, 1, format);
    store.StoreCellFormat(5, 0, CCellFormat());
    store.CellFormatMap.Remove({3, 2});
    m_second.Document.BkImageBits = "erutcip";
    m_second.Document.PrintDevNames.clear();
    EXPECT_EQ(Diff(), R"(property MaxRow: 9 -> 10
property LastRow: 3 -> 5
property BackColor: 0x00FFFFFF -> 0x000000FF
row height R2: 30 -> 31
column name C1: nothing -> "甲"
cell R1C1: "名称" -> "new"
cell R2C2: "1234.5" -> nothing
cell R3C1: nothing -> "more"
parameter 单位: "42" -> "43"
parameter new: nothing -> ""
format R1C1 HAlign: 2 -> 1
format R1C1 Foreground: 0x000000FF -> 0xFFFFFFFF
format R3C2: ShowFormat "YYYY-MM-DD" -> nothing
format R5: nothing -> all defaults
document picture: 7 bytes -> 7 bytes of other content
document printer names: 5 bytes -> none
)");
    EXPECT_EQ(m_code, ExitDiffers);
}

TEST_F(CommandsTest, DiffComparesFormObjectsByTheirIds) {
    GuiObjRecord& edit = m_second.Document.m_guiObjects.front();
    std::get<FieldRecord>(edit.Window).Label = Gbk("标签");
    edit.m_rcPos.right = 4;
    GuiObjRecord button;
    button.m_nType = 6;
    button.m_nCtrlID = 1005;
    button.Window = MakeWindowRecord(6);
    std::get<ButtonRecord>(button.Window).Caption = Gbk("确定");
    m_second.Document.m_guiObjects.push_front(button);
    EXPECT_EQ(Diff(),
              "form object 1001 position: 1,2 to 1,2 -> 1,2 to 4,2\n"
              "form object 1001 Label: \"\" -> \"标签\"\n"
              "form object 1005: nothing -> type push button, id 1005, Caption \"确定\"\n");
    m_first.Document.m_guiObjects = m_second.Document.m_guiObjects;
    m_first.Document.m_guiObjects.reverse();
    EXPECT_EQ(Diff(), "form object order: 1001 1005 -> 1005 1001\n");
}

TEST_F(CommandsTest, DiffOfAnObjectThatBecameAnotherKind) {
    GuiObjRecord& object = m_second.Document.m_guiObjects.front();
    object.m_nType = 7;
    object.Window = MakeWindowRecord(7);
    EXPECT_THAT(Diff(), AllOf(StartsWith("form object 1001: type edit box, id 1001"),
                              HasSubstr("-> type check box, id 1001")));
}

TEST_F(CommandsTest, DiffTellsParametersOfOneNameApart) {
    for (Grid* grid : {&m_first, &m_second}) {
        grid->Store.Params.AppendRaw("p\t1");
        grid->Store.Params.AppendRaw("q\t1");
        grid->Store.Params.AppendRaw(grid == &m_first ? "P\t2" : "P\t3");
    }
    EXPECT_EQ(Diff(), "parameter P: \"2\" -> \"3\"\n");
    m_first.Store.Params.RemoveParam("");
    m_second.Store.Params.RemoveParam("");
    m_first.Store.Params.SetParam("x", "1");
    m_first.Store.Params.SetParam("y", "2");
    m_second.Store.Params.SetParam("y", "2");
    m_second.Store.Params.SetParam("x", "1");
    EXPECT_EQ(Diff(), "parameter order: x y -> y x\n");
}

TEST_F(CommandsTest, DiffBriefTellsOnlyThatFilesDiffer) {
    m_second.Store.SetCellText(1, 1, "x");
    EXPECT_EQ(Diff({"--brief"}), "a.grd and b.grd differ\n");
    EXPECT_EQ(m_code, ExitDiffers);
}

TEST_F(CommandsTest, DiffAsJsonHoldsBothSides) {
    m_second.Store.SetCellText(1, 1, "x\"y");
    m_second.Store.CellTextMap.Remove({2, 2});
    m_second.Store.Properties.AllowEdit = false;
    const auto list = nlohmann::json::parse(Diff({"--json"}));
    ASSERT_EQ(list.size(), 3U);
    EXPECT_EQ(
        list[0],
        (nlohmann::json{
            {"part", "property"}, {"field", "AllowEdit"}, {"first", true}, {"second", false}}));
    EXPECT_EQ(list[1],
              (nlohmann::json{
                  {"part", "cell"}, {"where", "R1C1"}, {"first", "名称"}, {"second", "x\"y"}}));
    EXPECT_EQ(list[2]["second"], nullptr);
}

TEST_F(CommandsTest, DiffTroubleIsCodeTwo) {
    EXPECT_EQ(m_tool.Run({"diff", "a.grd", "none.grd"}), ExitDiffTrouble);
    Bytes("x.csv") = "abc";
    EXPECT_EQ(m_tool.Run({"diff", "x.csv", "a.grd"}), ExitDiffTrouble);
    EXPECT_EQ(m_tool.Run({"diff", "a.grd"}), ExitUsage);
}

TEST_F(CommandsTest, SetWritesCellsAndKeepsAllTheRest) {
    m_first.Document.SavedWindowRect = {1, 2, 3, 4};
    m_second.Document.SavedWindowRect = {1, 2, 3, 4};
    ASSERT_EQ(Diff(), "");
    ASSERT_EQ(m_tool.Run({"set", "b.grd", "R1C1=新", "R7C8=x=y", "R2C2="}), ExitOk);
    EXPECT_EQ(m_tool.Ask({"diff", "a.grd", "b.grd"}),
              "property LastRow: 3 -> 7\nproperty LastCol: 2 -> 8\ncell R1C1: \"名称\" -> \"新\"\n"
              "cell R2C2: \"1234.5\" -> \"\"\ncell R7C8: nothing -> \"x=y\"\n");
}

TEST_F(CommandsTest, SetWritesAnotherFileWhenAsked) {
    const std::string before = Bytes("a.grd");
    ASSERT_EQ(m_tool.Run({"set", "a.grd", "R1C1=x", "-o", "c.grd"}), ExitOk);
    EXPECT_EQ(Bytes("a.grd"), before);
    EXPECT_EQ(m_tool.Ask({"get", "c.grd", "R1C1"}), "x\n");
}

TEST_F(CommandsTest, SetNamesACharacterThatTheCodePageLacks) {
    const std::string before = Bytes("a.grd");
    EXPECT_EQ(m_tool.Run({"set", "a.grd", "R1C1=ok", "R2C3=a😀"}), ExitFailed);
    EXPECT_EQ(m_tool.Terminal.Error,
              "grd: a.grd: R2C3: '😀' U+1F600 is not in code page 936; --replace writes ? for "
              "it\n");
    EXPECT_EQ(Bytes("a.grd"), before);
    EXPECT_EQ(m_tool.Run({"set", "a.grd", "R2C3=a😀", "--replace"}), ExitOk);
    EXPECT_THAT(m_tool.Terminal.Error, StartsWith("grd: a.grd: ? stands for 1 character\n"));
    EXPECT_EQ(m_tool.Ask({"get", "a.grd", "R2C3"}), "a?\n");
}

TEST_F(CommandsTest, SetDoesNotDropBytesBehindTheLastPart) {
    Bytes("a.grd") += "xyz";
    const std::string before = Bytes("a.grd");
    EXPECT_EQ(m_tool.Run({"set", "a.grd", "R1C1=x"}), ExitFailed);
    EXPECT_EQ(Bytes("a.grd"), before);
}

TEST_F(CommandsTest, SetLeavesTheFileWhenWritingFails) {
    EXPECT_EQ(m_tool.Run({"set", "a.grd", "R1C1=x", "-o", "full/b.grd"}), ExitFailed);
    EXPECT_EQ(m_tool.Terminal.Error, "grd: full/b.grd: writing failed at byte 0: no room\n");
}

TEST_F(CommandsTest, GetWritesEachTextOnALine) {
    EXPECT_EQ(m_tool.Ask({"get", "a.grd", "R1C1", "R9C9", "R3C2"}), "名称\n\n2003-8-5\n");
    EXPECT_EQ(m_tool.Ask({"get", "a.grd", "R3C2", "--shown"}), "2003-08-05\n");
}

TEST_F(CommandsTest, WrongArgumentsAreOneLineAndCodeTwo) {
    EXPECT_EQ(m_tool.Run({"cells", "a.grd", "--as", "pdf"}), ExitUsage);
    EXPECT_EQ(m_tool.Terminal.Error,
              "grd: cells: --as: 'pdf' is none of text, csv, tsv, json, html; see 'grd cells "
              "--help'\n");
    EXPECT_EQ(m_tool.Terminal.Out, "");
}

}  // namespace
}  // namespace veygrid
