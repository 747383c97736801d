// A progress bar for long work at a terminal; short work shows none.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>

namespace boost::timer {
class progress_display;
}

namespace veygrid {

class Progress {
  public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    // Work shorter than this shows no bar.
    static constexpr std::chrono::milliseconds Patience{700};

    // `out` is where the bar goes, null for none; `total` is the amount of work, in any unit,
    // 0 for an unknown one, which shows no bar either.
    Progress(
        std::ostream* out, std::uint64_t total,
        Clock clock = [] { return std::chrono::steady_clock::now(); });
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    // Ends the line of a bar that work left early.
    ~Progress();

    // `done` of the total is done; never less than before. Throws Interrupted when the user has
    // asked to end.
    void Reach(std::uint64_t done);

  private:
    std::ostream* m_out;
    std::uint64_t m_total;
    Clock m_clock;
    std::chrono::steady_clock::time_point m_start;
    std::unique_ptr<boost::timer::progress_display> m_bar;
};

}  // namespace veygrid
