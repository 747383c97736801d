// Times two pieces of work in the same run, in turn, and prints how the first stands to the second.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace veygrid::bench {

inline double Seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// Keeps a result alive without letting the compiler see through it.
template <class T>
void Keep(T&& value) {
    asm volatile("" : : "r,m"(value) : "memory");
}

// What a benchmark measured, and the line that says so.
class Ratio {
  public:
    // Which side of the limit is the good one.
    enum class Goal { AtMost, AtLeast };

    // A limit of 0: none is set, the figure is only told.
    explicit Ratio(std::string what, double limit, Goal goal = Goal::AtMost)
        : m_what(std::move(what)), m_limit(limit), m_goal(goal) {}

    // Runs ours and the peer's in turn, `rounds` times; each function returns the seconds it took,
    // so that it can leave its own preparation out. Prints the ratio of the medians.
    double Run(const std::function<double()>& ours, const std::function<double()>& peer,
               int rounds = 5) {
        std::vector<double> ourTimes;
        std::vector<double> peerTimes;
        for (int i = 0; i < rounds; ++i) {
            peerTimes.push_back(peer());
            ourTimes.push_back(ours());
        }
        return Print(Median(ourTimes), Median(peerTimes), "ms", 1000.0);
    }

    double Print(double ours, double peer, const char* unit, double scale = 1.0) const {
        const double ratio = m_goal == Goal::AtMost ? ours / peer : peer / ours;
        std::printf("%-62s %9.3f %s, peer %9.3f %s, %s %.2f (%s)\n", m_what.c_str(), ours * scale,
                    unit, peer * scale, unit, m_goal == Goal::AtMost ? "ratio" : "times better",
                    ratio, Verdict(ratio).c_str());
        std::fflush(stdout);
        return ratio;
    }

  private:
    std::string Verdict(double ratio) const {
        if (m_limit == 0) {
            return "no limit set";
        }
        const bool atMost = m_goal == Goal::AtMost;
        const bool reached = atMost ? ratio <= m_limit : ratio >= m_limit;
        char text[64];
        std::snprintf(text, sizeof text, "%s %g: %s", atMost ? "at most" : "at least", m_limit,
                      reached ? "reached" : "MISSED");
        return text;
    }

    std::string m_what;
    double m_limit;
    Goal m_goal;
};

}  // namespace veygrid::bench
