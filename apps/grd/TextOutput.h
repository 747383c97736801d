// Text on its way to a file or the terminal, in large pieces.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "persist/ByteStream.h"

namespace veygrid {

// Collects text and hands it to the sink whenever much has gathered. What is not finished is not
// handed over.
class TextOutput {
  public:
    // The sink must outlive the output.
    explicit TextOutput(ByteSink& sink) : m_sink(sink) { m_text.reserve(SpillSize * 2); }
    TextOutput(const TextOutput&) = delete;
    TextOutput& operator=(const TextOutput&) = delete;

    // To append to; good as long as the output.
    std::string& Text() { return m_text; }
    void SpillIfLarge() {
        if (m_text.size() >= SpillSize) {
            Finish();
        }
    }
    void Finish() {
        m_sink.Write(m_text);
        m_text.clear();
    }

  private:
    static constexpr std::size_t SpillSize = std::size_t{1} << 17U;

    ByteSink& m_sink;
    std::string m_text;
};

}  // namespace veygrid
