// The routines on the statement told literally and slowly, on copies, to hold the fast ones
// against.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

namespace veygrid::model {

constexpr long None = -1;

// The text with the letters made capital and every two-byte character hidden behind bytes that no
// search looks for, so that plain byte searches are right.
inline std::string Searchable(const std::string& text) {
    std::string copy = text;
    for (std::size_t i = 0; i < copy.size(); ++i) {
        const auto first = static_cast<unsigned char>(text[i]);
        const auto second = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : '\0');
        if (first >= 0x81 && first != 0xFF && second >= 0x40 && second != 0x7F && second != 0xFF) {
            copy[i] = copy[i + 1] = '\x01';
            ++i;
        } else if (first >= 'a' && first <= 'z') {
            copy[i] = static_cast<char>(first - 32);
        }
    }
    return copy;
}

inline long Find(const std::string& capitals, const std::string& what, long start = 0) {
    const std::size_t found = capitals.find(what, static_cast<std::size_t>(start));
    return found == std::string::npos ? None : static_cast<long>(found);
}

inline std::string Trim(std::string text) {
    const std::string blanks = " \t\n\v\f\r";
    text.erase(0, std::min(text.size(), text.find_first_not_of(blanks)));
    const std::size_t last = text.find_last_not_of(blanks);
    text.erase(last == std::string::npos ? 0 : last + 1);
    return text;
}

inline std::string Middle(const std::string& text, long start, long length) {
    if (length < 0 || start > static_cast<long>(text.size())) {
        return "";
    }
    return text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(length));
}

inline std::string Middle(const std::string& text, long start) {
    return Middle(text, start, static_cast<long>(text.size()));
}

inline std::string FromList(const std::string& text) {
    const std::string u = Searchable(text);
    const long f = Find(u, "FROM");
    if (f < 1) {
        return Trim(text);
    }
    long w = Find(u, "WHERE", f);
    if (w < 0) {
        const long g = Find(u, "GROUP ", f);
        const long o = Find(u, "ORDER ", f);
        if (g < o && g >= 0) {
            w = g;
        } else {
            w = o;
        }
    }
    return Trim(w > f ? Middle(text, f + 5, w - f - 6) : Middle(text, f + 5));
}

inline std::string SelectList(const std::string& text) {
    const long f = Find(Searchable(text), "FROM");
    return f > 0 ? Trim(Middle(text, 7, f - 8)) : "";
}

inline std::string Tail(const std::string& text) {
    const std::string u = Searchable(text);
    long p = Find(u, "WHERE");
    if (p < 0) {
        const long g = Find(u, "GROUP ");
        const long o = Find(u, "ORDER ");
        if (g >= 0 && (o < 0 || g < o)) {
            p = g;
        } else {
            p = o;
        }
    }
    return p > 0 ? Trim(Middle(text, p)) : "";
}

// "<null>" for a null string.
inline std::string HostTables(const std::string& text) {
    const std::string u = Searchable(text);
    const long f = Find(u, "FROM");
    if (f < 0) {
        return "<null>";
    }
    const long w = Find(u, "WHERE", f);
    return Trim(w > f ? Middle(text, f + 4, w - f - 4) : Middle(text, f + 4));
}

inline std::string HostColumns(const std::string& text) {
    const std::string u = Searchable(text);
    const long s = Find(u, "SELECT");
    if (s < 0 || Find(u, "FROM", s) < 0) {
        return "<null>";
    }
    return Trim(Middle(text, s + 6, Find(u, "FROM", s) - s - 6));
}

inline std::vector<std::size_t> TopCommas(const std::string& list) {
    std::vector<std::size_t> found;
    std::string since;
    std::size_t start = 0;
    for (std::size_t comma = list.find(','); comma != std::string::npos;
         comma = list.find(',', start)) {
        since += list.substr(start, comma - start);
        if (std::count(since.begin(), since.end(), '(') ==
                std::count(since.begin(), since.end(), ')') &&
            std::count(since.begin(), since.end(), '\'') % 2 == 0) {
            found.push_back(comma);
            since.clear();
        } else {
            since += ',';
        }
        start = comma + 1;
    }
    return found;
}

inline int CountColumns(const std::string& text) {
    const std::string list = SelectList(text);
    return list.empty() ? 0 : 1 + static_cast<int>(TopCommas(list).size());
}

inline std::string Mask(const std::string& list, char mark) {
    std::string masked = Trim(list);
    for (const std::size_t comma : TopCommas(masked)) {
        masked[comma] = mark;
    }
    return masked;
}

inline std::string Tables(const std::string& list) {
    const std::string t = list + "0";
    const std::string u = Searchable(t);
    const auto nameByte = [&](std::size_t i) {
        return (u[i] >= 'A' && u[i] <= 'Z') || (u[i] >= '0' && u[i] <= '9') || u[i] == '_';
    };
    std::vector<std::string> names;
    for (long p = Find(t, "."); p > 0; p = Find(t, ".", p + 1)) {
        const long s = p + 1;
        const long n = Find(t, ".", s);
        long e = s;
        while (e < static_cast<long>(t.size()) && nameByte(static_cast<std::size_t>(e))) {
            ++e;
        }
        e = e == static_cast<long>(t.size()) ? None : e;
        const char next = t[static_cast<std::size_t>(s)];
        if ((next >= '0' && next <= '9') || (n >= 0 && !(n > e))) {
            continue;
        }
        if (std::count(t.begin(), t.begin() + p, '\'') % 2 != 0) {
            continue;
        }
        long b = p - 1;
        while (b >= 0 &&
               (nameByte(static_cast<std::size_t>(b)) || t[static_cast<std::size_t>(b)] == '.')) {
            --b;
        }
        const std::string name = Middle(t, b + 1, p - b - 1);
        if (std::find(names.begin(), names.end(), name) == names.end()) {
            names.push_back(name);
        }
    }
    std::string joined;
    for (std::size_t i = 0; i < names.size(); ++i) {
        joined += (i == 0 ? "" : ",") + names[i];
    }
    return joined;
}

}  // namespace veygrid::model
