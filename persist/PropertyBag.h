// Properties in a container's bag of named values.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "grid/GridProperties.h"
#include "persist/PropertyExchange.h"

namespace veygrid {

// A number, which a yes or no is too (1 or 0), or a text in code page 936. Colours are above -1.
using BagValue = std::variant<std::int64_t, std::string>;

// The container's named values.
class PropertyBag {
  public:
    virtual ~PropertyBag() = default;

    // The value stored for the name, as a text or a number whatever the kind that is wanted;
    // nothing when the bag has no such name.
    virtual std::optional<BagValue> Read(std::string_view name, PropertyKind kind) = 0;
    virtual void Write(std::string_view name, PropertyKind kind, const BagValue& value) = 0;
};

// Under the property's own names, with "_Version", "_ExtentX" and "_ExtentY" in front; a font is a
// text of 120 hexadecimal digits and missing when it is the container's. On loading, a decimal text
// does for a number, "True" and "False" for a yes or no, and a number for a text. What is missing,
// too large or not to be converted gets the default.
void SaveToBag(PropertyBag& bag, const StockProperties& stock, const GridProperties& properties);
void LoadFromBag(PropertyBag& bag, StockProperties& stock, GridProperties& properties);

}  // namespace veygrid
