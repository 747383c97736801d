// The texts of statements.
#include "apps/host/odbc/StatementText.h"

#include <algorithm>

namespace veygrid {
namespace {

// In quotes, those inside doubled.
void AppendQuoted(std::u16string& to, std::u16string_view text, char16_t quote) {
    to += quote;
    for (const char16_t c : text) {
        to.append(c == quote ? 2 : 1, c);
    }
    to += quote;
}

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

// The number of up to `width` digits at the head, filled on the left with zeros; empty without one.
std::u16string TakeNumber(std::u16string_view& text, std::size_t width) {
    std::size_t digits = 0;
    while (digits < text.size() && IsDigit(text[digits])) {
        ++digits;
    }
    if (digits == 0 || digits > width) {
        return {};
    }
    std::u16string number(width - digits, u'0');
    number += text.substr(0, digits);
    text.remove_prefix(digits);
    return number;
}
bool TakeSeparator(std::u16string_view& text) {
    const bool found = !text.empty() && (text[0] == u'-' || text[0] == u'/' || text[0] == u'.');
    text.remove_prefix(found ? 1 : 0);
    return found;
}

// 2003/8/4 as 2003-08-04, with a time behind as it is; anything else stays.
std::u16string IsoDate(std::u16string_view text) {
    std::u16string_view rest = text;
    const std::u16string year = TakeNumber(rest, 4);
    const bool first = TakeSeparator(rest);
    const std::u16string month = TakeNumber(rest, 2);
    const bool second = TakeSeparator(rest);
    const std::u16string day = TakeNumber(rest, 2);
    if (year.empty() || !first || month.empty() || !second || day.empty() ||
        (!rest.empty() && rest[0] != u' ')) {
        return std::u16string(text);
    }
    return year + u'-' + month + u'-' + day + std::u16string(rest);
}

// Without regard to the case of the letters A to Z; the parts are in capitals.
bool Contains(std::u16string_view text, std::initializer_list<std::u16string_view> parts) {
    const auto same = [](char16_t one, char16_t capital) {
        return one == capital || (one >= u'a' && one <= u'z' && one - u'a' + u'A' == capital);
    };
    return std::any_of(parts.begin(), parts.end(), [&](std::u16string_view part) {
        return std::search(text.begin(), text.end(), part.begin(), part.end(), same) != text.end();
    });
}
bool IsOneOf(std::u16string_view text, std::initializer_list<std::u16string_view> all) {
    return std::find(all.begin(), all.end(), text) != all.end();
}

class Builder {
  public:
    Builder(BoundStatement& made, Database database) : m_database(database), m_made(made) {
        m_made.text.clear();
        m_made.values.clear();
    }

    void Add(std::u16string_view text) { m_made.text += text; }
    void AddName(const ColumnInfo& column) { AppendQuoted(m_made.text, column.base, u'"'); }
    void AddValue(const ColumnValue& value) {
        Add(ValueMark(*value.column, m_database));
        m_made.values.push_back(value.value);
    }
    void AddConditions(const RecordConditions& conditions) {
        std::u16string_view joint = u" WHERE ";
        for (const ColumnValue& key : conditions.keys) {
            Add(joint);
            AddCondition(key, KeyNeedsText(*key.column));
            joint = u" AND ";
        }
        for (const ColumnValue& other : conditions.others) {
            Add(joint);
            AddCondition(other, OtherNeedsText(*other.column));
            joint = u" AND ";
        }
    }

  private:
    void AddCondition(const ColumnValue& condition, bool asText) {
        if (!condition.value) {
            AddName(*condition.column);
            Add(u" IS NULL");
        } else if (asText) {
            Add(u"CAST(");
            AddName(*condition.column);
            Add(u" AS TEXT) = CAST(? AS TEXT)");
            // A change of case is a change, whatever the column's own comparison thinks of it.
            Add(m_database == Database::SQLite ? u" COLLATE BINARY" : u"");
            m_made.values.push_back(condition.value);
        } else {
            AddName(*condition.column);
            Add(u" = ");
            AddValue(condition);
        }
    }
    // SQLite compares a text with a number only where the column's type turns one into the other,
    // and shows a floating number shorter than it is.
    bool KeyNeedsText(const ColumnInfo& column) const {
        if (m_database == Database::SQLite) {
            return column.declaredType.empty() ||
                   Contains(column.declaredType, {u"BLOB", u"REAL", u"FLOA", u"DOUB"});
        }
        return OtherNeedsText(column);
    }
    // PostgreSQL's driver shows some types in its own way (a Boolean as 1), so that the text is
    // made the type's again; a few types know no equality.
    bool OtherNeedsText(const ColumnInfo& column) const {
        return m_database == Database::SQLite ||
               IsOneOf(column.declaredType, {u"json", u"xml", u"point", u"polygon"});
    }

    Database m_database;
    BoundStatement& m_made;
};

}  // namespace

std::u16string WithoutDateMarks(std::u16string_view statement, Database database) {
    std::u16string result;
    std::size_t copied = 0;
    for (const SqlToken& token : SqlTokensOf(statement, database)) {
        if (token.begin < copied || !statement.substr(token.begin).starts_with(u"%{") ||
            token.kind != SqlToken::Kind::Mark) {
            continue;
        }
        const std::size_t end = statement.find(u"}%", token.begin + 2);
        if (end == std::u16string_view::npos) {
            break;
        }
        result += statement.substr(copied, token.begin - copied);
        AppendQuoted(result, IsoDate(statement.substr(token.begin + 2, end - token.begin - 2)),
                     u'\'');
        copied = end + 2;
    }
    return result.append(statement.substr(copied));
}

std::u16string QuotedName(std::u16string_view name) {
    std::u16string quoted;
    AppendQuoted(quoted, name, u'"');
    return quoted;
}

std::u16string CountingText(const SelectForm& form) {
    // The rows of a table are counted many times faster than those of a query. An expression may
    // sum all rows up into one.
    const bool plain = std::none_of(form.items.begin(), form.items.end(), [](const auto& item) {
        return item.kind == SelectItem::Kind::Expression;
    });
    if (form.oneTable && plain && !form.ordered && !form.limited) {
        return u"SELECT COUNT(*) " + form.body.substr(form.from);
    }
    return u"SELECT COUNT(*) FROM (" + form.body + u"\n) AS veygrid_rows";
}

std::u16string ValueMark(const ColumnInfo& column, Database database) {
    if (database == Database::SQLite) {
        return u"?";
    }
    return u"CAST(CAST(? AS TEXT) AS " + column.declaredType + u")";
}

bool HoldsText(const ColumnInfo& column, Database database) {
    if (database == Database::SQLite) {
        return column.declaredType.empty() ||
               Contains(column.declaredType, {u"CHAR", u"CLOB", u"TEXT"});
    }
    return IsOneOf(column.declaredType,
                   {u"text", u"character varying", u"bpchar", u"name", u"citext"});
}

void MakeUpdate(BoundStatement& made, std::u16string_view table,
                const std::vector<ColumnValue>& changes, const RecordConditions& conditions,
                Database database) {
    Builder builder(made, database);
    builder.Add(u"UPDATE ");
    builder.Add(table);
    std::u16string_view joint = u" SET ";
    for (const ColumnValue& change : changes) {
        builder.Add(joint);
        builder.AddName(*change.column);
        builder.Add(u" = ");
        builder.AddValue(change);
        joint = u", ";
    }
    builder.AddConditions(conditions);
}

void MakeInsert(BoundStatement& made, std::u16string_view table,
                const std::vector<ColumnValue>& values, Database database) {
    Builder builder(made, database);
    builder.Add(u"INSERT INTO ");
    builder.Add(table);
    std::u16string_view joint = u" (";
    for (const ColumnValue& value : values) {
        builder.Add(joint);
        builder.AddName(*value.column);
        joint = u", ";
    }
    joint = u") VALUES (";
    for (const ColumnValue& value : values) {
        builder.Add(joint);
        builder.AddValue(value);
        joint = u", ";
    }
    builder.Add(u")");
}

void MakeDelete(BoundStatement& made, std::u16string_view table, const RecordConditions& conditions,
                Database database) {
    Builder builder(made, database);
    builder.Add(u"DELETE FROM ");
    builder.Add(table);
    builder.AddConditions(conditions);
}

}  // namespace veygrid
