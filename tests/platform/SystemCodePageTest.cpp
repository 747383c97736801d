// The tables of code page 936 held against the system's own conversion.
#if defined(_WIN32)

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <string>

#include "valuetext/CodePage936.h"
#include "valuetext/MultiByte.h"

namespace veygrid {
namespace {

constexpr UINT ChineseCodePage = 936;

std::u16string SystemDecode(const std::string& bytes) {
    std::array<wchar_t, 8> text{};
    const int length = MultiByteToWideChar(ChineseCodePage, MB_ERR_INVALID_CHARS, bytes.data(),
                                           static_cast<int>(bytes.size()), text.data(),
                                           static_cast<int>(text.size()));
    return {text.begin(), text.begin() + length};
}

TEST(SystemCodePage, EveryPairDecodesAsTheSystemDecodesIt) {
    int different = 0;
    for (int lead = 0x81; lead <= 0xFE; ++lead) {
        for (int trail = 0x40; trail <= 0xFE; ++trail) {
            if (trail == 0x7F) {
                continue;
            }
            const std::string bytes{static_cast<char>(lead), static_cast<char>(trail)};
            const std::u16string ours = Utf16FromCodePage936(bytes);
            const std::u16string theirs = SystemDecode(bytes);
            const bool bothNone = ours[0] == ReplacementCharacter && theirs.empty();
            if (!bothNone && ours != theirs && ++different <= 20) {
                ADD_FAILURE() << std::hex << lead << trail << " ours "
                              << static_cast<unsigned>(ours[0]) << " system "
                              << (theirs.empty() ? 0U : static_cast<unsigned>(theirs[0]));
            }
        }
    }
    EXPECT_EQ(different, 0);
}

TEST(SystemCodePage, EverySingleByteDecodesAsTheSystemDecodesIt) {
    for (int byte = 1; byte < 0x81; ++byte) {
        const std::string bytes{static_cast<char>(byte)};
        EXPECT_EQ(Utf16FromCodePage936(bytes), SystemDecode(bytes)) << byte;
    }
}

TEST(SystemCodePage, EveryCharacterEncodesAsTheSystemEncodesIt) {
    int different = 0;
    for (unsigned code = 1; code < 0xFFFF; ++code) {
        if (code >= 0xD800 && code <= 0xDFFF) {
            continue;
        }
        const auto unit = static_cast<wchar_t>(code);
        std::array<char, 8> bytes{};
        BOOL defaulted = FALSE;
        const int length =
            WideCharToMultiByte(ChineseCodePage, WC_NO_BEST_FIT_CHARS, &unit, 1, bytes.data(),
                                static_cast<int>(bytes.size()), nullptr, &defaulted);
        const std::string theirs(bytes.data(), static_cast<std::size_t>(length));
        std::vector<EncodeFault> faults;
        const std::string ours =
            CodePage936FromUtf16(std::u16string(1, static_cast<char16_t>(code)), &faults);
        if ((faults.empty() != (defaulted == FALSE) || (faults.empty() && ours != theirs)) &&
            ++different <= 20) {
            ADD_FAILURE() << std::hex << code << " ours lacks it: " << !faults.empty()
                          << ", system lacks it: " << defaulted;
        }
    }
    EXPECT_EQ(different, 0);
}

}  // namespace
}  // namespace veygrid

#endif
