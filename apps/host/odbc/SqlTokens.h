// A statement cut into its words, names, literals and marks.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace veygrid {

enum class Database { SQLite, PostgreSQL };

struct SqlToken {
    enum class Kind { Word, QuotedName, Literal, Number, Mark };

    Kind kind;
    std::size_t begin;  // in UTF-16 units
    std::size_t end;
    int depth;  // of the round brackets that it stands in; a bracket itself belongs outside
};

// White space and comments are left out. A literal or comment that does not end reaches to the end
// of the text.
std::vector<SqlToken> SqlTokensOf(std::u16string_view text, Database database);

// Compares without regard to the case of the letters A to Z; `word` is in capitals.
bool IsWord(std::u16string_view text, const SqlToken& token, std::u16string_view word);
bool SameName(std::u16string_view one, std::u16string_view other);

// The name that a word or quoted name means: without its quotes, and in small letters where the
// database takes an unquoted name so.
std::u16string NameOf(std::u16string_view text, const SqlToken& token, Database database);

}  // namespace veygrid
