// The persisted properties in one table, and the one routine that loads, saves and resets them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "grid/CellFormat.h"
#include "grid/GridProperties.h"
#include "persist/Archive.h"

namespace veygrid {

// Major number in the high word, minor in the low word. Whatever version is loaded, the state is of
// this one from then on.
inline constexpr std::uint32_t PersistVersion = 0x00010000;
inline constexpr std::string_view PersistVersionName = "_Version";

// A font record that names no font.
inline constexpr LogFont AmbientFont{.lfWeight = NoFontWeight};

// The kinds stand in the order of the alternatives of PropertyMember.
enum class PropertyKind : std::uint8_t { Bool, Short, Long, Color, String };

using PropertyMember = std::variant<bool GridProperties::*, std::int16_t GridProperties::*,
                                    std::int32_t GridProperties::*, std::uint32_t GridProperties::*,
                                    std::string GridProperties::*>;

struct PropertyEntry {
    std::string_view Name;
    PropertyMember Member;

    constexpr PropertyKind Kind() const { return static_cast<PropertyKind>(Member.index()); }
};

// The 41 properties in the order of exchange. The default of each is the member's value in a fresh
// GridProperties.
std::span<const PropertyEntry> PropertyTable();

// One direction of the exchange. Each operation stands for one value: it gives the value away, or
// replaces it by a loaded one, or by the default where there is none.
class PropertyExchanger {
  public:
    virtual ~PropertyExchanger() = default;

    // Gives `current` away, or takes a loaded version and drops it.
    virtual void Version(std::uint32_t current) = 0;
    virtual void Bool(std::string_view name, bool& value, bool defaultValue) = 0;
    virtual void Short(std::string_view name, std::int16_t& value, std::int16_t defaultValue) = 0;
    virtual void Long(std::string_view name, std::int32_t& value, std::int32_t defaultValue) = 0;
    virtual void Color(std::string_view name, std::uint32_t& value, std::uint32_t defaultValue) = 0;
    virtual void String(std::string_view name, std::string& value,
                        const std::string& defaultValue) = 0;
    // The default is the container's ambient font: a record that names no font.
    virtual void Font(std::string_view name, LogFont& value) = 0;
};

// Exchanges the version, the extent and stock properties, and then the 41 properties. Members are
// written directly: nothing that a host's write would cause happens. The default of the extent is
// the present one, so that a reset keeps a placed control's size.
void DoPropExchange(PropertyExchanger& exchanger, StockProperties& stock,
                    GridProperties& properties);

// The property block of the grid file. Loading throws ArchiveError as the archive does; what came
// before stays.
void SaveProperties(ArchiveWriter& archive, const StockProperties& stock,
                    const GridProperties& properties);
void LoadProperties(ArchiveReader& archive, StockProperties& stock, GridProperties& properties);

// Every property of the exchange back to its default.
void ResetProperties(StockProperties& stock, GridProperties& properties);

}  // namespace veygrid
