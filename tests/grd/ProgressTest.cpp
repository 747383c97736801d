// Tests of the progress bar.
#include "apps/grd/Progress.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <sstream>

#include "apps/grd/Interrupt.h"

namespace veygrid {
namespace {

class ProgressTest : public ::testing::Test {
  protected:
    Progress::Clock Clock() {
        return [this] { return m_now; };
    }
    void Wait(std::chrono::milliseconds time) { m_now += time; }
    std::ptrdiff_t Stars() const {
        const std::string text = m_out.str();
        return std::count(text.begin(), text.end(), '*');
    }

    std::chrono::steady_clock::time_point m_now{};
    std::ostringstream m_out;
};

TEST_F(ProgressTest, ShortWorkIsSilent) {
    Progress progress(&m_out, 100, Clock());
    progress.Reach(50);
    Wait(Progress::Patience / 2);
    progress.Reach(99);
    Wait(Progress::Patience);
    progress.Reach(100);
    EXPECT_EQ(m_out.str(), "");
}

TEST_F(ProgressTest, LongWorkShowsABarThatEndsItsLine) {
    Progress progress(&m_out, 100, Clock());
    Wait(Progress::Patience);
    progress.Reach(50);
    EXPECT_NE(m_out.str().find("0%   10   20"), std::string::npos);
    EXPECT_EQ(Stars(), 25);
    progress.Reach(100);
    EXPECT_EQ(Stars(), 51);
    EXPECT_EQ(m_out.str().back(), '\n');
}

TEST_F(ProgressTest, WorkThatIsLeftEarlyEndsTheLineOfTheBar) {
    {
        Progress progress(&m_out, 100, Clock());
        Wait(Progress::Patience);
        progress.Reach(10);
    }
    EXPECT_EQ(m_out.str().back(), '\n');
}

TEST_F(ProgressTest, NoStreamAndNoWorkAreHarmless) {
    Progress none(nullptr, 100, Clock());
    Progress empty(&m_out, 0, Clock());
    Wait(Progress::Patience);
    none.Reach(50);
    empty.Reach(0);
    empty.Reach(7);
    Progress more(&m_out, 10, Clock());
    Wait(Progress::Patience);
    more.Reach(11);
    EXPECT_EQ(Stars(), 0);
}

TEST_F(ProgressTest, ASignalToEndStopsTheWorkOnce) {
    CatchInterrupts();
    Progress progress(nullptr, 100, Clock());
    progress.Reach(1);
    std::raise(SIGINT);
    try {
        progress.Reach(2);
        ADD_FAILURE() << "not interrupted";
    } catch (const Interrupted& interrupted) {
        EXPECT_EQ(interrupted.ExitCode(), 130);
    }
    progress.Reach(3);
    std::signal(SIGTERM, SIG_DFL);
}

TEST_F(ProgressTest, TotalsBeyond32BitsAreScaled) {
    Progress progress(&m_out, 0xFFFFFFFFFFFFFFFFU, Clock());
    Wait(Progress::Patience);
    progress.Reach(0x7FFFFFFFFFFFFFFFU);
    EXPECT_GE(Stars(), 24);
    EXPECT_LE(Stars(), 26);
}

}  // namespace
}  // namespace veygrid
