// Fuzz target: searches, cuts, fields and conversions of text in which any byte may stand.
#include <string>
#include <vector>

#include "fuzz/FuzzTools.h"
#include "valuetext/CodePage936.h"
#include "valuetext/Fields.h"
#include "valuetext/TextSearch.h"

namespace veygrid {
namespace {

std::vector<std::size_t> CharStarts(std::string_view text) {
    std::vector<std::size_t> starts;
    for (std::size_t i = 0; i < text.size(); i += CharLength(text, i)) {
        starts.push_back(i);
    }
    return starts;
}

void CheckCharSearch(std::string_view text, char c) {
    std::size_t first = NotFound;
    std::size_t last = NotFound;
    std::size_t count = 0;
    for (const std::size_t start : CharStarts(text)) {
        if (text[start] == c && CharLength(text, start) == 1) {
            first = first == NotFound ? start : first;
            last = start;
            ++count;
        }
    }
    Claim(FindChar(text, c) == first, "the first place is the first character");
    Claim(FindLastChar(text, c) == last, "the last place is the last character");
    Claim(CountChar(text, c) == count, "the count is that of characters");
    const std::string_view trimmed = TrimRightMark(text, c);
    const std::string_view cut = text.substr(trimmed.size());
    Claim(CountChar(cut, c) == cut.size() && IsCharStart(text, trimmed.size()),
          "only whole marks are cut off");
    Claim(trimmed.empty() || FindLastChar(trimmed, c) != trimmed.size() - 1,
          "every mark at the end is cut off");
}

void CheckTextSearch(std::string_view text, std::string_view what) {
    std::size_t exact = NotFound;
    std::size_t anyCase = what.empty() && text.empty() ? 0 : NotFound;
    const std::string capitals = UpperCase(text);
    const std::string sought = UpperCase(what);
    for (const std::size_t start : CharStarts(text)) {
        if (exact == NotFound && text.substr(start).starts_with(what)) {
            exact = start;
        }
        if (anyCase == NotFound && std::string_view(capitals).substr(start).starts_with(sought)) {
            anyCase = start;
        }
    }
    exact = what.empty() && text.empty() ? 0 : exact;
    Claim(FindText(text, what) == exact, "a text is found at its first whole place");
    Claim(FindNoCase(text, what) == anyCase, "and so it is in any case");
}

void CheckCase(std::string_view text) {
    const std::string capitals = UpperCase(text);
    Claim(capitals.size() == text.size() && UpperCase(capitals) == capitals,
          "capitals stay capitals");
    Claim(CharStarts(capitals) == CharStarts(text), "characters keep their places");
}

void CheckOrder(std::string_view a, std::string_view b) {
    const int order = CompareMultiByte(a, b);
    Claim((order == 0) == (a == b), "only equal texts are equal");
    Claim((order < 0) == (CompareMultiByte(b, a) > 0), "the order has two sides");
}

void CheckFields(const std::string& text, char delimiter, std::string_view value) {
    std::string joined;
    FieldWalk walk(text, delimiter);
    while (walk.Next()) {
        joined.append(walk.Index() == 0 ? "" : std::string(1, delimiter)).append(walk.Field());
        Claim(GetField(text, walk.Index(), delimiter) == walk.Field(), "a field is found again");
    }
    Claim(joined == text, "the fields make up the text");
    Claim(walk.Index() == CountChar(text, delimiter), "there is one field more than delimiters");

    const std::string clean(value.substr(0, value.find(delimiter)));
    const std::size_t index = value.size() % (walk.Index() + 2);
    std::string changed = text;
    SetField(changed, index, delimiter, clean);
    Claim(index <= walk.Index() || changed == text, "a field that is not there is not set");
    // A lone lead byte at the end of the value may make one character with a higher delimiter.
    const bool plain = delimiter >= 0 && delimiter < '@';
    Claim(!plain || index > walk.Index() || GetField(changed, index, delimiter) == clean,
          "a field set is found again");
}

void CheckConversions(const std::string& text) {
    std::vector<EncodeFault> faults;
    const std::string utf8 = Utf8FromCodePage936(text);
    Claim(IsUtf8(utf8), "decoding gives well-formed UTF-8");
    Claim(CodePage936FromUtf8(utf8) == CodePage936FromUtf16(Utf16FromCodePage936(text)),
          "both roads to Unicode and back end alike");
    if (utf8.find("\xEF\xBF\xBD") == std::string::npos) {
        const std::string back = CodePage936FromUtf8(utf8, &faults);
        Claim(faults.empty() && Utf8FromCodePage936(back) == utf8, "what was decoded is encoded");
    }
    faults.clear();
    const std::string encoded = CodePage936FromUtf8(text, &faults);
    Claim(!IsUtf8(text) || !faults.empty() || Utf8FromCodePage936(encoded) == text,
          "text without faults survives");
    for (const EncodeFault& fault : faults) {
        Claim(fault.offset < text.size(), "a fault lies in the text");
    }
}

}  // namespace
}  // namespace veygrid

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace veygrid;
    std::string_view rest = TextOf(data, size);
    const std::string what(TakeLine(rest));
    const std::string text(rest);
    const char mark = what.empty() ? '|' : what.back();
    CheckCharSearch(text, mark);
    CheckTextSearch(text, what);
    CheckCase(text);
    CheckOrder(text, what);
    CheckFields(text, IsLeadByte(mark) ? Tab : mark, what);
    CheckConversions(text);
    return 0;
}
