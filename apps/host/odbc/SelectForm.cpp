// What the outside of a statement tells.
#include "apps/host/odbc/SelectForm.h"

#include <algorithm>
#include <iterator>

namespace veygrid {
namespace {

class Reader {
  public:
    Reader(std::u16string_view body, Database database)
        : m_body(body), m_database(database), m_tokens(SqlTokensOf(body, database)) {}

    void Read(SelectForm& form) {
        form.query = Word(u"SELECT") || Word(u"WITH") || Word(u"VALUES");
        if (!Word(u"SELECT")) {
            return;
        }
        form.afterSelect = m_tokens[0].end;
        ++m_at;
        form.oneTable = !Word(u"DISTINCT") && !Word(u"ALL") && ReadItems(form) && ReadTable(form) &&
                        ReadTail(form);
    }

  private:
    bool More() const { return m_at < m_tokens.size(); }
    bool Word(std::u16string_view word) const {
        return More() && m_tokens[m_at].depth == 0 && IsWord(m_body, m_tokens[m_at], word);
    }
    template <typename... Words>
    bool AnyWord(Words... words) const {
        return (Word(words) || ...);
    }
    bool Mark(char16_t mark, std::size_t at) const {
        return at < m_tokens.size() && m_tokens[at].kind == SqlToken::Kind::Mark &&
               m_tokens[at].depth == 0 && m_body[m_tokens[at].begin] == mark;
    }
    bool Name(std::size_t at) const {
        return at < m_tokens.size() && (m_tokens[at].kind == SqlToken::Kind::Word ||
                                        m_tokens[at].kind == SqlToken::Kind::QuotedName);
    }

    bool ReadItems(SelectForm& form) {
        std::size_t begin = m_at;
        for (; More(); ++m_at) {
            const bool from = Word(u"FROM");
            if (from || Mark(u',', m_at)) {
                form.items.push_back(ItemOf(begin, m_at));
                begin = m_at + 1;
            }
            if (from) {
                form.from = m_tokens[m_at].begin;
                ++m_at;
                return true;
            }
        }
        return false;
    }
    // name, name.name …, either with an alias; or the star of them.
    SelectItem ItemOf(std::size_t begin, std::size_t end) const {
        std::size_t at = begin;
        while (at + 1 < end && Name(at) && Mark(u'.', at + 1)) {
            at += 2;
        }
        if (at + 1 == end && Mark(u'*', at)) {
            return {SelectItem::Kind::Star, {}};
        }
        if (at >= end || !Name(at)) {
            return {};
        }
        std::size_t behind = at + 1;
        if (behind < end && IsWord(m_body, m_tokens[behind], u"AS")) {
            ++behind;
        }
        behind += behind < end && Name(behind) ? 1 : 0;
        if (behind != end) {
            return {};
        }
        return {SelectItem::Kind::Column, NameOf(m_body, m_tokens[at], m_database)};
    }

    bool ReadTable(SelectForm& form) {
        const std::size_t begin = m_at;
        if (!Name(m_at) || Word(u"ONLY") || Word(u"LATERAL")) {
            return false;
        }
        while (Name(m_at) && Mark(u'.', m_at + 1)) {
            m_at += 2;
        }
        if (!Name(m_at)) {
            return false;
        }
        form.table =
            m_body.substr(m_tokens[begin].begin, m_tokens[m_at].end - m_tokens[begin].begin);
        ++m_at;
        m_at += Word(u"AS") ? 1 : 0;
        if (Name(m_at) && !BeginsTail()) {
            ++m_at;
        }
        return !More() || BeginsTail();
    }
    bool BeginsTail() const { return AnyWord(u"WHERE", u"ORDER", u"LIMIT", u"OFFSET"); }

    bool ReadTail(SelectForm& form) {
        for (; More(); ++m_at) {
            if (AnyWord(u"GROUP", u"HAVING", u"WINDOW", u"UNION", u"EXCEPT", u"INTERSECT", u"FOR",
                        u"FETCH", u"INTO")) {
                return false;
            }
            form.ordered |= Word(u"ORDER");
            form.limited |= AnyWord(u"LIMIT", u"OFFSET");
        }
        return true;
    }

    std::u16string_view m_body;
    Database m_database;
    std::vector<SqlToken> m_tokens;
    std::size_t m_at = 0;
};

}  // namespace

SelectForm FormOf(std::u16string_view statement, Database database) {
    std::vector<SqlToken> tokens = SqlTokensOf(statement, database);
    const auto separates = [&](const SqlToken& token) {
        return token.kind == SqlToken::Kind::Mark && statement[token.begin] == u';';
    };
    while (!tokens.empty() && separates(tokens.back())) {
        tokens.pop_back();
    }
    SelectForm form;
    if (tokens.empty()) {
        return form;
    }
    form.body = statement.substr(tokens.front().begin, tokens.back().end - tokens.front().begin);
    // A trigger's body holds semicolons of its own, but only a query is taken apart.
    form.several = std::any_of(tokens.begin(), tokens.end(), separates);
    Reader(form.body, database).Read(form);
    return form;
}

std::vector<std::u16string> BaseColumns(const SelectForm& form,
                                        const std::vector<std::u16string>& names) {
    std::vector<std::u16string> columns(names.size());
    const auto isStar = [](const SelectItem& item) { return item.kind == SelectItem::Kind::Star; };
    const auto stars = std::count_if(form.items.begin(), form.items.end(), isStar);
    const std::size_t others = form.items.size() - static_cast<std::size_t>(stars);
    if (!form.oneTable || stars > 1 || others > names.size() ||
        (stars == 0 && others != names.size())) {
        return columns;
    }
    std::size_t at = 0;
    for (const SelectItem& item : form.items) {
        if (item.kind != SelectItem::Kind::Star) {
            columns[at++] = item.column;
            continue;
        }
        for (std::size_t i = others; i < names.size(); ++i, ++at) {
            columns[at] = names[at];
        }
    }
    return columns;
}

}  // namespace veygrid
