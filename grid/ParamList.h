// The ordered list of named text values that travels with the sheet.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veygrid {

// An entry is stored as name, tab, value. Names compare without regard to case and to blanks
// around them. The value of an entry is the text up to the next tab.
class ParamList {
  public:
    // Names an entry as long as it lives: above 0, and 0 when there is none. The position of a
    // removed entry may later name another one.
    using Position = std::int32_t;
    static constexpr Position NoPosition = 0;

    Position FindParam(std::string_view name) const;
    bool ParamExist(std::string_view name) const { return FindParam(name) != NoPosition; }
    // Nothing for an unknown name, which is not the same as an empty value.
    std::optional<std::string> GetParam(std::string_view name) const;
    // Overwrites the first entry of that name in its place, or appends one. A blank name is
    // appended as an entry that no search finds.
    void SetParam(std::string_view name, std::string_view value);
    // An empty name removes every entry, a blank one none. The result is always true.
    bool RemoveParam(std::string_view name);

    Position GetFirstParamPos() const { return m_head; }
    // False, with nothing written, at a position that names no entry; otherwise reads the entry and
    // moves `pos` to the next one, 0 after the tail.
    bool GetNextParam(Position& pos, std::string& name, std::string& value) const;

    // The raw entries, for the grid file.
    std::size_t Count() const { return m_count; }
    // Adds at the tail, whatever names are there. Throws std::length_error beyond 2^31 - 1 entries.
    void AppendRaw(std::string entry);
    // Calls `visit(const std::string&)` on each entry in the list's order.
    template <class Visit>
    void ForEachRaw(Visit visit) const {
        for (Position pos = m_head; pos != NoPosition; pos = NodeAt(pos).next) {
            visit(NodeAt(pos).entry);
        }
    }

  private:
    // Position p stands at index p - 1. Free nodes are chained by `next`.
    struct Node {
        std::string entry;
        Position previous = NoPosition;
        Position next = NoPosition;
        bool used = false;
    };

    Node& NodeAt(Position pos) { return m_nodes[static_cast<std::size_t>(pos - 1)]; }
    const Node& NodeAt(Position pos) const { return m_nodes[static_cast<std::size_t>(pos - 1)]; }
    bool IsEntry(Position pos) const;
    Position TakeNode();
    void Remove(Position pos);

    std::vector<Node> m_nodes;
    Position m_head = NoPosition;
    Position m_tail = NoPosition;
    Position m_free = NoPosition;
    std::size_t m_count = 0;
};

}  // namespace veygrid
