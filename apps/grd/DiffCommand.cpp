// The command that tells how two grid files differ.
#include <algorithm>
#include <map>
#include <optional>
#include <vector>

#include "apps/grd/CellAddress.h"
#include "apps/grd/CellText.h"
#include "apps/grd/Commands.h"
#include "apps/grd/ConsoleOutput.h"
#include "apps/grd/GridFacts.h"
#include "apps/grd/JsonText.h"
#include "apps/grd/Trouble.h"
#include "valuetext/Fields.h"
#include "valuetext/MultiByte.h"

namespace veygrid {

namespace {

// One thing that the files say differently. A side without a value says nothing about it.
struct Difference {
    std::string Part;   // "cell", "property" ...
    std::string Where;  // "R1C1", a name; may be empty
    std::string Field;  // of a record; may be empty
    std::optional<FactValue> First;
    std::optional<FactValue> Second;
};

// Takes the differences in the order in which the files say them.
class DifferenceSink {
  public:
    DifferenceSink(TextOutput& out, const DiffOptions& options) : m_out(out), m_options(options) {}

    void Put(const Difference& difference) {
        if (m_options.json) {
            m_out.Text() += (m_count == 0 ? "[\n" : ",\n") + AsJson(difference);
        } else if (!m_options.brief) {
            m_out.Text() += AsText(difference);
        }
        ++m_count;
        m_out.SpillIfLarge();
    }

    // The exit code.
    int Finish() {
        if (m_options.json) {
            m_out.Text() += m_count == 0 ? "[]\n" : "\n]\n";
        } else if (m_options.brief && m_count != 0) {
            m_out.Text() += m_options.first + " and " + m_options.second + " differ\n";
        }
        return m_count == 0 ? ExitOk : ExitDiffers;
    }

  private:
    static std::string AsText(const Difference& difference) {
        const auto side = [](const std::optional<FactValue>& value) {
            return value ? TextOfFact(*value) : "nothing";
        };
        std::string second = side(difference.Second);
        // Blocks of one length look the same.
        second += second == side(difference.First) ? " of other content" : "";
        return difference.Part + (difference.Where.empty() ? "" : " ") + difference.Where +
               (difference.Field.empty() ? "" : " ") + difference.Field + ": " +
               side(difference.First) + " -> " + second + "\n";
    }

    static std::string AsJson(const Difference& difference) {
        std::string json = "{\"part\":";
        AppendJsonString(json, difference.Part);
        const auto add = [&](const char* name, const std::string& text) {
            if (!text.empty()) {
                json += std::string(",\"") + name + "\":";
                AppendJsonString(json, text);
            }
        };
        add("where", difference.Where);
        add("field", difference.Field);
        json += ",\"first\":" + (difference.First ? JsonOfFact(*difference.First) : "null");
        json += ",\"second\":" + (difference.Second ? JsonOfFact(*difference.Second) : "null");
        return json + "}";
    }

    TextOutput& m_out;
    const DiffOptions& m_options;
    std::size_t m_count = 0;
};

void CompareFacts(DifferenceSink& sink, const std::string& part, const std::string& where,
                  const Facts& first, const Facts& second) {
    for (std::size_t i = 0; i < std::min(first.size(), second.size()); ++i) {
        if (first[i].Value != second[i].Value) {
            sink.Put({part, where, first[i].Name, first[i].Value, second[i].Value});
        }
    }
}

// The facts that are not the default, as one value.
FactValue SummaryOf(const Facts& facts) {
    std::string words;
    for (const Fact& fact : facts) {
        if (!fact.IsDefault()) {
            words += (words.empty() ? "" : ", ") + fact.Name + " " + TextOfFact(fact.Value);
        }
    }
    return WordValue{words.empty() ? "all defaults" : words};
}

// Keys whose values differ or that only one map has, row by row.
template <class Value>
std::vector<CellPos> DifferingKeys(const GridMap<Value>& first, const GridMap<Value>& second) {
    std::vector<CellPos> keys;
    for (const auto& [key, value] : first) {
        const Value* const other = second.Find(key);
        if (other == nullptr || !(*other == value)) {
            keys.push_back(key);
        }
    }
    for (const auto& [key, value] : second) {
        if (first.Find(key) == nullptr) {
            keys.push_back(key);
        }
    }
    std::sort(keys.begin(), keys.end(),
              [](CellPos a, CellPos b) { return a.Row != b.Row ? a.Row < b.Row : a.Col < b.Col; });
    return keys;
}

FactValue ValueOfEntry(const std::string& text) {
    return text;
}
FactValue ValueOfEntry(std::int32_t number) {
    return std::int64_t{number};
}

template <class Value>
void CompareMaps(DifferenceSink& sink, const std::string& part, const GridMap<Value>& first,
                 const GridMap<Value>& second) {
    const auto side = [](const Value* value) {
        return value == nullptr ? std::nullopt : std::optional(ValueOfEntry(*value));
    };
    for (const CellPos key : DifferingKeys(first, second)) {
        sink.Put({part, CellName(key), "", side(first.Find(key)), side(second.Find(key))});
    }
}

void CompareFormats(DifferenceSink& sink, const FormatMap& first, const FormatMap& second) {
    const auto side = [](const CCellFormat* format) {
        return format == nullptr ? std::nullopt : std::optional(SummaryOf(FormatFacts(*format)));
    };
    for (const CellPos key : DifferingKeys(first, second)) {
        const CCellFormat* const a = first.Find(key);
        const CCellFormat* const b = second.Find(key);
        if (a != nullptr && b != nullptr) {
            CompareFacts(sink, "format", CellName(key), FormatFacts(*a), FormatFacts(*b));
        } else {
            sink.Put({"format", CellName(key), "", side(a), side(b)});
        }
    }
}

// An entry of a list, told apart from others of its name by the number of those before it.
struct ListKey {
    std::string Name;
    std::size_t Before;
    // NOLINTNEXTLINE(modernize-use-nullptr): the 0 is the compiler's own
    friend auto operator<=>(const ListKey&, const ListKey&) = default;
};

// Keys of the items in their order. `nameOf` gives the name under which an item is found.
template <class Items, class NameOf>
std::vector<ListKey> KeysOf(const Items& items, NameOf nameOf) {
    std::map<std::string, std::size_t> seen;
    std::vector<ListKey> keys;
    for (const auto& item : items) {
        const std::string name = nameOf(item);
        keys.push_back({name, seen[name]++});
    }
    return keys;
}

// Calls `compare(first item or null, second item or null)` for each key of either list, those of
// the first in front. True when both lists have the same keys in another order.
template <class Item, class NameOf, class Compare>
bool CompareLists(const std::vector<Item>& first, const std::vector<Item>& second, NameOf nameOf,
                  Compare compare) {
    const std::vector<ListKey> firstKeys = KeysOf(first, nameOf);
    const std::vector<ListKey> secondKeys = KeysOf(second, nameOf);
    std::map<ListKey, const Item*> left;
    for (std::size_t i = 0; i < second.size(); ++i) {
        left[secondKeys[i]] = &second[i];
    }
    bool missing = false;
    for (std::size_t i = 0; i < first.size(); ++i) {
        const auto other = left.find(firstKeys[i]);
        compare(&first[i], other == left.end() ? nullptr : other->second);
        missing = missing || other == left.end();
        if (other != left.end()) {
            left.erase(other);
        }
    }
    for (std::size_t i = 0; i < second.size(); ++i) {
        if (left.contains(secondKeys[i])) {
            compare(nullptr, &second[i]);
            missing = true;
        }
    }
    return !missing && firstKeys != secondKeys;
}

std::vector<std::string> EntriesOf(const ParamList& params) {
    std::vector<std::string> entries;
    params.ForEachRaw([&](const std::string& entry) { entries.push_back(entry); });
    return entries;
}

// The name of a parameter's entry on one line in UTF-8.
std::string NameOfEntry(const std::string& entry) {
    std::string name;
    AppendOnOneLine(name, GetField(entry, 0, Tab));
    return name;
}

// All behind the name, what a second tab cuts off included.
std::optional<FactValue> ValueOfEntry(const std::string* entry) {
    if (entry == nullptr) {
        return std::nullopt;
    }
    const std::size_t tab = entry->find(Tab);
    return tab == std::string::npos ? std::string() : entry->substr(tab + 1);
}

template <class Items, class NameOf>
FactValue JoinedNames(const Items& items, NameOf nameOf) {
    std::string joined;
    for (const auto& item : items) {
        joined.append(joined.empty() ? "" : " ").append(nameOf(item));
    }
    return WordValue{joined};
}

void CompareParameters(DifferenceSink& sink, const ParamList& first, const ParamList& second) {
    const std::vector<std::string> a = EntriesOf(first);
    const std::vector<std::string> b = EntriesOf(second);
    const auto searchedName = [](const std::string& entry) {
        return UpperCase(Trim(GetField(entry, 0, Tab)));
    };
    const auto compare = [&](const std::string* x, const std::string* y) {
        if (x == nullptr || y == nullptr || *x != *y) {
            sink.Put({"parameter", NameOfEntry(x != nullptr ? *x : *y), "", ValueOfEntry(x),
                      ValueOfEntry(y)});
        }
    };
    if (CompareLists(a, b, searchedName, compare)) {
        sink.Put(
            {"parameter order", "", "", JoinedNames(a, NameOfEntry), JoinedNames(b, NameOfEntry)});
    }
}

std::string IdOf(const GuiObjRecord& object) {
    return std::to_string(object.m_nCtrlID);
}

std::optional<FactValue> SummaryOf(const GuiObjRecord* object) {
    return object == nullptr ? std::nullopt : std::optional(SummaryOf(ObjectFacts(*object)));
}

void CompareObjects(DifferenceSink& sink, const GridDocument& first, const GridDocument& second) {
    const std::vector<GuiObjRecord> a(first.m_guiObjects.begin(), first.m_guiObjects.end());
    const std::vector<GuiObjRecord> b(second.m_guiObjects.begin(), second.m_guiObjects.end());
    const auto compare = [&](const GuiObjRecord* x, const GuiObjRecord* y) {
        const std::string id = IdOf(x != nullptr ? *x : *y);
        // Objects of different families have no fields in common.
        if (x != nullptr && y != nullptr && x->Window.index() == y->Window.index()) {
            CompareFacts(sink, "form object", id, ObjectFacts(*x), ObjectFacts(*y));
        } else {
            sink.Put({"form object", id, "", SummaryOf(x), SummaryOf(y)});
        }
    };
    if (CompareLists(a, b, IdOf, compare)) {
        sink.Put({"form object order", "", "", JoinedNames(a, IdOf), JoinedNames(b, IdOf)});
    }
}

void CompareGrids(DifferenceSink& sink, const Grid& a, const Grid& b) {
    const GridStore& first = a.Store;
    const GridStore& second = b.Store;
    CompareFacts(sink, "property", "", PropertyFacts(a), PropertyFacts(b));
    CompareMaps(sink, "row height", first.RowHeightMap, second.RowHeightMap);
    CompareMaps(sink, "column width", first.ColWidthMap, second.ColWidthMap);
    CompareMaps(sink, "row header", first.RowHeaderMap, second.RowHeaderMap);
    CompareMaps(sink, "column header", first.ColHeaderMap, second.ColHeaderMap);
    CompareMaps(sink, "row name", first.RowNameMap, second.RowNameMap);
    CompareMaps(sink, "column name", first.ColNameMap, second.ColNameMap);
    CompareMaps(sink, "row info", first.RowInfoMap, second.RowInfoMap);
    CompareMaps(sink, "column info", first.ColInfoMap, second.ColInfoMap);
    CompareMaps(sink, "cell", first.CellTextMap, second.CellTextMap);
    CompareParameters(sink, first.Params, second.Params);
    CompareFormats(sink, first.CellFormatMap, second.CellFormatMap);
    CompareObjects(sink, a.Document, b.Document);
    CompareFacts(sink, "document", "", DocumentFacts(a.Document), DocumentFacts(b.Document));
}

}  // namespace

int RunCommand(Session& session, const DiffOptions& options) {
    const Grid& first = LoadGrid(session, options.first);
    const Grid& second = LoadGrid(session, options.second);
    int code = ExitOk;
    WriteText(session, "", [&](TextOutput& out) {
        DifferenceSink sink(out, options);
        CompareGrids(sink, first, second);
        code = sink.Finish();
    });
    return code;
}

}  // namespace veygrid
