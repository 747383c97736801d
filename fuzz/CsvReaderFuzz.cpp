// Fuzz target: separated text, read from its buffer and held against the literal parser.
#include <algorithm>
#include <string>
#include <vector>

#include "apps/grd/CsvReader.h"
#include "fuzz/CsvModel.h"
#include "fuzz/FuzzTools.h"

namespace veygrid {
namespace {

bool HoldsOnlyAscii(std::string_view text) {
    return std::none_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; });
}

std::string TextOfField(std::string_view buffer, const CsvField& field) {
    std::string scratch;
    const std::string_view text = field.Text(scratch);
    Claim(LiesIn(buffer, field.Raw), "a field lies in the buffer");
    Claim(LiesIn(buffer, text) || LiesIn(scratch, text), "a field's text is at hand");
    Claim(field.DoubledQuotes == (text.size() != field.Raw.size()), "doubled quotes are known");
    Claim(field.Ascii == HoldsOnlyAscii(field.Raw), "a field knows whether it is ASCII");
    return std::string(text);
}

// Reads the text as the reader hands it out.
model::CsvText Read(const std::string& text, char delimiter) {
    model::CsvText result;
    CsvReader reader(text, delimiter);
    std::vector<CsvField> fields;
    std::size_t before = 0;
    try {
        while (reader.NextRecord(fields)) {
            Claim(reader.Position() > before && reader.Position() <= text.size(),
                  "every record takes bytes of the text");
            before = reader.Position();
            result.records.push_back({reader.RecordLine(), {}});
            for (const CsvField& field : fields) {
                result.records.back().fields.push_back(TextOfField(text, field));
            }
            fields.clear();
        }
        Claim(before == text.size(), "the whole text is read");
    } catch (const CsvFault& fault) {
        result.faultLine = fault.Line();
    }
    return result;
}

bool SameRecords(const model::CsvText& a, const model::CsvText& b) {
    bool same = a.records.size() == b.records.size();
    for (std::size_t i = 0; same && i < a.records.size(); ++i) {
        same = a.records[i].fields == b.records[i].fields;
    }
    return same;
}

bool SameLines(const model::CsvText& a, const model::CsvText& b) {
    for (std::size_t i = 0; i < a.records.size(); ++i) {
        if (a.records[i].line != b.records[i].line) {
            return false;
        }
    }
    return a.faultLine == b.faultLine;
}

std::string Written(const model::CsvText& text, char delimiter, std::string_view lineEnd) {
    std::string written;
    for (const model::CsvRecord& record : text.records) {
        for (std::size_t i = 0; i < record.fields.size(); ++i) {
            written.append(i == 0 ? 0U : 1U, delimiter) += '"';
            for (const char c : record.fields[i]) {
                written.append(c == '"' ? 2U : 1U, c);
            }
            written += '"';
        }
        written += lineEnd;
    }
    return written;
}

}  // namespace
}  // namespace veygrid

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace veygrid;
    std::string_view rest = TextOf(data, size);
    const std::string_view first = TakeLine(rest);
    const char delimiter = first == "tab" ? '\t' : first == "semicolon" ? ';' : ',';
    const std::string text(rest);
    const model::CsvText read = Read(text, delimiter);
    const model::CsvText expected = model::CsvParser(text, delimiter).Parse();
    Claim(SameRecords(read, expected), "the records are the literal ones");
    Claim(SameLines(read, expected), "the lines are counted as by the literal parser");
    for (const std::string_view lineEnd : {"\n", "\r\n", "\r"}) {
        const model::CsvText again = Read(Written(read, delimiter, lineEnd), delimiter);
        Claim(!again.faultLine && SameRecords(again, read), "what was read survives writing");
    }
    return 0;
}
