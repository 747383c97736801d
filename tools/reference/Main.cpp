// Writes the automation reference: the members from the tables that IDispatch runs from, the words
// from a file. usage: reference PROSE ENGLISH CHINESE
// It fails when a member has no words, or the words name a member that the tables lack.
#include <algorithm>
#include <cctype>
#include <cstdio>
#include <exception>
#include <fstream>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "control/AutomationTable.h"
#include "control/EventTable.h"
#include "tools/reference/Prose.h"

namespace veygrid::reference {

namespace {

// The texts that differ between the two pages.
struct Language {
    std::string key;
    std::string property;
    std::string indexed;
    std::string method;
    std::string event;
    std::string def;
    std::string write;
    std::string optional;
    std::string unlisted;
    std::string ambient;
    std::string comma;
};

const Language English{
    "en",    "property",        "indexed property",        "method",           "event", "default",
    "write", "may be left out", "not in the type library", "as the host says", ", "};
const Language Chinese{"zh",       "属性",   "带下标的属性", "方法",       "事件", "默认值",
                       "写入方式", "可省略", "不在类型库中", "由宿主决定", "，"};

// One member as the page shows it.
struct Entry {
    std::string name;
    DISPID id = 0;
    std::string words;  // key in the prose
    enum class Kind { Property, Indexed, Method, Event } kind = Kind::Property;
    std::string declaration{};
    char write = '-';
    std::string optional{};
    bool listed = true;

    bool HasDefault() const { return kind == Kind::Property || kind == Kind::Indexed; }
};

struct Chapter {
    std::string className;
    bool events = false;
    std::vector<Entry> entries{};
};

std::vector<std::string> Split(std::string_view text) {
    std::vector<std::string> parts;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find(' ', start), text.size());
        parts.emplace_back(text.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

std::string TypeName(const ValueType& type) {
    return std::string(type.name) + (type.isResultPointer ? "*" : "");
}

// "(long nRow, BSTR* pName)"; empty for no parameters of a property.
std::string Parameters(const ValueType* types, std::size_t count, std::string_view names) {
    const std::vector<std::string> named = Split(names);
    if (named.size() != count) {
        throw std::runtime_error("parameters without names: " + std::string(names));
    }
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += (i == 0 ? "" : ", ") + TypeName(types[i]) + " " + named[i];
    }
    return "(" + text + ")";
}

Entry EntryOf(const std::string& className, const DispatchMember& member) {
    Entry entry{.name = std::string(member.name),
                .id = member.id,
                .words = className + "." + std::string(member.name),
                .write = static_cast<char>(member.write),
                .listed = member.listed};
    const std::string result = TypeName(member.get.result) + " " + entry.name;
    const std::string parameters =
        member.kind == MemberKind::Property
            ? ""
            : Parameters(member.get.parameters.data(), member.get.count, member.parameterNames);
    entry.declaration = result + parameters;
    entry.kind = member.kind == MemberKind::Method            ? Entry::Kind::Method
                 : member.kind == MemberKind::IndexedProperty ? Entry::Kind::Indexed
                                                              : Entry::Kind::Property;
    if (member.optional > 0) {
        entry.optional = Split(member.parameterNames).back();
    }
    return entry;
}

Entry EntryOf(const EventDescription& event) {
    const std::string name(event.name);
    return {.name = name,
            .id = event.id,
            .words = "VeyGrid.Event:" + name,
            .kind = Entry::Kind::Event,
            .declaration =
                name + Parameters(event.parameters.data(), event.count, event.parameterNames)};
}

Chapter MembersOf(const std::string& className, const DispatchTable& table) {
    Chapter chapter{.className = className};
    for (const DispatchMember& member : table.Members()) {
        chapter.entries.push_back(EntryOf(className, member));
    }
    return chapter;
}

std::vector<Chapter> Surface() {
    std::vector<Chapter> chapters{MembersOf("VeyGrid", VeyGridTable())};
    Chapter events{.className = "VeyGrid", .events = true};
    for (const EventDescription& event : VeyGridEvents()) {
        events.entries.push_back(EntryOf(event));
    }
    chapters.push_back(std::move(events));
    chapters.push_back(MembersOf("CellFormat", CellFormatTable()));
    chapters.push_back(MembersOf("FormObject", FormObjectTable()));
    return chapters;
}

// What the words of a member lack or have too much, a line each.
std::string Complaints(const Entry& entry, const Prose& prose) {
    const auto found = prose.find(entry.words);
    if (found == prose.end()) {
        return "no words for " + entry.words + "\n";
    }
    std::string complaints;
    for (const char* key : {"en", "zh", "example"}) {
        if (!found->second.contains(key)) {
            complaints += std::string("no ") + key + " for " + entry.words + "\n";
        }
    }
    if (found->second.contains("default") != entry.HasDefault()) {
        complaints += "a default for " + entry.words + " is missing or too much\n";
    }
    return complaints;
}

// Every member has its words, and every entry of words its member.
void Compare(const std::vector<Chapter>& chapters, const Prose& prose) {
    std::string complaints;
    std::set<std::string> members;
    for (const Chapter& chapter : chapters) {
        for (const Entry& entry : chapter.entries) {
            members.insert(entry.words);
            complaints += Complaints(entry, prose);
        }
    }
    for (const auto& [name, words] : prose) {
        if (!name.starts_with("Page.") && !members.contains(name)) {
            complaints += "words for " + name + ", which is no member\n";
        }
    }
    if (!complaints.empty()) {
        throw std::runtime_error(complaints);
    }
}

class Page {
  public:
    Page(const Prose& prose, const Language& language) : m_prose(prose), m_language(language) {}

    std::string Write(const std::vector<Chapter>& chapters) {
        Passage("Page.Head");
        for (const Chapter& chapter : chapters) {
            m_text += "\n";
            Passage(PassageOf(chapter));
            Contents(chapter);
        }
        for (const Chapter& chapter : chapters) {
            m_text += "\n## " + Title(chapter) + "\n";
            for (const Entry& entry : chapter.entries) {
                Member(entry);
            }
        }
        return m_text;
    }

  private:
    static std::string PassageOf(const Chapter& chapter) {
        return "Page." + chapter.className + (chapter.events ? "Events" : "");
    }
    // "VeyGrid", and for its events "VeyGrid event".
    std::string Title(const Chapter& chapter) const {
        return chapter.events ? chapter.className + " " + m_language.event : chapter.className;
    }
    void Passage(const std::string& name) { m_text += m_prose.at(name).at(m_language.key) + "\n"; }

    void Contents(const Chapter& chapter) {
        m_text += "\n";
        const char* separator = "";
        for (const Entry& entry : chapter.entries) {
            m_text += separator + ("[`" + entry.name + "`](#" + Anchor(entry) + ")");
            separator = " ·\n";
        }
        m_text += "\n";
    }
    static std::string Anchor(const Entry& entry) {
        std::string anchor;
        for (const char c : entry.words) {
            if (c == '.' || c == ':') {
                anchor += '-';
            } else {
                anchor += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            }
        }
        return anchor;
    }

    void Member(const Entry& entry) {
        const Words& words = m_prose.at(entry.words);
        m_text += "\n### <a id=\"" + Anchor(entry) + "\"></a>" + entry.name + "\n\n`" +
                  entry.declaration + "`  \nDISPID " + std::to_string(entry.id) + m_language.comma +
                  KindName(entry);
        if (entry.HasDefault() && words.at("default") != "none") {
            m_text += m_language.comma + m_language.def + " " + Default(words.at("default"));
        }
        if (entry.kind == Entry::Kind::Property && entry.write != '-') {
            m_text += m_language.comma + m_language.write + " " + entry.write;
        }
        if (!entry.optional.empty()) {
            m_text += m_language.comma + "`" + entry.optional + "` " + m_language.optional;
        }
        if (!entry.listed) {
            m_text += m_language.comma + m_language.unlisted;
        }
        m_text +=
            "\n\n" + words.at(m_language.key) + "\n\n```vb\n" + words.at("example") + "\n```\n";
    }
    const std::string& KindName(const Entry& entry) const {
        switch (entry.kind) {
            case Entry::Kind::Property:
                return m_language.property;
            case Entry::Kind::Indexed:
                return m_language.indexed;
            case Entry::Kind::Method:
                return m_language.method;
            default:
                return m_language.event;
        }
    }
    std::string Default(const std::string& value) const {
        return value == "ambient" ? m_language.ambient : "`" + value + "`";
    }

    const Prose& m_prose;
    const Language& m_language;
    std::string m_text;
};

void WriteFile(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    if (!file) {
        throw std::runtime_error(path + ": cannot be written");
    }
}

}  // namespace

}  // namespace veygrid::reference

int main(int count, char** arguments) {
    using namespace veygrid::reference;
    if (count != 4) {
        std::fputs("usage: reference PROSE ENGLISH CHINESE\n", stderr);
        return 2;
    }
    try {
        const std::vector<Chapter> chapters = Surface();
        const Prose prose = ReadProse(arguments[1]);
        Compare(chapters, prose);
        WriteFile(arguments[2], Page(prose, English).Write(chapters));
        WriteFile(arguments[3], Page(prose, Chinese).Write(chapters));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
