// The one SQL statement as plain text: cut at its keywords, its columns counted, its tables found.
#include "binding/SqlText.h"

#include <cstddef>
#include <unordered_set>
#include <utility>

#include "valuetext/MultiByte.h"
#include "valuetext/TextSearch.h"

namespace veygrid {

namespace {

// Offsets take part in sums that may fall below 0, and -1 stands for a keyword not found.
using Offset = std::ptrdiff_t;

Offset Find(std::string_view text, std::string_view keyword, Offset start = 0) {
    const std::size_t found = FindNoCase(text, keyword, static_cast<std::size_t>(start));
    return found == NotFound ? -1 : static_cast<Offset>(found);
}

// Trimmed. Empty when the start lies behind the end or the length is below 0.
std::string_view Cut(std::string_view text, Offset start, Offset length) {
    if (start > static_cast<Offset>(text.size()) || length < 0) {
        return {};
    }
    return Trim(text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(length)));
}

std::string_view CutToEnd(std::string_view text, Offset start) {
    return Cut(text, start, static_cast<Offset>(text.size()));
}

// Calls `visit` with the offset of each top-level comma. Counting starts anew behind a top-level
// comma, which is the same as counting on: there the brackets are in balance and the apostrophes
// paired. None of these bytes can be the second byte of a character.
template <class Visit>
void ForEachTopComma(std::string_view list, Visit visit) {
    Offset open = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < list.size(); ++i) {
        const char c = list[i];
        open += c == '(' ? 1 : c == ')' ? -1 : 0;
        quoted = quoted != (c == '\'');
        if (c == ',' && open == 0 && !quoted) {
            visit(i);
        }
    }
}

bool IsNameChar(char c) {
    return IsAsciiAlpha(c) || IsAsciiDigit(c) || c == '_';
}

// Names in order of first appearance, joined with ",".
class NameList {
  public:
    void Add(std::string_view name) {
        if (m_known.insert(name).second) {
            m_joined.append(m_known.size() > 1 ? "," : "").append(name);
        }
    }
    std::string TakeJoined() { return std::move(m_joined); }

  private:
    std::unordered_set<std::string_view> m_known;
    std::string m_joined;
};

// The qualifier in a run of name characters and points, or no value: what stands before the last
// point, unless a digit or the end of the list follows that point.
std::optional<std::string_view> QualifierOf(std::string_view run, bool atEndOfList) {
    const std::size_t point = run.rfind('.');
    if (point == NotFound) {
        return std::nullopt;
    }
    const bool last = point + 1 == run.size();
    if (last ? atEndOfList : IsAsciiDigit(run[point + 1])) {
        return std::nullopt;
    }
    return run.substr(0, point);
}

// Length of the run of name characters and points from `start` on.
std::size_t RunLength(std::string_view list, std::size_t start) {
    std::size_t end = start;
    while (end < list.size() && (IsNameChar(list[end]) || list[end] == '.')) {
        ++end;
    }
    return end - start;
}

}  // namespace

std::string_view SqlFromList(std::string_view text) {
    const Offset from = Find(text, "FROM");
    if (from < 1) {
        return Trim(text);
    }
    Offset end = Find(text, "WHERE", from);
    if (end < 0) {
        const Offset group = Find(text, "GROUP ", from);
        const Offset order = Find(text, "ORDER ", from);
        end = group >= 0 && group < order ? group : order;
    }
    return end > from ? Cut(text, from + 5, end - from - 6) : CutToEnd(text, from + 5);
}

std::string_view SqlSelectList(std::string_view text) {
    const Offset from = Find(text, "FROM");
    return from > 0 ? Cut(text, 7, from - 8) : std::string_view{};
}

std::string_view SqlTail(std::string_view text) {
    Offset start = Find(text, "WHERE");
    if (start < 0) {
        const Offset group = Find(text, "GROUP ");
        const Offset order = Find(text, "ORDER ");
        start = group >= 0 && (order < 0 || group < order) ? group : order;
    }
    return start > 0 ? CutToEnd(text, start) : std::string_view{};
}

std::optional<std::string_view> SqlHostColumns(std::string_view text) {
    const Offset select = Find(text, "SELECT");
    const Offset from = select < 0 ? -1 : Find(text, "FROM", select);
    if (from < 0) {
        return std::nullopt;
    }
    return Cut(text, select + 6, from - select - 6);
}

std::optional<std::string_view> SqlHostTables(std::string_view text) {
    const Offset from = Find(text, "FROM");
    if (from < 0) {
        return std::nullopt;
    }
    const Offset where = Find(text, "WHERE", from);
    return where > from ? Cut(text, from + 4, where - from - 4) : CutToEnd(text, from + 4);
}

std::string SqlStatement(std::string_view columns, std::string_view tables, std::string_view tail) {
    std::string text = "SELECT ";
    text.append(columns).append(" FROM ").append(tables).append(" ").append(tail);
    return text;
}

std::int32_t CountSelectColumns(std::string_view text) {
    const std::string_view list = SqlSelectList(text);
    std::int32_t columns = list.empty() ? 0 : 1;
    ForEachTopComma(list, [&](std::size_t) { ++columns; });
    return columns;
}

std::string MaskTopCommas(std::string_view list, char mark) {
    std::string masked(Trim(list));
    ForEachTopComma(Trim(list), [&](std::size_t comma) { masked[comma] = mark; });
    return masked;
}

std::string TablesFromColumns(std::string_view list) {
    NameList names;
    if (list.starts_with('.')) {
        return {};
    }
    bool quoted = false;
    for (std::size_t i = 0; i < list.size();) {
        const std::size_t length = RunLength(list, i);
        const auto name = QualifierOf(list.substr(i, length), i + length == list.size());
        if (name && !quoted) {
            names.Add(*name);
        }
        i += length;
        if (i < list.size()) {
            quoted = quoted != (list[i] == '\'');
            i += CharLength(list, i);
        }
    }
    return names.TakeJoined();
}

}  // namespace veygrid
