// The terminal as the tool sees it: UTF-8 in both directions, whatever the system speaks.
#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace veygrid {

// The port that the commands write to; one implementation for each system, one for tests.
class Console {
  public:
    virtual ~Console() = default;

    // Writes UTF-8 to the standard output. Throws OutputClosed when its reader has gone, and
    // FileTrouble when it takes no more for another reason.
    virtual void WriteOut(std::string_view utf8) = 0;
    // Writes UTF-8 to the error output; what it does not take is lost.
    virtual void WriteError(std::string_view utf8) = 0;
    virtual bool OutIsTerminal() = 0;
    // Where a progress bar goes: null unless the error output is a terminal.
    virtual std::ostream* ProgressStream() = 0;
};

// Writes "grd: message" and below it the details, each on a line that no control character breaks.
void WriteMessage(Console& console, const std::string& message,
                  const std::vector<std::string>& details = {});

// The console of this process. To be called once, before any file is opened.
std::unique_ptr<Console> OpenConsole();

// The arguments of this process behind its own name, in UTF-8.
std::vector<std::string> ArgumentsInUtf8(int count, char** arguments);

}  // namespace veygrid
