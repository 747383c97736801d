// Writes the tables between code page 936 and Unicode as C++ array text, from ICU's mapping.
#include <unicode/ucnv.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

constexpr int FirstLead = 0x81;
constexpr int LastLead = 0xFE;
constexpr int FirstTrail = 0x40;
constexpr int LastTrail = 0xFE;
constexpr int TrailCount = LastTrail - FirstTrail + 1;

// The user-defined areas, which the system's own code page maps in order to the private use area
// and which ICU's table leaves out.
struct UserDefinedArea {
    int firstLead, lastLead, firstTrail, lastTrail, unicode;
};
constexpr std::array<UserDefinedArea, 3> UserDefinedAreas{{
    {0xAA, 0xAF, 0xA1, 0xFE, 0xE000},
    {0xF8, 0xFE, 0xA1, 0xFE, 0xE234},
    {0xA1, 0xA7, 0x40, 0xA0, 0xE4C6},
}};

using Table = std::vector<std::uint16_t>;

Table ReadPairs(UConverter* converter) {
    Table table(static_cast<std::size_t>((LastLead - FirstLead + 1) * TrailCount), 0);
    for (int lead = FirstLead; lead <= LastLead; ++lead) {
        for (int trail = FirstTrail; trail <= LastTrail; ++trail) {
            const std::array<char, 2> bytes{static_cast<char>(lead), static_cast<char>(trail)};
            std::array<UChar, 4> text{};
            UErrorCode error = U_ZERO_ERROR;
            const int length = ucnv_toUChars(converter, text.data(), static_cast<int>(text.size()),
                                             bytes.data(), static_cast<int>(bytes.size()), &error);
            if (U_FAILURE(error) || length != 1 || trail == 0x7F) {
                continue;
            }
            table[static_cast<std::size_t>((lead - FirstLead) * TrailCount + trail - FirstTrail)] =
                text[0];
        }
    }
    return table;
}

void AddUserDefinedAreas(Table& table) {
    for (const UserDefinedArea& area : UserDefinedAreas) {
        int unicode = area.unicode;
        for (int lead = area.firstLead; lead <= area.lastLead; ++lead) {
            for (int trail = area.firstTrail; trail <= area.lastTrail; ++trail) {
                if (trail == 0x7F) {
                    continue;
                }
                std::uint16_t& entry = table[static_cast<std::size_t>(
                    (lead - FirstLead) * TrailCount + trail - FirstTrail)];
                if (entry == 0) {
                    entry = static_cast<std::uint16_t>(unicode);
                }
                ++unicode;
            }
        }
    }
}

Table Invert(const Table& pairs) {
    Table table(0x10000, 0);
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        if (pairs[i] != 0 && table[pairs[i]] == 0) {
            const auto lead = static_cast<unsigned>(i) / TrailCount + FirstLead;
            const auto trail = static_cast<unsigned>(i) % TrailCount + FirstTrail;
            table[pairs[i]] = static_cast<std::uint16_t>(lead << 8 | trail);
        }
    }
    table[0x20AC] = 0x80;
    return table;
}

void Print(const char* name, const Table& table) {
    std::printf("constexpr std::uint16_t %s[%zu] = {", name, table.size());
    for (std::size_t i = 0; i < table.size(); ++i) {
        std::printf("%s%u,", i % 16 == 0 ? "\n" : "", static_cast<unsigned>(table[i]));
    }
    std::printf("\n};\n");
}

}  // namespace

int main() {
    UErrorCode error = U_ZERO_ERROR;
    UConverter* converter = ucnv_open("windows-936-2000", &error);
    if (U_FAILURE(error)) {
        std::fprintf(stderr, "MakeCodePage936: %s\n", u_errorName(error));
        return 1;
    }
    ucnv_setFallback(converter, false);
    ucnv_setToUCallBack(converter, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
    Table pairs = ReadPairs(converter);
    ucnv_close(converter);
    AddUserDefinedAreas(pairs);
    Print("PairsToUnicode", pairs);
    Print("UnicodeToPairs", Invert(pairs));
    return 0;
}
