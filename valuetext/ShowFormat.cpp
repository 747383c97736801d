// How a show format turns stored text into shown text.
#include "valuetext/ShowFormat.h"

#include <cstddef>

#include "valuetext/CodePage936.h"
#include "valuetext/DateText.h"
#include "valuetext/MoneyText.h"
#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

constexpr std::string_view ComboMarker = "[CB_TEXT]";
constexpr std::string_view MoneyMarker = "[RMB_UPPER]";

// `capitals` stands at the beginning of the text, in letters of any case.
bool StartsWith(std::string_view text, std::string_view capitals) {
    if (text.size() < capitals.size()) {
        return false;
    }
    for (std::size_t i = 0; i < capitals.size(); ++i) {
        if (ToUpperAscii(text[i]) != capitals[i]) {
            return false;
        }
    }
    return true;
}

struct FormatMarks {
    bool year = false;
    bool month = false;
    bool money = false;
};

// One walk without a copy, as every painted cell passes here.
FormatMarks FindMarks(std::string_view format) {
    FormatMarks marks;
    for (std::size_t i = 0; i < format.size(); i += CharLength(format, i)) {
        switch (format[i]) {
            case 'Y':
            case 'y':
                marks.year = marks.year || StartsWith(format.substr(i), "YY");
                break;
            case 'M':
            case 'm':
                marks.month = true;
                break;
            case '[':
                marks.money = marks.money || StartsWith(format.substr(i), MoneyMarker);
                break;
            default:
                break;
        }
    }
    return marks;
}

}  // namespace

const std::array<std::string, 10>& StandardShowFormats() {
    static const std::array<std::string, 10> formats{"General",
                                                     "0",
                                                     "0.00",
                                                     "#,##0",
                                                     "#,##0.00",
                                                     CodePage936FromUtf16(u"YYYY年MM月DD日"),
                                                     CodePage936FromUtf16(u"YYYY年M月D日"),
                                                     "YYYY-MM-DD",
                                                     std::string(ComboMarker),
                                                     std::string(MoneyMarker)};
    return formats;
}

ShowKind ShowKindOf(std::string_view showFormat) {
    if (showFormat.size() == ComboMarker.size() && StartsWith(showFormat, ComboMarker)) {
        return ShowKind::ComboText;
    }
    const FormatMarks marks = FindMarks(showFormat);
    if (marks.year && marks.month) {
        return ShowKind::Date;
    }
    return marks.money ? ShowKind::Money : ShowKind::Plain;
}

std::string ShowText(std::string text, std::string_view showFormat) {
    switch (ShowKindOf(showFormat)) {
        case ShowKind::Date:
            FormatDateText(text, showFormat);
            return text;
        case ShowKind::Money:
            return MoneyUpperText(text);
        case ShowKind::Plain:
        case ShowKind::ComboText:
            break;
    }
    return text;
}

}  // namespace veygrid
