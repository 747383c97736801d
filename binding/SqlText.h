// The one SQL statement as plain text: cut at its keywords, its columns counted, its tables found.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace veygrid {

// Nothing parses SQL here. The statement is taken to be "SELECT", one blank, the select list, one
// blank, "FROM", one blank, the table list, and perhaps a tail; keywords are found wherever their
// letters stand, in either case, in names and literals too. Results are cut from the text as typed
// at byte offsets that trust this shape, and are trimmed of white space on both sides. A view
// returned lies inside the text given. Every function is linear in its text.

// The table list, up to "WHERE", "GROUP " or "ORDER "; the whole text when "FROM" is missing or
// stands at the very start. A "GROUP " without an "ORDER " behind "FROM" does not end the list;
// this is on purpose.
std::string_view SqlFromList(std::string_view text);

// The text between "SELECT " and " FROM"; empty when "FROM" is missing or at the very start.
std::string_view SqlSelectList(std::string_view text);

// The text from "WHERE" on, or from the first of "GROUP " and "ORDER " when there is no "WHERE";
// empty when there is none of them or it stands at the very start.
std::string_view SqlTail(std::string_view text);

// What hosts are told as the select list and the table list: by rules of their own, the second
// without a stop at "GROUP " or "ORDER ". No value when the keywords are missing.
std::optional<std::string_view> SqlHostColumns(std::string_view text);
std::optional<std::string_view> SqlHostTables(std::string_view text);

// "SELECT %s FROM %s %s", not trimmed: an empty tail leaves the blank in front of it.
std::string SqlStatement(std::string_view columns, std::string_view tables, std::string_view tail);

// Number of columns in the select list: 0 when it is empty, otherwise 1 more than its top-level
// commas. A comma is top-level when round brackets are in balance and apostrophes paired before it.
std::int32_t CountSelectColumns(std::string_view text);

// The list, trimmed, with each top-level comma replaced by `mark`. A blank mark stays where it
// stands at either end, so that the fields keep their numbers.
std::string MaskTopCommas(std::string_view list, char mark);

// The names in front of the last point of each qualified column, in order of first appearance,
// joined with ",". Numbers and points between apostrophes do not count. A qualifier that ends in
// anything but a letter A to Z, a digit or "_" is listed as an empty name. Nothing is found when
// the list begins with a point.
std::string TablesFromColumns(std::string_view list);

}  // namespace veygrid
