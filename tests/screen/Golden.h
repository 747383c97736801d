// Long expected texts, kept in files beside the tests.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>

namespace veygrid {

inline std::filesystem::path GoldenPath(std::string_view name, std::string_view ending) {
    return std::filesystem::path(VEYGRID_TESTS_DIR) / "screen" / "goldens" /
           (std::string(name) + std::string(ending));
}

inline std::string ReadText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Number and text of the first line that differs.
inline std::string FirstDifference(const std::string& expected, const std::string& actual) {
    std::istringstream expectedLines(expected);
    std::istringstream actualLines(actual);
    for (int number = 1;; ++number) {
        std::string want;
        std::string have;
        const bool wants = static_cast<bool>(std::getline(expectedLines, want));
        const bool has = static_cast<bool>(std::getline(actualLines, have));
        if (want != have || wants != has || !wants) {
            return "line " + std::to_string(number) + "\n  golden: " + (wants ? want : "(end)") +
                   "\n  actual: " + (has ? have : "(end)");
        }
    }
}

// Holds the text against goldens/NAME.txt. One that differs is left in NAME.new beside it, for a
// person to read and to promote.
inline void ExpectGolden(std::string_view name, const std::string& actual) {
    const std::filesystem::path fresh = GoldenPath(name, ".new");
    const std::string expected = ReadText(GoldenPath(name, ".txt"));
    if (expected == actual) {
        std::error_code ignored;
        std::filesystem::remove(fresh, ignored);
        return;
    }
    std::ofstream(fresh, std::ios::binary) << actual;
    ADD_FAILURE() << "golden " << name << ": " << FirstDifference(expected, actual);
}

}  // namespace veygrid
