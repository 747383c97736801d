// The ordered list of named text values that travels with the sheet.
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <optional>
#include <string>
#include <string_view>

namespace veygrid {

// An entry is stored as name, tab, value. Names compare without regard to case and to blanks
// around them. The value of an entry is the text up to the next tab.
class ParamList {
  public:
    // Opaque and above 0 for an entry; 0 when there is none.
    using Position = std::int32_t;

    Position FindParam(std::string_view name) const;
    bool ParamExist(std::string_view name) const { return FindParam(name) != 0; }
    // Nothing for an unknown name, which is not the same as an empty value.
    std::optional<std::string> GetParam(std::string_view name) const;
    // Overwrites the first entry of that name in its place, or appends one. A blank name is
    // appended as an entry that no search finds.
    void SetParam(std::string_view name, std::string_view value);
    // An empty name removes every entry. The result is always true.
    bool RemoveParam(std::string_view name);

    Position GetFirstParamPos() const;
    // False, with nothing written, at position 0 or on an empty list; otherwise reads the entry and
    // moves `pos` to the next one, 0 after the tail.
    bool GetNextParam(Position& pos, std::string& name, std::string& value) const;

    // The raw entries, for the grid file.
    std::size_t Count() const;
    void AppendRaw(std::string entry);
    template <class Visit>
    void ForEachRaw(Visit visit) const;
};

}  // namespace veygrid
