// The console and the arguments of the process on POSIX systems, which speak UTF-8 themselves.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <iostream>

#include "apps/grd/Console.h"
#include "apps/grd/Trouble.h"

namespace veygrid {

namespace {

// 0, or the error number of the write that failed.
int WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            return errno;
        }
        bytes.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return 0;
}

class PosixConsole : public Console {
  public:
    void WriteOut(std::string_view utf8) override {
        const int error = WriteAll(STDOUT_FILENO, utf8);
        if (error == EPIPE) {
            throw OutputClosed();
        }
        if (error != 0) {
            throw FileTrouble("standard output", std::strerror(error));
        }
    }
    void WriteError(std::string_view utf8) override { WriteAll(STDERR_FILENO, utf8); }
    bool OutIsTerminal() override { return ::isatty(STDOUT_FILENO) != 0; }
    std::ostream* ProgressStream() override {
        return ::isatty(STDERR_FILENO) != 0 ? &std::cerr : nullptr;
    }
};

// A process may be started with its standard files closed. The next file opened would then take
// their numbers, and messages would land in it; a file that can only be read keeps the place.
void OccupyStandardFiles() {
    int file = 0;
    do {
        file = ::open("/dev/null", O_RDONLY);
    } while (file >= 0 && file <= STDERR_FILENO);
    if (file > STDERR_FILENO) {
        ::close(file);
    }
}

}  // namespace

std::unique_ptr<Console> OpenConsole() {
    OccupyStandardFiles();
    std::signal(SIGPIPE, SIG_IGN);
    return std::make_unique<PosixConsole>();
}

std::vector<std::string> ArgumentsInUtf8(int count, char** arguments) {
    return count < 1 ? std::vector<std::string>()
                     : std::vector<std::string>(arguments + 1, arguments + count);
}

}  // namespace veygrid
