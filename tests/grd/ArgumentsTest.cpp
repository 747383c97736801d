// Tests of the command line: what it asks for, and what it is refused with.
#include "apps/grd/Arguments.h"

#include <gtest/gtest.h>

#include "apps/grd/Trouble.h"

namespace veygrid {
namespace {

using Words = std::vector<std::string>;

template <class Options>
Options Parsed(const Words& words) {
    const Command command = ParseArguments(words);
    const Options* const options = std::get_if<Options>(&command);
    EXPECT_NE(options, nullptr);
    return options == nullptr ? Options{} : *options;
}

std::string Refusal(const Words& words) {
    try {
        ParseArguments(words);
    } catch (const UsageTrouble& trouble) {
        return trouble.what();
    }
    return "accepted";
}

TEST(Arguments, CellsHasDefaults) {
    const auto options = Parsed<CellsOptions>({"cells", "f.grd"});
    EXPECT_EQ(options.file, "f.grd");
    EXPECT_EQ(options.form, CellForm::Text);
    EXPECT_FALSE(options.range);
    EXPECT_FALSE(options.shown);
    EXPECT_TRUE(options.header);
    EXPECT_EQ(options.output, "");
}

TEST(Arguments, CellsTakesItsOptionsInAnyPlace) {
    const auto options = Parsed<CellsOptions>({"cells", "--as=html", "--shown", "f.grd", "--range",
                                               "R1C1:R2C3", "--no-header", "-o", "out.html"});
    EXPECT_EQ(options.form, CellForm::Html);
    EXPECT_EQ(options.range, (CellRange{1, 1, 2, 3}));
    EXPECT_TRUE(options.shown);
    EXPECT_FALSE(options.header);
    EXPECT_EQ(options.output, "out.html");
}

TEST(Arguments, ImportTakesTheDelimiterFromTheName) {
    EXPECT_EQ(Parsed<ImportOptions>({"import", "a.csv", "-o", "b"}).delimiter, ',');
    EXPECT_EQ(Parsed<ImportOptions>({"import", "a.TSV", "-o", "b"}).delimiter, '\t');
    EXPECT_EQ(Parsed<ImportOptions>({"import", "a.tab", "-o", "b"}).delimiter, '\t');
}

TEST(Arguments, ImportReadsTypesEncodingAndSwitches) {
    const auto options =
        Parsed<ImportOptions>({"import", "a.csv", "-o", "b", "--types", "string, number,,date,auto",
                               "--encoding", "gbk", "--replace", "--no-header", "-q"});
    ASSERT_EQ(options.types.size(), 5U);
    EXPECT_EQ(options.types[0], ColumnType::String);
    EXPECT_EQ(options.types[1], ColumnType::Number);
    EXPECT_EQ(options.types[2], std::nullopt);
    EXPECT_EQ(options.types[3], ColumnType::Date);
    EXPECT_EQ(options.types[4], std::nullopt);
    EXPECT_EQ(options.encoding, TextEncoding::Gbk);
    EXPECT_TRUE(options.replace);
    EXPECT_FALSE(options.header);
    EXPECT_TRUE(options.quiet);
}

TEST(Arguments, SetTakesTextsWithAnyCharacters) {
    const auto options = Parsed<SetOptions>(
        {"set", "f", "R1C1=-5", "R2C2=a=b", "R3C3=", "R4C4=[x,y]", "r5c5=中 文", "-o", "g"});
    ASSERT_EQ(options.cells.size(), 5U);
    EXPECT_EQ(options.cells[0], std::pair(CellPos{1, 1}, std::string("-5")));
    EXPECT_EQ(options.cells[1], std::pair(CellPos{2, 2}, std::string("a=b")));
    EXPECT_EQ(options.cells[2], std::pair(CellPos{3, 3}, std::string("")));
    EXPECT_EQ(options.cells[3], std::pair(CellPos{4, 4}, std::string("[x,y]")));
    EXPECT_EQ(options.cells[4], std::pair(CellPos{5, 5}, std::string("中 文")));
    EXPECT_EQ(options.output, "g");
}

TEST(Arguments, DiffAndGetAndInfoAndCheck) {
    const auto diff = Parsed<DiffOptions>({"diff", "a", "b", "--brief"});
    EXPECT_EQ(diff.first + diff.second, "ab");
    EXPECT_TRUE(diff.brief);
    const auto get = Parsed<GetOptions>({"get", "f", "R1C1", "R2C2", "--shown"});
    EXPECT_EQ(get.cells.size(), 2U);
    EXPECT_TRUE(get.shown);
    EXPECT_TRUE(Parsed<InfoOptions>({"info", "f", "--json"}).json);
    EXPECT_EQ(Parsed<CheckOptions>({"check", "/tmp/中文.grd"}).file, "/tmp/中文.grd");
}

TEST(Arguments, EveryCommandHasHelpWithExamples) {
    for (const char* command : {"info", "cells", "import", "check", "diff", "set", "get"}) {
        const std::string help = Parsed<AnswerText>({command, "--help"}).text;
        EXPECT_NE(help.find("Usage: grd " + std::string(command)), std::string::npos) << help;
        EXPECT_NE(help.find("Examples:\n  grd "), std::string::npos) << help;
        EXPECT_EQ(Parsed<AnswerText>({"help", command}).text, help);
    }
    EXPECT_NE(Parsed<AnswerText>({"--help"}).text.find("Exit codes: 0"), std::string::npos);
    EXPECT_EQ(Parsed<AnswerText>({"help"}).text, Parsed<AnswerText>({"-h"}).text);
    EXPECT_TRUE(Parsed<AnswerText>({"--version"}).text.starts_with("grd "));
}

TEST(Arguments, RefusalsSayWhatIsWrongAndWhereHelpIs) {
    const std::vector<std::pair<Words, std::string>> cases{
        {{},
         "a command is needed: info, cells, import, check, diff, set, get, render; see 'grd "
         "--help'"},
        {{"frob"},
         "'frob' is no command, which are info, cells, import, check, diff, set, get, render; see "
         "'grd "
         "--help'"},
        {{"info"}, "info: FILE is required; see 'grd info --help'"},
        {{"info", "a", "b"}, "info: 'b' is one argument too many; see 'grd info --help'"},
        {{"info", "a", "--frob"}, "info: there is no option --frob; see 'grd info --help'"},
        {{"cells", "a", "--as", "pdf"},
         "cells: --as: 'pdf' is none of text, csv, tsv, json, html; see 'grd cells --help'"},
        {{"cells", "a", "--range", "A1"},
         "cells: --range: 'A1' is no range; write R1C1:R9C4, R3:R7 or C2; see 'grd cells --help'"},
        {{"import", "a"}, "import: --output is required; see 'grd import --help'"},
        {{"import", "a", "-o", "b", "--types", "text"},
         "import: --types: 'text' is none of string, number, date, unknown, auto; see 'grd import "
         "--help'"},
        {{"import", "a", "-o", "b", "--encoding", "latin1"},
         "import: --encoding: 'latin1' is none of utf-8, gbk; see 'grd import --help'"},
        {{"set", "a", "R1C1"},
         "set: 'R1C1' assigns nothing; write R2C3=text; see 'grd set --help'"},
        {{"set", "a", "R0C1=x"},
         "set: 'R0C1' is no cell; write R2C3 for row 2, column 3; see 'grd set --help'"},
        {{"set", "a", "R1C1=\xFF"}, "set: the text for R1C1 is not UTF-8; see 'grd set --help'"},
        {{"diff", "a", "b", "--brief", "--json"},
         "diff: --brief and --json do not go together; see 'grd diff --help'"},
        {{"get", "a", "C1"},
         "get: 'C1' is no cell; write R2C3 for row 2, column 3; see 'grd get --help'"},
    };
    for (const auto& [words, refusal] : cases) {
        EXPECT_EQ(Refusal(words), refusal);
    }
}

}  // namespace
}  // namespace veygrid
