// The texts that the control shows, by the keys under which they are asked for.
#include "resources/Texts.h"

#include <array>
#include <unordered_map>

#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

struct Line {
    std::string_view key;
    std::string_view chinese;
    std::string_view english;
};

constexpr std::array Lines{
#define MESSAGE(key, chinese, english) Line{key, chinese, english},
#include "resources/Texts.def"
#undef MESSAGE
};

struct Message {
    std::string chinese;
    std::string english;
};

using MessageMap = std::unordered_map<std::string, Message>;

const MessageMap& Messages() {
    static const MessageMap messages = [] {
        MessageMap made;
        for (const Line& line : Lines) {
            made.emplace(CodePage936FromUtf8(line.key), Message{CodePage936FromUtf8(line.chinese),
                                                                CodePage936FromUtf8(line.english)});
        }
        return made;
    }();
    return messages;
}

}  // namespace

std::string GetMsg(std::string_view key, Language language) {
    std::string text(key);
    const auto found = Messages().find(text);
    if (found == Messages().end()) {
        return text;
    }
    return language == Language::Chinese ? found->second.chinese : found->second.english;
}

std::string GetMsg(std::uint32_t number, Language language) {
    std::string key = "0x";
    for (unsigned shift = 32; shift != 0; shift -= 4) {
        key += "0123456789ABCDEF"[(number >> (shift - 4)) & 0xFU];
    }
    return GetMsg(std::string_view(key), language);
}

}  // namespace veygrid
