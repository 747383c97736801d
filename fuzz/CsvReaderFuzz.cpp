// Fuzz target: separated text, read in place and held against the literal parser.
#include <string>
#include <vector>

#include "apps/grd/CsvReader.h"
#include "fuzz/CsvModel.h"
#include "fuzz/FuzzTools.h"

namespace veygrid {
namespace {

// Reads the text as the reader hands it out; fields are checked to lie in the reader's buffer.
model::CsvText Read(std::string text, char delimiter) {
    model::CsvText result;
    CsvReader reader(text, delimiter);
    std::vector<std::string_view> fields;
    std::size_t before = 0;
    try {
        while (reader.NextRecord(fields)) {
            Claim(reader.Position() > before && reader.Position() <= text.size(),
                  "every record takes bytes of the text");
            before = reader.Position();
            result.records.push_back({reader.RecordLine(), {fields.begin(), fields.end()}});
            for (const std::string_view field : fields) {
                Claim(LiesIn(text, field), "a field lies in the buffer");
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
