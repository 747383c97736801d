// A statement cut into its words, names, literals and marks.
#include "apps/host/odbc/SqlTokens.h"

#include <algorithm>

namespace veygrid {
namespace {

bool IsSpace(char16_t c) {
    return c == u' ' || (c >= u'\t' && c <= u'\r') || c == 0x3000 || c == 0xFEFF;
}
bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}
char16_t Capital(char16_t c) {
    return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c;
}
char16_t Small(char16_t c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c - u'A' + u'a') : c;
}
bool BeginsWord(char16_t c) {
    const char16_t capital = Capital(c);
    return (capital >= u'A' && capital <= u'Z') || c == u'_' || c >= 0x80;
}
bool ContinuesWord(char16_t c) {
    return BeginsWord(c) || IsDigit(c) || c == u'$';
}

class Scanner {
  public:
    Scanner(std::u16string_view text, Database database) : m_text(text), m_database(database) {}

    std::vector<SqlToken> Run() {
        while (SkipBlank(), m_at < m_text.size()) {
            const std::size_t begin = m_at;
            const SqlToken::Kind kind = Take();
            const char16_t first = m_text[begin];
            if (kind == SqlToken::Kind::Mark && first == u')') {
                --m_depth;
            }
            m_tokens.push_back({kind, begin, m_at, m_depth});
            if (kind == SqlToken::Kind::Mark && first == u'(') {
                ++m_depth;
            }
        }
        return std::move(m_tokens);
    }

  private:
    char16_t Peek(std::size_t ahead = 0) const {
        return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : u'\0';
    }
    bool At(std::u16string_view what) const { return m_text.substr(m_at).starts_with(what); }
    void GoBehind(std::u16string_view what) {
        const std::size_t found = m_text.find(what, m_at);
        m_at = found == std::u16string_view::npos ? m_text.size() : found + what.size();
    }

    void SkipBlank() {
        while (m_at < m_text.size()) {
            if (At(u"--")) {
                GoBehind(u"\n");
            } else if (At(u"/*")) {
                SkipComment();
            } else if (IsSpace(Peek())) {
                ++m_at;
            } else {
                return;
            }
        }
    }
    void SkipComment() {
        int open = 0;
        do {
            if (At(u"/*") && (open == 0 || m_database == Database::PostgreSQL)) {
                ++open;
                m_at += 2;
            } else if (At(u"*/")) {
                --open;
                m_at += 2;
            } else {
                ++m_at;
            }
        } while (open > 0 && m_at < m_text.size());
        m_at = std::min(m_at, m_text.size());
    }

    SqlToken::Kind Take() {
        const char16_t c = Peek();
        const bool postgres = m_database == Database::PostgreSQL;
        if (c == u'\'') {
            TakeQuoted(u'\'', false);
            return SqlToken::Kind::Literal;
        }
        if (postgres && Capital(c) == u'E' && Peek(1) == u'\'') {
            ++m_at;
            TakeQuoted(u'\'', true);
            return SqlToken::Kind::Literal;
        }
        if (postgres && c == u'$' && TakeDollarQuoted()) {
            return SqlToken::Kind::Literal;
        }
        if (c == u'"' || (!postgres && (c == u'`' || c == u'['))) {
            TakeQuoted(c == u'[' ? u']' : c, false);
            return SqlToken::Kind::QuotedName;
        }
        if (IsDigit(c)) {
            SkipWhile([](char16_t next) { return ContinuesWord(next) || next == u'.'; });
            return SqlToken::Kind::Number;
        }
        if (BeginsWord(c)) {
            SkipWhile(ContinuesWord);
            return SqlToken::Kind::Word;
        }
        ++m_at;
        return SqlToken::Kind::Mark;
    }

    template <typename Test>
    void SkipWhile(Test test) {
        while (m_at < m_text.size() && test(m_text[m_at])) {
            ++m_at;
        }
    }
    void TakeQuoted(char16_t close, bool backslashes) {
        ++m_at;
        while (m_at < m_text.size()) {
            if (backslashes && Peek() == u'\\') {
                ++m_at;
            } else if (Peek() == close && (Peek(1) != close || close == u']')) {
                ++m_at;
                return;
            } else if (Peek() == close) {
                ++m_at;
            }
            ++m_at;
        }
        m_at = m_text.size();
    }
    // $tag$ … $tag$
    bool TakeDollarQuoted() {
        std::size_t end = m_at + 1;
        while (end < m_text.size() && ContinuesWord(m_text[end]) && m_text[end] != u'$') {
            ++end;
        }
        if (end >= m_text.size() || m_text[end] != u'$' || IsDigit(Peek(1))) {
            return false;
        }
        const std::u16string_view tag = m_text.substr(m_at, end + 1 - m_at);
        m_at = end + 1;
        GoBehind(tag);
        return true;
    }

    std::u16string_view m_text;
    Database m_database;
    std::size_t m_at = 0;
    int m_depth = 0;
    std::vector<SqlToken> m_tokens;
};

}  // namespace

std::vector<SqlToken> SqlTokensOf(std::u16string_view text, Database database) {
    return Scanner(text, database).Run();
}

bool SameName(std::u16string_view one, std::u16string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char16_t a, char16_t b) { return Capital(a) == Capital(b); });
}

bool IsWord(std::u16string_view text, const SqlToken& token, std::u16string_view word) {
    return token.kind == SqlToken::Kind::Word &&
           SameName(text.substr(token.begin, token.end - token.begin), word);
}

std::u16string NameOf(std::u16string_view text, const SqlToken& token, Database database) {
    const std::u16string_view written = text.substr(token.begin, token.end - token.begin);
    std::u16string name;
    if (token.kind == SqlToken::Kind::QuotedName) {
        const char16_t close = written.front() == u'[' ? u']' : written.front();
        for (std::size_t i = 1; i + 1 < written.size(); ++i) {
            name += written[i];
            i += written[i] == close ? 1 : 0;  // a doubled quote means one
        }
        return name;
    }
    name = written;
    if (database == Database::PostgreSQL) {
        std::transform(name.begin(), name.end(), name.begin(), Small);
    }
    return name;
}

}  // namespace veygrid
