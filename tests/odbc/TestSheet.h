// The sheet's side of saving, as a test sets it.
#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "apps/host/odbc/ChangeSaver.h"

namespace veygrid {

class TestSheet final : public ChangedSheet {
  public:
    std::vector<LogEntry> log;
    std::map<std::pair<long, int>, std::u16string> texts;
    std::vector<int> keys;

    void Type(long row, int col, std::u16string text) {
        log.push_back({row, col});
        texts[{row, col}] = std::move(text);
    }

    std::vector<LogEntry> ModifiedLog() override { return log; }
    std::u16string TypedText(long row, int col) override {
        const auto found = texts.find({row, col});
        return found == texts.end() ? u"" : found->second;
    }
    bool IsKeyColumn(int col) override {
        return std::find(keys.begin(), keys.end(), col) != keys.end();
    }
    void ResetModifiedLog() override { log.clear(); }
};

}  // namespace veygrid
