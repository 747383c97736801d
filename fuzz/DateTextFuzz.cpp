// Fuzz target: a show format and a stored text.
#include <string>

#include "fuzz/FuzzTools.h"
#include "fuzz/ValueTextModel.h"
#include "valuetext/DateText.h"
#include "valuetext/ShowFormat.h"

namespace veygrid {
namespace {

constexpr const char* IsoFormat = "YYYY-MM-DD";

void CheckReading(const std::string& stored, const std::string& format) {
    std::string text = stored;
    const bool isDate = FormatDateText(text, format);
    std::string expected = stored;
    Claim(isDate == model::FormatDate(expected, format), "dates are those of the literal reader");
    Claim(text == expected, "the text shown is that of the literal printer");
    Claim(!isDate || text.size() <= 2 * format.size(), "a date is at most twice its format");

    std::string tested = stored;
    Claim(FormatDateText(tested, std::nullopt) == isDate, "no format changes what is a date");
    Claim(stored.find(tested) != std::string::npos, "without a format the text is only cut");
    Claim(IsTrimmed(tested), "without a format the text is trimmed");
}

// What the reader printed it reads again as the same day, whatever the separators were.
void CheckRoundTrip(const std::string& stored) {
    std::string iso = stored;
    if (!FormatDateText(iso, IsoFormat)) {
        return;
    }
    Claim(iso.size() == 10 && IsStrictDate(iso), "a printed date is a strict one");
    for (const std::string& format : StandardShowFormats()) {
        if (ShowKindOf(format) == ShowKind::Date) {
            std::string shown = iso;
            Claim(FormatDateText(shown, format) && FormatDateText(shown, IsoFormat) && shown == iso,
                  "a date survives every standard form");
        }
    }
}

void CheckStrict(const std::string& stored) {
    const bool strict = IsStrictDate(stored);
    Claim(strict == model::StrictDate(stored), "strict dates are those of the literal test");
    std::string text = stored;
    Claim(!strict || stored.find_first_of(" \t\n\v\f\r") != std::string::npos ||
              FormatDateText(text, std::nullopt),
          "a strict date without blanks is a date");
}

void CheckShowing(const std::string& stored, const std::string& format) {
    const std::string shown = ShowText(stored, format);
    const ShowKind kind = ShowKindOf(format);
    if (kind == ShowKind::Plain || kind == ShowKind::ComboText) {
        Claim(shown == stored, "a plain format shows the text as stored");
    }
    Claim(ShowKindOf(UpperCase(format)) == kind, "the case of a format does not count");
}

}  // namespace
}  // namespace veygrid

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace veygrid;
    std::string_view rest = TextOf(data, size);
    const std::string format(TakeLine(rest));
    const std::string stored(rest);
    CheckReading(stored, format);
    CheckRoundTrip(stored);
    CheckStrict(stored);
    CheckShowing(stored, format);
    return 0;
}
