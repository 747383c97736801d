// The standard output, or a file in its place, as a sink of bytes.
#pragma once

#include <functional>
#include <string>

#include "apps/grd/GridAccess.h"
#include "apps/grd/TextOutput.h"

namespace veygrid {

// Passes text on to the standard output.
class ConsoleSink final : public ByteSink {
  public:
    explicit ConsoleSink(Console& console) : m_console(console) {}
    void Write(std::string_view bytes) override { m_console.WriteOut(bytes); }

  private:
    Console& m_console;
};

// Lets `write` fill a text that goes to the standard output, or into the file where a path is
// given.
inline void WriteText(Session& session, const std::string& path,
                      const std::function<void(TextOutput&)>& write) {
    const auto writeTo = [&](ByteSink& sink) {
        TextOutput out(sink);
        write(out);
        out.Finish();
    };
    if (path.empty()) {
        ConsoleSink sink(session.Terminal);
        writeTo(sink);
    } else {
        // How much it will be, nobody knows; the text's own progress counts what goes into it.
        ReplaceFile(session, path, 0, writeTo);
    }
}

}  // namespace veygrid
