// Ending early when the user asks for it, with everything put back in order.
#include "apps/grd/Interrupt.h"

#include <csignal>
#include <initializer_list>

namespace veygrid {

namespace {

// The only thing that a signal handler may write. NOLINTNEXTLINE(*-non-const-global-variables)
volatile std::sig_atomic_t caughtSignal = 0;

void Catch(int signal) {
    caughtSignal = signal;
    std::signal(signal, SIG_DFL);
}

}  // namespace

void CatchInterrupts() {
    for (const int signal : {SIGINT, SIGTERM}) {
        // Who started the program may have shielded it; it then stays shielded.
        if (std::signal(signal, Catch) == SIG_IGN) {
            std::signal(signal, SIG_IGN);
        }
    }
}

void CheckInterrupt() {
    if (caughtSignal != 0) {
        const int signal = caughtSignal;
        caughtSignal = 0;
        throw Interrupted(signal);
    }
}

}  // namespace veygrid
