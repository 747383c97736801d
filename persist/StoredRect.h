// A rectangle as files hold it.
#pragma once

#include <cstdint>

namespace veygrid {

// Four edges in file order; pixels or cells, as the holder says.
struct StoredRect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    friend constexpr bool operator==(const StoredRect&, const StoredRect&) = default;
};

static_assert(sizeof(StoredRect) == 16);

}  // namespace veygrid
