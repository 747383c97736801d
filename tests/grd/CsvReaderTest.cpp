// Tests of the reader of separated text, one for each of its rules.
#include "apps/grd/CsvReader.h"

#include <gmock/gmock.h>

#include "grd/Support.h"

namespace veygrid {
namespace {

using ::testing::ElementsAre;
using Record = std::vector<std::string>;

std::vector<Record> Read(std::string_view text, char delimiter = ',') {
    std::vector<Record> records;
    std::vector<CsvField> fields;
    std::string scratch;
    for (CsvReader reader(text, delimiter); fields.clear(), reader.NextRecord(fields);) {
        Record& record = records.emplace_back();
        for (const CsvField& field : fields) {
            record.emplace_back(field.Text(scratch));
        }
    }
    return records;
}

// The line and text of the fault that reading ends with.
std::string FaultOf(std::string_view text) {
    try {
        Read(text);
    } catch (const CsvFault& fault) {
        return std::to_string(fault.Line()) + ": " + fault.what();
    }
    return "none";
}

TEST(CsvReader, FieldsStandBetweenDelimiters) {
    EXPECT_THAT(Read("a,b,c\n"), ElementsAre(Record{"a", "b", "c"}));
}

TEST(CsvReader, TheDelimiterIsTheOneGiven) {
    EXPECT_THAT(Read("a,b\tc\n", '\t'), ElementsAre(Record{"a,b", "c"}));
}

TEST(CsvReader, LineFeedCarriageReturnAndBothEndRecords) {
    EXPECT_THAT(Read("a\nb\rc\r\nd\n"),
                ElementsAre(Record{"a"}, Record{"b"}, Record{"c"}, Record{"d"}));
}

TEST(CsvReader, TheLastLineEndMayBeMissing) {
    EXPECT_THAT(Read("a,b\nc,d"), ElementsAre(Record{"a", "b"}, Record{"c", "d"}));
}

TEST(CsvReader, NoTextHasNoRecords) {
    EXPECT_TRUE(Read("").empty());
}

TEST(CsvReader, EmptyFieldsAreKeptAtBothEnds) {
    EXPECT_THAT(Read(",a,,b,\n,\n"), ElementsAre(Record{"", "a", "", "b", ""}, Record{"", ""}));
}

TEST(CsvReader, ADelimiterAtTheEndOfTheTextHasAnEmptyFieldBehindIt) {
    EXPECT_THAT(Read("a,"), ElementsAre(Record{"a", ""}));
}

TEST(CsvReader, ABlankLineIsOneEmptyField) {
    EXPECT_THAT(Read("a\n\r\n\nb\n"),
                ElementsAre(Record{"a"}, Record{""}, Record{""}, Record{"b"}));
}

TEST(CsvReader, BlanksBelongToTheField) {
    EXPECT_THAT(Read(" a , b\n"), ElementsAre(Record{" a ", " b"}));
}

TEST(CsvReader, AQuotedFieldHoldsDelimitersAndLineEnds) {
    EXPECT_THAT(Read("\"a,b\",\"c\r\nd\"\n"), ElementsAre(Record{"a,b", "c\r\nd"}));
}

TEST(CsvReader, TwoQuotesInAQuotedFieldStandForOne) {
    EXPECT_THAT(Read("\"\"\"a\"\"b\"\"\",\"\"\"\"\n"), ElementsAre(Record{"\"a\"b\"", "\""}));
}

TEST(CsvReader, TwoQuotesAloneAreAnEmptyField) {
    EXPECT_THAT(Read("\"\",a\n\"\""), ElementsAre(Record{"", "a"}, Record{""}));
}

TEST(CsvReader, AQuoteInsideAPlainFieldIsText) {
    EXPECT_THAT(Read("5\" disk,a\"\"b\n"), ElementsAre(Record{"5\" disk", "a\"\"b"}));
}

TEST(CsvReader, AQuotedFieldMayEndTheText) {
    EXPECT_THAT(Read("a,\"b\""), ElementsAre(Record{"a", "b"}));
}

TEST(CsvReader, AnUnterminatedQuoteNamesTheLineOnWhichItOpens) {
    EXPECT_EQ(FaultOf("a,b\nc,\"d\"\"\ne,f\n"), "2: the quote that opens a field is never closed");
}

TEST(CsvReader, AQuoteAsTheLastByteIsUnterminated) {
    EXPECT_EQ(FaultOf("a\n\""), "2: the quote that opens a field is never closed");
}

TEST(CsvReader, TextBehindAClosingQuoteIsAFault) {
    EXPECT_EQ(FaultOf("\"x\ny\"z\n"), "2: text stands behind the closing quote of a field");
}

TEST(CsvReader, LinesAreCountedInsideQuotesToo) {
    const std::string text = "a,\"1\n2\r\n3\r4\"\nb\n";
    CsvReader reader(text, ',');
    std::vector<CsvField> fields;
    ASSERT_TRUE(reader.NextRecord(fields));
    EXPECT_EQ(reader.RecordLine(), 1U);
    ASSERT_TRUE(reader.NextRecord(fields));
    EXPECT_EQ(reader.RecordLine(), 5U);
    EXPECT_FALSE(reader.NextRecord(fields));
    EXPECT_EQ(reader.Position(), text.size());
}

TEST(CsvReader, Utf8PassesUnaltered) {
    EXPECT_THAT(Read("多福巷,\"银\"\"闸\"\n"), ElementsAre(Record{"多福巷", "银\"闸"}));
}

TEST(CsvReader, TrailBytesOfGbkAreNeverDelimiters) {
    // Trail bytes that are "|", "~", "A", "\", "{" and "}".
    const std::string text = "\x81\x7C,\x95\x7E,\x81\x41\n\x8B\x5C,\"\x81\x7B\",\x81\x7D\n";
    EXPECT_THAT(Read(text), ElementsAre(Record{"\x81\x7C", "\x95\x7E", "\x81\x41"},
                                        Record{"\x8B\x5C", "\x81\x7B", "\x81\x7D"}));
}

TEST(CsvReader, FieldsKnowWhetherTheyAreAscii) {
    std::vector<CsvField> fields;
    CsvReader reader("a,中,\"b\",\"文\"", ',');
    ASSERT_TRUE(reader.NextRecord(fields));
    ASSERT_EQ(fields.size(), 4U);
    EXPECT_TRUE(fields[0].Ascii);
    EXPECT_FALSE(fields[1].Ascii);
    EXPECT_TRUE(fields[2].Ascii);
    EXPECT_FALSE(fields[3].Ascii);
}

TEST(CsvReader, ZeroBytesAreText) {
    const std::string_view text("a\0b,c\n", 6);
    EXPECT_THAT(Read(text), ElementsAre(Record{std::string("a\0b", 3), "c"}));
}

TEST(CsvReader, LongFieldsOfEveryLengthAreRead) {
    for (std::size_t length = 0; length < 70; ++length) {
        const std::string field(length, 'x');
        const std::string text = field + "," + field + "\r\n\"" + field + "\"," + field;
        EXPECT_THAT(Read(text), ElementsAre(Record{field, field}, Record{field, field})) << length;
    }
}

}  // namespace
}  // namespace veygrid
