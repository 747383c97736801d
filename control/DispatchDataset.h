// A host's dataset, reached by the numbers of its methods.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "grid/Dataset.h"
#include "platform/win32/ole/AutomationTypes.h"
#include "platform/win32/ole/Platform.h"

namespace veygrid {

// The numbers are fixed; the names of the methods are the host's.
namespace datasetid {
inline constexpr DISPID GetCellValue = 3;
inline constexpr DISPID GetColCount = 7;
inline constexpr DISPID GetRowCount = 8;
inline constexpr DISPID SetColCaption = 9;
inline constexpr DISPID GetColName = 10;
}  // namespace datasetid

// Values become text as the platform converts them for the user's locale; one that has no text,
// such as Null or an array, is empty. A call that fails, or a count that is no number, throws
// DescribedError with what the object said of it.
class DispatchDataset final : public Dataset {
  public:
    explicit DispatchDataset(ComPtr<IDispatch> object) : m_object(std::move(object)) {}

    std::string GetCellValue(std::int32_t row, std::int32_t col) override;
    std::int32_t GetColCount() override;
    std::int32_t GetRowCount() override;
    std::int32_t SetColCaption(std::int32_t col, std::string_view text) override;
    std::string GetColName(std::int32_t col) override;

  private:
    ComPtr<IDispatch> m_object;
};

}  // namespace veygrid
