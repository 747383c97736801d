// The ordered list of named text values that travels with the sheet.
#include "grid/ParamList.h"

#include <limits>
#include <stdexcept>
#include <utility>

#include "grid/NameMatch.h"
#include "valuetext/Fields.h"

namespace veygrid {

namespace {

constexpr std::size_t NameField = 0;
constexpr std::size_t ValueField = 1;

}  // namespace

ParamList::Position ParamList::FindParam(std::string_view name) const {
    const NameMatch matches(name);
    if (matches.IsBlank()) {
        return NoPosition;
    }
    for (Position pos = m_head; pos != NoPosition; pos = NodeAt(pos).next) {
        if (matches(GetField(NodeAt(pos).entry, NameField, Tab))) {
            return pos;
        }
    }
    return NoPosition;
}

std::optional<std::string> ParamList::GetParam(std::string_view name) const {
    const Position pos = FindParam(name);
    if (pos == NoPosition) {
        return std::nullopt;
    }
    return std::string(GetField(NodeAt(pos).entry, ValueField, Tab));
}

void ParamList::SetParam(std::string_view name, std::string_view value) {
    std::string entry(Trim(name));
    entry += Tab;
    entry += value;
    const Position pos = FindParam(name);
    if (pos == NoPosition) {
        AppendRaw(std::move(entry));
    } else {
        NodeAt(pos).entry = std::move(entry);
    }
}

bool ParamList::RemoveParam(std::string_view name) {
    if (name.empty()) {
        *this = ParamList();
    } else if (const Position pos = FindParam(name); pos != NoPosition) {
        Remove(pos);
    }
    return true;
}

bool ParamList::GetNextParam(Position& pos, std::string& name, std::string& value) const {
    if (!IsEntry(pos)) {
        return false;
    }
    const Node& node = NodeAt(pos);
    name = GetField(node.entry, NameField, Tab);
    value = GetField(node.entry, ValueField, Tab);
    pos = node.next;
    return true;
}

void ParamList::AppendRaw(std::string entry) {
    const Position pos = TakeNode();
    NodeAt(pos) = {std::move(entry), m_tail, NoPosition, true};
    (m_tail == NoPosition ? m_head : NodeAt(m_tail).next) = pos;
    m_tail = pos;
    ++m_count;
}

bool ParamList::IsEntry(Position pos) const {
    return pos > NoPosition && static_cast<std::size_t>(pos) <= m_nodes.size() && NodeAt(pos).used;
}

ParamList::Position ParamList::TakeNode() {
    if (m_free != NoPosition) {
        return std::exchange(m_free, NodeAt(m_free).next);
    }
    if (m_nodes.size() >= static_cast<std::size_t>(std::numeric_limits<Position>::max())) {
        throw std::length_error("ParamList: more entries than positions");
    }
    m_nodes.emplace_back();
    return static_cast<Position>(m_nodes.size());
}

void ParamList::Remove(Position pos) {
    const Node& node = NodeAt(pos);
    (node.previous == NoPosition ? m_head : NodeAt(node.previous).next) = node.next;
    (node.next == NoPosition ? m_tail : NodeAt(node.next).previous) = node.previous;
    NodeAt(pos) = {std::string(), NoPosition, m_free, false};
    m_free = pos;
    --m_count;
}

}  // namespace veygrid
