// The tests run in a locale of UTF-8, which the system's ODBC wants; Wine takes its own from the
// environment.
#ifndef _WIN32
#include <gtest/gtest.h>

#include <clocale>

namespace veygrid {
namespace {

class Utf8Locale final : public testing::Environment {
  public:
    void SetUp() override { ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr); }
};

[[maybe_unused]] const testing::Environment* const utf8Locale =
    testing::AddGlobalTestEnvironment(new Utf8Locale);

}  // namespace
}  // namespace veygrid
#endif
