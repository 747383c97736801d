// A progress bar for long work at a terminal; short work shows none.
#include "apps/grd/Progress.h"

#include <algorithm>
#include <boost/timer/progress_display.hpp>

#include "apps/grd/Interrupt.h"

namespace veygrid {

namespace {

// The bar counts in unsigned long, which has 32 bits on some systems.
constexpr std::uint64_t BarSteps = 10000;

}  // namespace

Progress::Progress(std::ostream* out, std::uint64_t total, Clock clock)
    : m_out(total == 0 ? nullptr : out),
      m_total(total),
      m_clock(std::move(clock)),
      m_start(m_clock()) {}

Progress::~Progress() {
    if (m_bar != nullptr && m_bar->count() != m_bar->expected_count()) {
        *m_out << std::endl;
    }
}

void Progress::Reach(std::uint64_t done) {
    CheckInterrupt();
    if (m_out == nullptr) {
        return;
    }
    done = std::min(done, m_total);
    if (m_bar == nullptr) {
        if (done == m_total || m_clock() - m_start < Patience) {
            return;
        }
        m_bar = std::make_unique<boost::timer::progress_display>(BarSteps, *m_out, "");
    }
    const auto steps = static_cast<unsigned long>(static_cast<double>(done) /
                                                  static_cast<double>(m_total) * BarSteps);
    if (steps > m_bar->count()) {
        *m_bar += steps - m_bar->count();
    }
}

}  // namespace veygrid
