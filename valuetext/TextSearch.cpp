// Text searches that do not tell small letters from capital ones.
#include "valuetext/TextSearch.h"

#include "valuetext/MultiByte.h"

namespace veygrid {

bool StartsWithNoCase(std::string_view text, std::string_view what) {
    if (text.size() < what.size()) {
        return false;
    }
    // As long as all characters so far are equal, both texts have theirs at the same places.
    for (std::size_t i = 0; i < what.size();) {
        const std::size_t length = CharLength(what, i);
        const bool equal = length == 2 ? text.substr(i, 2) == what.substr(i, 2)
                                       : ToUpperAscii(text[i]) == ToUpperAscii(what[i]);
        if (!equal) {
            return false;
        }
        i += length;
    }
    return true;
}

std::size_t FindNoCase(std::string_view text, std::string_view what, std::size_t start) {
    std::size_t pos = start;
    while (pos < text.size() && !StartsWithNoCase(text.substr(pos), what)) {
        pos += CharLength(text, pos);
    }
    const bool found = pos < text.size() || (pos == text.size() && what.empty());
    return found ? pos : NotFound;
}

}  // namespace veygrid
