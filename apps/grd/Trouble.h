// What ends a command early: trouble with a file, wrong arguments, a reader that went away.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace veygrid {

// Exit codes. `diff` answers as its namesake does: DiffTrouble in place of Failed.
inline constexpr int ExitOk = 0;
inline constexpr int ExitFailed = 1;
inline constexpr int ExitUsage = 2;
inline constexpr int ExitDiffers = 1;
inline constexpr int ExitDiffTrouble = 2;

// Trouble with a file, told to the user as "grd: FILE: what", with a line for each detail below.
class FileTrouble : public std::runtime_error {
  public:
    FileTrouble(const std::string& file, const std::string& what,
                std::vector<std::string> details = {})
        : std::runtime_error(file + ": " + what), m_details(std::move(details)) {}
    const std::vector<std::string>& Details() const { return m_details; }

  private:
    std::vector<std::string> m_details;
};

// Arguments that make no sense, told to the user as "grd: what".
class UsageTrouble : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Whoever read the output has read enough; no failure of ours.
class OutputClosed : public std::exception {};

}  // namespace veygrid
