// Fuzz target: a statement and a clause, held against the literal routines and put through a sheet.
#include <algorithm>
#include <string>

#include "binding/DataSourceText.h"
#include "binding/SqlText.h"
#include "fuzz/FuzzTools.h"
#include "tests/binding/SqlTextModel.h"
#include "valuetext/Fields.h"

namespace veygrid {
namespace {

// The literal routines are quadratic.
constexpr std::size_t LongestForModel = 4096;

void CheckAgainstModel(const std::string& text) {
    Claim(SqlFromList(text) == model::FromList(text), "table list is the literal one");
    Claim(SqlSelectList(text) == model::SelectList(text), "select list is the literal one");
    Claim(SqlTail(text) == model::Tail(text), "tail is the literal one");
    Claim(SqlHostColumns(text).value_or("<null>") == model::HostColumns(text),
          "columns for the host are the literal ones");
    Claim(SqlHostTables(text).value_or("<null>") == model::HostTables(text),
          "tables for the host are the literal ones");
    Claim(CountSelectColumns(text) == model::CountColumns(text), "count is the literal one");
    Claim(MaskTopCommas(text, '|') == model::Mask(text, '|'), "mask is the literal one");
    Claim(TablesFromColumns(text) == model::Tables(text), "tables are the literal ones");
}

void CheckCuts(std::string_view text) {
    for (const std::string_view part : {SqlFromList(text), SqlSelectList(text), SqlTail(text)}) {
        Claim(LiesIn(text, part), "a result lies in the text");
        Claim(IsTrimmed(part), "a result is trimmed");
    }
    const std::string_view tail = SqlTail(text);
    Claim(tail.empty() || IsCharStart(text, static_cast<std::size_t>(tail.data() - text.data())),
          "the tail begins with a character");
}

void CheckMask(std::string_view list) {
    std::string masked = MaskTopCommas(list, VerticalTab);
    Claim(masked.size() == Trim(list).size(), "masking keeps the length");
    std::replace(masked.begin(), masked.end(), VerticalTab, ',');
    std::string plain(Trim(list));
    std::replace(plain.begin(), plain.end(), VerticalTab, ',');
    Claim(masked == plain, "masking changes nothing but commas");
}

void CheckSheet(const std::string& statement, std::string_view clause) {
    StoreWatcher watcher;
    GridStore store(watcher);
    store.Properties.DataSource = statement;
    OnDataSourceChanged(store);
    Claim(store.ColNameMap.Check(), "the map of names is sound");
    Claim(static_cast<std::int32_t>(store.ColNameMap.Count()) == CountSelectColumns(statement),
          "every column has a name");
    for (const auto& entry : store.ColNameMap) {
        Claim(IsTrimmed(entry.value), "a name is trimmed");
    }
    const std::string columns(SqlSelectList(statement));
    const std::string tables(SqlFromList(statement));
    SetDSWhere(store, clause);
    const std::string& changed = store.Properties.DataSource;
    Claim(statement.empty() ? changed.empty()
                            : changed.starts_with(SqlStatement(columns, tables, "")) &&
                                  changed.ends_with(TrimLeft(clause)),
          "a new clause follows the columns and tables");
    RebuildDataSource(store);
    Claim(TrimRight(store.Properties.DataSource) == store.Properties.DataSource,
          "a rebuilt statement ends in no blank");
}

}  // namespace
}  // namespace veygrid

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace veygrid;
    std::string_view rest = TextOf(data, size);
    const std::string clause(TakeLine(rest));
    const std::string statement(rest);
    CheckCuts(statement);
    CheckMask(statement);
    CheckSheet(statement, clause);
    if (statement.size() <= LongestForModel) {
        CheckAgainstModel(statement);
    }
    return 0;
}
