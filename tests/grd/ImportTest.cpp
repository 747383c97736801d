// Tests of making a grid file from separated text.
#include <gmock/gmock.h>

#include <random>

#include "apps/grd/CsvReader.h"
#include "apps/grd/ImportedTable.h"
#include "grd/Support.h"

namespace veygrid {
namespace {

using ::testing::HasSubstr;

class ImportTest : public ::testing::Test {
  protected:
    // Imports the text with these arguments behind "import data.csv -o out.grd".
    int Import(const std::string& text, const std::vector<std::string>& arguments = {}) {
        m_tool.Files.Content["data.csv"] = text;
        std::vector<std::string> words{"import", "data.csv", "-o", "out.grd"};
        words.insert(words.end(), arguments.begin(), arguments.end());
        return m_tool.Run(words);
    }
    const GridStore& Loaded() {
        m_session = std::make_unique<Session>(m_tool.Terminal, m_tool.Files);
        return LoadGrid(*m_session, "out.grd").Store;
    }
    std::string Error() const { return m_tool.Terminal.Error; }
    bool WroteFile() const { return m_tool.Files.Content.contains("out.grd"); }

    Tool m_tool;
    std::unique_ptr<Session> m_session;
};

TEST_F(ImportTest, TheHeaderLineNamesAndHeadsTheColumns) {
    ASSERT_EQ(Import("id,名称\n1,甲\n"), ExitOk);
    EXPECT_EQ(m_tool.Terminal.Out, "out.grd: 1 row, 2 columns (id number, 名称 string)\n");
    const GridStore& store = Loaded();
    EXPECT_EQ(store.ColName(2), Gbk("名称"));
    EXPECT_EQ(store.ColHeader(2), Gbk("名称"));
    EXPECT_EQ(store.CellText(1, 1), "1");
    EXPECT_EQ(store.CellText(1, 2), Gbk("甲"));
}

TEST_F(ImportTest, WithoutAHeaderTheFirstLineIsData) {
    ASSERT_EQ(Import("1,a\n2,b\n", {"--no-header"}), ExitOk);
    const GridStore& store = Loaded();
    EXPECT_EQ(store.CellText(1, 1), "1");
    EXPECT_EQ(store.Properties.MaxRow, 2);
    EXPECT_EQ(store.ColNameMap.Count() + store.ColHeaderMap.Count(), 0U);
}

TEST_F(ImportTest, TheSheetHasTheSizeOfTheData) {
    ASSERT_EQ(Import("a,b\n1,2\n3,4,5\n6\n"), ExitOk);
    const GridProperties& properties = Loaded().Properties;
    EXPECT_EQ(properties.MaxRow, 3);
    EXPECT_EQ(properties.MaxCol, 3);
    EXPECT_EQ(properties.LastRow, 3);
    EXPECT_EQ(properties.LastCol, 3);
}

TEST_F(ImportTest, AHeaderLineAloneLeavesOneEmptyRow) {
    ASSERT_EQ(Import("a,b\n"), ExitOk);
    const GridStore& store = Loaded();
    EXPECT_EQ(store.Properties.MaxRow, 1);
    EXPECT_EQ(store.Properties.LastRow, 0);
    EXPECT_EQ(store.CellTextMap.Count(), 0U);
    EXPECT_EQ(store.ColType(1), 4);
}

TEST_F(ImportTest, BlankLinesAreEmptyRowsExceptAtTheEnd) {
    ASSERT_EQ(Import("a\n1\n\n2\n\n\n"), ExitOk);
    const GridStore& store = Loaded();
    EXPECT_EQ(store.CellText(3, 1), "2");
    EXPECT_EQ(store.Properties.MaxRow, 3);
}

TEST_F(ImportTest, EmptyFieldsLeaveNoCell) {
    ASSERT_EQ(Import("a,b,c\n,x,\n"), ExitOk);
    EXPECT_EQ(Loaded().CellTextMap.Count(), 1U);
}

TEST_F(ImportTest, TypesAreGuessedFromAllOfTheData) {
    ASSERT_EQ(Import("n,d,s,e\n1,2024-05-01,x,\n-2.5,2024-02-29,7,\n"), ExitOk);
    const GridStore& store = Loaded();
    EXPECT_EQ(store.ColType(1), 2);
    EXPECT_EQ(store.ColType(2), 3);
    EXPECT_EQ(store.ColType(3), 1);
    EXPECT_EQ(store.ColType(4), 4);
    EXPECT_EQ(store.EffectiveFormat(1, 1).GetHAlign(), 4);
    EXPECT_EQ(store.CellShowFormat(1, 2), "YYYY-MM-DD");
}

TEST_F(ImportTest, TypesThatAreGivenTakeThePlaceOfTheGuess) {
    ASSERT_EQ(Import("a,b,c\n1,2,3\n", {"--types", "string,auto,unknown"}), ExitOk);
    const GridStore& store = Loaded();
    EXPECT_EQ(store.ColType(1), 1);
    EXPECT_EQ(store.ColType(2), 2);
    EXPECT_EQ(store.ColType(3), 4);
}

TEST_F(ImportTest, MoreTypesThanColumnsAreRefused) {
    EXPECT_EQ(Import("a,b\n1,2\n", {"--types", "string,string,string"}), ExitUsage);
    EXPECT_EQ(Error(), "grd: import: --types names 3 types, but data.csv has 2 columns\n");
    EXPECT_FALSE(WroteFile());
}

TEST_F(ImportTest, ColumnsAreAsWideAsTheirTextsWithinReason) {
    ASSERT_EQ(Import("a,long header here,w\n1,2," + std::string(500, 'x') + "\n"), ExitOk);
    const GridStore& store = Loaded();
    EXPECT_EQ(store.ColWidth(1), 40);
    EXPECT_EQ(store.ColWidth(2), 16 * 7 + 8);
    EXPECT_EQ(store.ColWidth(3), 480);
}

TEST_F(ImportTest, AMarkOfUtf8IsTakenOff) {
    ASSERT_EQ(Import("\xEF\xBB\xBF名,b\n1,2\n"), ExitOk);
    EXPECT_EQ(Loaded().ColName(1), Gbk("名"));
}

TEST_F(ImportTest, GbkIsFoundOutAndTakenAsItIs) {
    ASSERT_EQ(Import(Gbk("名,b\n中文,2\n")), ExitOk);
    EXPECT_EQ(Loaded().CellText(1, 1), Gbk("中文"));
}

TEST_F(ImportTest, GbkTrailBytesThatLookLikeSignsStayInTheirCharacters) {
    const std::string text = "\x81\x7C\x95\x7E\x81\x41\x8B\x5C\x81\x7B\x81\x7D";
    ASSERT_EQ(Import("a,b\n" + text + ",\"" + text + "\"\n", {"--encoding", "gbk"}), ExitOk);
    EXPECT_EQ(Loaded().CellText(1, 1), text);
    EXPECT_EQ(Loaded().CellText(1, 2), text);
}

TEST_F(ImportTest, TheEncodingGivenIsTheOneUsed) {
    EXPECT_EQ(Import(Gbk("a\n中\n"), {"--encoding", "utf-8"}), ExitFailed);
    EXPECT_EQ(Error(),
              "grd: data.csv: 2 characters cannot be kept; --replace writes ? for them\n"
              "  line 2, column 1 (a): byte 0xD6 is not UTF-8\n"
              "  line 2, column 1 (a): byte 0xD0 is not UTF-8\n");
    ASSERT_EQ(Import("a\n\xE4\xB8\xAD\xB8\n", {"--encoding", "gbk"}), ExitOk);
    EXPECT_EQ(Loaded().CellText(1, 1), "\xE4\xB8\xAD\xB8");
}

TEST_F(ImportTest, BrokenGbkIsNamed) {
    EXPECT_EQ(Import("a\n\xD6\xD0\xD6\x31\n", {"--encoding", "gbk"}), ExitFailed);
    EXPECT_EQ(Error(),
              "grd: data.csv: line 2, column 1 (a): byte 0xD6 is not GBK; --replace writes ? for "
              "it\n");
}

TEST_F(ImportTest, TextOfNoEncodingIsCalledBrokenUtf8) {
    EXPECT_EQ(Import("a\n中文\xD6\n"), ExitFailed);
    EXPECT_EQ(Error(),
              "grd: data.csv: line 2, column 1 (a): byte 0xD6 is not UTF-8; --replace writes ? "
              "for it\n");
}

TEST_F(ImportTest, TheEncodingIsFoundOutFromTheFirstCharactersBeyondAscii) {
    const std::string ascii(70000, 'x');
    for (std::size_t shift = 0; shift < 3; ++shift) {
        // The sample ends inside a character.
        std::string chinese = std::string(shift, 'y');
        for (int i = 0; i < 40000; ++i) {
            chinese += "中";
        }
        ASSERT_EQ(Import("a\n" + ascii + "\n" + chinese + "\n"), ExitOk) << shift;
        EXPECT_EQ(Loaded().CellText(2, 1), Gbk(chinese));
        ASSERT_EQ(Import("a\n" + ascii + "\n" + Gbk(chinese) + "\n"), ExitOk) << shift;
        EXPECT_EQ(Loaded().CellText(2, 1), Gbk(chinese));
    }
}

TEST_F(ImportTest, Utf16TextIsRefused) {
    EXPECT_EQ(Import(std::string("\xFF\xFE"
                                 "a\0",
                                 4)),
              ExitFailed);
    EXPECT_EQ(Error(), "grd: data.csv: is UTF-16 text; save it as UTF-8\n");
}

TEST_F(ImportTest, ACharacterThatTheCodePageLacksIsNamedWithItsPlace) {
    EXPECT_EQ(Import("id,名\n\"1\n2\",x\n2,a𠳐b\n"), ExitFailed);
    EXPECT_EQ(Error(),
              "grd: data.csv: line 4, column 2 (名): '𠳐' U+20CD0 is not in code page 936; "
              "--replace writes ? for it\n");
    EXPECT_FALSE(WroteFile());
}

TEST_F(ImportTest, TenPlacesAreNamedAndTheRestCounted) {
    std::string text = "a\n";
    for (int i = 0; i < 12; ++i) {
        text += "㘵\n";
    }
    EXPECT_EQ(Import(text), ExitFailed);
    EXPECT_THAT(Error(), HasSubstr("12 characters cannot be kept"));
    EXPECT_THAT(Error(), HasSubstr("line 11, column 1 (a): '㘵' U+3635 is not in code page 936\n  "
                                   "and 2 more\n"));
}

TEST_F(ImportTest, ReplaceWritesQuestionMarksAndSaysSo) {
    ASSERT_EQ(Import("a𠳐\nx㘵y😀\n", {"--replace"}), ExitOk);
    EXPECT_THAT(Error(), HasSubstr("grd: data.csv: ? stands for 3 characters\n  line 1, column 1: "
                                   "'𠳐' U+20CD0"));
    EXPECT_EQ(Loaded().CellText(1, 1), "x?y?");
    EXPECT_EQ(Loaded().ColName(1), "a?");
}

TEST_F(ImportTest, TheReplacementCharacterItselfIsNamedAsACharacter) {
    EXPECT_EQ(Import("a\n\uFFFD\n"), ExitFailed);
    EXPECT_THAT(Error(), HasSubstr("U+FFFD is not in code page 936"));
}

TEST_F(ImportTest, FaultsOfQuotingNameTheLine) {
    EXPECT_EQ(Import("a\n1\n\"2\n"), ExitFailed);
    EXPECT_EQ(Error(), "grd: data.csv: line 3: the quote that opens a field is never closed\n");
    EXPECT_FALSE(WroteFile());
}

TEST_F(ImportTest, AnEmptyFileIsRefused) {
    EXPECT_EQ(Import(""), ExitFailed);
    EXPECT_EQ(Error(), "grd: data.csv: is empty\n");
    EXPECT_EQ(Import("\xEF\xBB\xBF"), ExitFailed);
}

TEST_F(ImportTest, QuietWritesNoSummary) {
    ASSERT_EQ(Import("a\n1\n", {"-q"}), ExitOk);
    EXPECT_EQ(m_tool.Terminal.Out, "");
}

TEST_F(ImportTest, TroubleWithTheOutputIsTold) {
    m_tool.Files.Content["data.csv"] = "a\n1\n";
    EXPECT_EQ(m_tool.Run({"import", "data.csv", "-o", "full/out.grd"}), ExitFailed);
    EXPECT_EQ(Error(), "grd: full/out.grd: writing failed at byte 0: no room\n");
    EXPECT_EQ(m_tool.Run({"import", "data.csv", "-o", "locked/out.grd"}), ExitFailed);
    EXPECT_EQ(Error(), "grd: locked/out.grd: there is no such folder\n");
    EXPECT_EQ(m_tool.Files.Content.size(), 1U);
}

TEST_F(ImportTest, AnyTableComesBackAsItWas) {
    std::mt19937 random(11);
    const std::vector<std::string> pieces{"a",  "7",  ",", "\"", "\r", "\n", " ", "\t", "中",
                                          "。", "\\", "|", "~",  "",   "",   "",  "x",  "\"\""};
    for (int round = 0; round < 200; ++round) {
        const std::size_t columns = 1 + random() % 4;
        std::string csv;
        for (std::size_t row = 0; row < 1 + random() % 9; ++row) {
            for (std::size_t col = 0; col < columns; ++col) {
                // The last field of a row is never empty, so that each has as many as the first.
                std::string field = col + 1 == columns ? "e" : "";
                for (std::size_t piece = random() % 5; piece > 0; --piece) {
                    for (const char c : pieces[random() % pieces.size()]) {
                        field.append(c == '"' ? 2U : 1U, c);
                    }
                }
                const bool quoted = field.find_first_of(",\"\r\n") != std::string::npos;
                csv.append(col == 0 ? "" : ",").append(quoted ? "\"" : "");
                csv.append(field).append(quoted ? "\"" : "");
            }
            csv += "\r\n";
        }
        ASSERT_EQ(Import(csv, {"--no-header"}), ExitOk) << csv << Error();
        EXPECT_EQ(m_tool.Ask({"cells", "out.grd", "--as", "csv"}), csv);
    }
}

TEST_F(ImportTest, NoBytesBringTheToolDown) {
    std::mt19937 random(12);
    const std::string_view bytes("a,\"\r\n\x81\x40\xE4\xB8\xAD\xFF\0\x7C", 13);
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        for (std::size_t i = random() % 40; i > 0; --i) {
            text += bytes[random() % bytes.size()];
        }
        const int code = Import(text, {round % 2 == 0 ? "--replace" : "--no-header"});
        EXPECT_EQ(code == ExitOk || !Error().empty(), true) << text;
        if (code == ExitOk) {
            EXPECT_EQ(m_tool.Run({"check", "out.grd"}), ExitOk) << Error();
        }
    }
}

// The short way into the file must give the bytes of the long one.
TEST(ImportedTable, WritesTheBytesOfAMapThatWasFilledRowByRow) {
    std::string text;
    Grid filled;
    for (std::int32_t row = 1; row <= 700; ++row) {
        for (std::int32_t col = 1; col <= 4; ++col) {
            const bool empty = (row * col) % 7 == 0;
            const std::string cell = std::to_string(row) + "." + std::to_string(col);
            text += (col == 1 ? "" : ",") + (empty ? "" : cell);
            if (!empty) {
                filled.Store.CellTextMap.Set({row, col}, cell);
            }
        }
        text += "\n";
    }
    Progress progress(nullptr, 1);
    const ImportedTable table(text, TextEncoding::Utf8, ',', false, progress);
    EXPECT_EQ(table.Count(), filled.Store.CellTextMap.Count());
    const auto write = [](const auto&... arguments) {
        MemorySink sink;
        ArchiveWriter archive(sink);
        GridFileHost host;
        GridDocument document;
        WriteGrid(archive, arguments..., document, host);
        archive.Close();
        return sink.Bytes;
    };
    Grid empty;
    EXPECT_EQ(write(empty.Store, table), write(filled.Store));
}

}  // namespace
}  // namespace veygrid
