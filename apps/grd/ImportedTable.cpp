// A table of separated text on its way into a grid file.
#include "apps/grd/ImportedTable.h"

#include <algorithm>
#include <array>
#include <limits>

#include "apps/grd/CellText.h"
#include "apps/grd/CsvReader.h"
#include "apps/grd/Trouble.h"
#include "valuetext/CodePage936.h"
#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view ReplacementInUtf8 = "\xEF\xBF\xBD";
constexpr std::string_view Utf16Mark = "\xFF\xFE";
constexpr std::string_view Utf16SwappedMark = "\xFE\xFF";
// Of the text behind the first character beyond ASCII, so much decides on the encoding.
constexpr std::size_t SampleSize = std::size_t{1} << 16U;
// Bytes between two looks at the progress of reading.
constexpr std::size_t ProgressStep = std::size_t{1} << 20U;

std::string_view FromFirstBeyondAscii(std::string_view text) {
    constexpr std::size_t step = 4096;
    while (!text.empty() && IsAsciiText(text.substr(0, step))) {
        text.remove_prefix(std::min(step, text.size()));
    }
    return text;
}

// Whether the byte at `pos` is the first of a character of code page 936, or all of it.
bool BeginsCharacter(std::string_view text, std::size_t pos) {
    return CharLength(text, pos) == 2 || !IsLeadByte(text[pos]);
}

bool IsGbk(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); i += CharLength(text, i)) {
        if (!BeginsCharacter(text, i)) {
            return false;
        }
    }
    return true;
}

// Whether the text passes the test, or does without some bytes of a character that its end cuts.
template <class Test>
bool PassesButForItsEnd(std::string_view text, std::size_t longestCut, Test test) {
    for (std::size_t cut = 0; cut <= std::min(longestCut, text.size()); ++cut) {
        if (test(text.substr(0, text.size() - cut))) {
            return true;
        }
    }
    return false;
}

TextEncoding EncodingOf(std::string_view text) {
    const std::string_view sample = FromFirstBeyondAscii(text).substr(0, SampleSize);
    const bool cut = sample.size() == SampleSize;
    const bool gbk = !PassesButForItsEnd(sample, cut ? 3 : 0, IsUtf8) &&
                     PassesButForItsEnd(sample, cut ? 1 : 0, IsGbk);
    return gbk ? TextEncoding::Gbk : TextEncoding::Utf8;
}

}  // namespace

TextEncoding TakeEncoding(std::string_view& text, TextEncoding wanted, const std::string& file) {
    if (text.starts_with(Utf16Mark) || text.starts_with(Utf16SwappedMark)) {
        throw FileTrouble(file, "is UTF-16 text; save it as UTF-8");
    }
    if (text.starts_with(Utf8Mark) && wanted != TextEncoding::Gbk) {
        text.remove_prefix(Utf8Mark.size());
        return TextEncoding::Utf8;
    }
    return wanted == TextEncoding::Detect ? EncodingOf(text) : wanted;
}

// Brings the fields of one record into code page 936. The texts are good until the next record.
class ImportedTable::Encoder {
  public:
    Encoder(TextEncoding encoding, const std::vector<std::string>& names, EncodeReport& report)
        : m_encoding(encoding), m_names(names), m_report(report) {}

    const std::vector<std::string_view>& Encode(const std::vector<CsvField>& fields,
                                                std::size_t line) {
        m_line = line;
        m_texts.clear();
        m_own.resize(std::max(m_own.size(), fields.size()));
        for (std::size_t col = 0; col < fields.size(); ++col) {
            const std::string_view text = fields[col].Text(m_own[col]);
            m_texts.push_back(fields[col].Ascii ? text : EncodeText(text, col));
        }
        return m_texts;
    }

  private:
    std::string_view EncodeText(std::string_view text, std::size_t col) {
        m_own[col] = m_encoding == TextEncoding::Gbk ? FromGbk(text, col) : FromUtf8(text, col);
        return m_own[col];
    }

    std::string FromUtf8(std::string_view text, std::size_t col) {
        m_faults.clear();
        std::string encoded = CodePage936FromUtf8(text, &m_faults);
        for (const EncodeFault& fault : m_faults) {
            // The mark of a broken sequence can also stand in the text itself.
            if (fault.character == ReplacementCharacter &&
                !text.substr(fault.offset).starts_with(ReplacementInUtf8)) {
                m_report.AddBroken(Place(col), static_cast<unsigned char>(text[fault.offset]),
                                   "UTF-8");
            } else {
                m_report.Add(Place(col), fault.character);
            }
        }
        return encoded;
    }

    std::string FromGbk(std::string_view text, std::size_t col) {
        std::string checked(text);
        for (std::size_t i = 0; i < text.size(); i += CharLength(text, i)) {
            if (!BeginsCharacter(text, i)) {
                m_report.AddBroken(Place(col), static_cast<unsigned char>(text[i]), "GBK");
                checked[i] = '?';
            }
        }
        return checked;
    }

    // In UTF-8, for the user.
    std::string Place(std::size_t col) const {
        std::string place =
            "line " + std::to_string(m_line) + ", column " + std::to_string(col + 1);
        if (col < m_names.size() && !m_names[col].empty()) {
            place += " (";
            AppendOnOneLine(place, m_names[col]);
            place += ")";
        }
        return place;
    }

    TextEncoding m_encoding;
    const std::vector<std::string>& m_names;
    EncodeReport& m_report;
    std::size_t m_line = 0;
    std::vector<std::string_view> m_texts;
    std::vector<std::string> m_own;
    std::vector<EncodeFault> m_faults;
};

ImportedTable::ImportedTable(std::string_view text, TextEncoding encoding, char delimiter,
                             bool header, Progress& progress) {
    // A cell takes 9 bytes beside its text where the source has a delimiter.
    m_entries.Bytes.reserve(text.size() * 2);
    ArchiveWriter entries(m_entries);
    CsvReader reader(text, delimiter);
    Encoder encoder(encoding, m_names, m_report);
    std::vector<CsvField> fields;
    for (std::size_t nextStep = 0; fields.clear(), reader.NextRecord(fields);) {
        const auto& texts = encoder.Encode(fields, reader.RecordLine());
        if (header && m_names.empty()) {
            m_names.assign(texts.begin(), texts.end());
            m_columns.resize(m_names.size());
        } else {
            AddRow(texts, entries);
        }
        if (reader.Position() >= nextStep) {
            progress.Reach(reader.Position());
            nextStep = reader.Position() + ProgressStep;
        }
    }
    entries.Close();
}

void ImportedTable::AddRow(const std::vector<std::string_view>& texts, ArchiveWriter& entries) {
    if (m_rowBegins.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        throw CsvFault(m_rowBegins.size(), "there are more rows than a sheet can have");
    }
    const auto row = static_cast<std::int32_t>(m_rowBegins.size());
    for (std::size_t col = texts.size(); col-- > 0;) {
        if (!texts[col].empty()) {
            entries.WriteCellPos({row, static_cast<std::int32_t>(col + 1)});
            entries.WriteString(texts[col]);
            SeeText(col, texts[col]);
            m_lastRow = row;
            ++m_count;
        }
    }
    m_rowBegins.push_back(static_cast<std::size_t>(entries.Position()));
}

void ImportedTable::SeeText(std::size_t col, std::string_view text) {
    if (col >= m_columns.size()) {
        m_columns.resize(col + 1);
    }
    m_columns[col].See(text);
}

void ImportedTable::WriteEntries(ArchiveWriter& archive) const {
    std::array<std::vector<std::int32_t>, TextMap::BucketCount> chains;
    for (std::int32_t row = 1; row <= m_lastRow; ++row) {
        chains[TextMap::Bucket(RowKey(row))].push_back(row);
    }
    const std::string_view entries = m_entries.Bytes;
    for (const std::vector<std::int32_t>& chain : chains) {
        // What was put in last stands first.
        std::for_each(chain.rbegin(), chain.rend(), [&](std::int32_t row) {
            const auto index = static_cast<std::size_t>(row);
            const std::size_t begin = m_rowBegins[index - 1];
            archive.WriteBytes(entries.substr(begin, m_rowBegins[index] - begin));
        });
    }
}

}  // namespace veygrid
