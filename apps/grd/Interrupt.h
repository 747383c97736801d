// Ending early when the user asks for it, with everything put back in order.
#pragma once

#include <exception>

namespace veygrid {

// Thrown out of work that the user has stopped.
class Interrupted : public std::exception {
  public:
    explicit Interrupted(int signal) : m_signal(signal) {}
    // The one that shells know for a program that a signal ended.
    int ExitCode() const { return 128 + m_signal; }

  private:
    int m_signal;
};

// From now on the first signal to end makes CheckInterrupt throw, so that half-written files are
// taken away; a second one ends the process at once.
void CatchInterrupts();

// Throws Interrupted once after a signal. Long work calls it now and then.
void CheckInterrupt();

}  // namespace veygrid
