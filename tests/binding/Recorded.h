// What a sheet and its dataset are asked for, one line a call.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "grid/GridStore.h"

namespace veygrid {

using Lines = std::vector<std::string>;

class LinesWatcher final : public StoreWatcher {
  public:
    explicit LinesWatcher(Lines& lines) : m_lines(lines) {}

    void SetModifiedFlag(bool modified) override {
        m_lines.emplace_back(modified ? "SetModifiedFlag TRUE" : "SetModifiedFlag FALSE");
    }
    void FireModified() override {
        m_lines.emplace_back("Modified");
        if (onModified) {
            onModified();
        }
    }
    void InvalidateControl() override { m_lines.emplace_back("InvalidateControl"); }

    std::function<void()> onModified;

  private:
    Lines& m_lines;
};

// Answers what it was told to, and runs the host's code in each call first. Its end is a line too.
class LinesDataset final : public Dataset {
  public:
    LinesDataset(Lines& lines, std::string name, std::int32_t rows, std::int32_t cols)
        : rows(rows), cols(cols), m_lines(lines), m_name(std::move(name)) {}
    LinesDataset(const LinesDataset&) = delete;
    LinesDataset& operator=(const LinesDataset&) = delete;
    ~LinesDataset() override {
        Add("released");
        if (onRelease) {
            onRelease();
        }
    }

    std::string GetCellValue(std::int32_t row, std::int32_t col) override {
        Called("GetCellValue " + std::to_string(row) + "," + std::to_string(col));
        return m_name + std::to_string(row) + std::to_string(col);
    }
    std::int32_t GetColCount() override {
        Called("GetColCount");
        return cols;
    }
    std::int32_t GetRowCount() override {
        Called("GetRowCount");
        return rows;
    }
    std::int32_t SetColCaption(std::int32_t col, std::string_view text) override {
        Called("SetColCaption " + std::to_string(col) + " " + std::string(text));
        return 0;
    }
    std::string GetColName(std::int32_t col) override {
        Called("GetColName " + std::to_string(col));
        return m_name + ".C" + std::to_string(col);
    }

    std::int32_t rows;
    std::int32_t cols;
    std::function<void(const std::string& call)> onCall;
    std::function<void()> onRelease;

  private:
    void Add(const std::string& line) { m_lines.push_back(m_name + " " + line); }
    void Called(const std::string& call) {
        Add(call);
        if (onCall) {
            onCall(call);
        }
    }

    Lines& m_lines;
    std::string m_name;
};

}  // namespace veygrid
