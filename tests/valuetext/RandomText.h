// Random texts in code page 936 for property tests: sound, broken, and shaped like numbers or
// dates.
#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>

namespace veygrid {

class RandomText {
  public:
    explicit RandomText(unsigned seed) : m_engine(seed) {}

    std::size_t Below(std::size_t bound) {
        return std::uniform_int_distribution<std::size_t>(0, bound - 1)(m_engine);
    }

    // Any bytes, lone lead bytes and zeroes included.
    std::string Bytes(std::size_t longest) {
        std::string text(Below(longest + 1), '\0');
        for (char& c : text) {
            c = static_cast<char>(Below(256));
        }
        return text;
    }

    // Bytes of `alphabet`, each as likely as the other.
    std::string Of(std::string_view alphabet, std::size_t longest) {
        std::string text(Below(longest + 1), '\0');
        for (char& c : text) {
            c = alphabet[Below(alphabet.size())];
        }
        return text;
    }

    // Printable single bytes and two-byte characters, whose second byte is often one that means
    // something when it stands alone.
    std::string Characters(std::size_t longest) {
        std::string text;
        for (std::size_t i = Below(longest + 1); i > 0; --i) {
            text += Below(2) == 0 ? std::string(1, static_cast<char>(' ' + Below(95))) : Pair();
        }
        return text;
    }

    std::string Pair() {
        constexpr std::string_view Trails = "ABCDMRYZbcdmryz[]{}|\\~@\x80\xA1\xFE";
        return {static_cast<char>(0x81 + Below(126)), Trails[Below(Trails.size())]};
    }

  private:
    std::mt19937 m_engine;
};

}  // namespace veygrid
