// Texts by key and by number.
#include "resources/Texts.h"

#include <gtest/gtest.h>

#include <set>

#include "valuetext/CodePage936.h"

namespace veygrid {

namespace {

struct Line {
    std::string key;
    std::string chinese;
    std::string english;
};

const Line Lines[] = {
#define MESSAGE(key, chinese, english) {key, chinese, english},
#include "resources/Texts.def"
#undef MESSAGE
};

std::string Gbk(std::string_view text) {
    return CodePage936FromUtf8(text);
}

TEST(Texts, ChineseIsWhatShows) {
    EXPECT_EQ(RunningLanguage, Language::Chinese);
    EXPECT_EQ(GetMsg("MID_OK"), Gbk("确定"));
    EXPECT_EQ(GetMsg("MID_CANCEL"), Gbk("取消"));
    EXPECT_EQ(GetMsg("MID_OK", Language::English), "OK");
}

TEST(Texts, ATextWithoutATranslationComesBackAsItWentIn) {
    EXPECT_EQ(GetMsg("MID_NONE"), "MID_NONE");
    EXPECT_EQ(GetMsg(""), "");
    EXPECT_EQ(GetMsg("\x81\x7C\x95\x7E|\x81"), "\x81\x7C\x95\x7E|\x81");
    EXPECT_EQ(GetMsg(Gbk("平面单线"), Language::English), Gbk("平面单线"));
}

TEST(Texts, ANumberGivesItsText) {
    EXPECT_EQ(GetMsg(0x20005095U), Gbk("常规"));
    EXPECT_EQ(GetMsg(0x2000508FU), Gbk("靠左"));
    EXPECT_EQ(GetMsg(0x20005091U), Gbk("居中"));
    EXPECT_EQ(GetMsg(0x20005090U), Gbk("靠右"));
    EXPECT_EQ(GetMsg(0x20005092U), Gbk("靠上"));
    EXPECT_EQ(GetMsg(0x20005094U), Gbk("居中"));
    EXPECT_EQ(GetMsg(0x20005093U), Gbk("靠下"));
    EXPECT_EQ(GetMsg(0x200003E8U), Gbk("确定"));
    EXPECT_EQ(GetMsg(0x200003E9U), Gbk("取消"));
    EXPECT_EQ(GetMsg(0x200037B6U), Gbk("打印预览"));
    EXPECT_EQ(GetMsg(0xE00036B1U, Language::English), "Printing cannot be started.");
}

TEST(Texts, ANumberWithoutATextComesBackInHexadecimalDigits) {
    EXPECT_EQ(GetMsg(0U), "0x00000000");
    EXPECT_EQ(GetMsg(0x80040E21U), "0x80040E21");
    EXPECT_EQ(GetMsg(0xFFFFFFFFU), "0xFFFFFFFF");
}

TEST(Texts, EveryKeyStandsOnceAndHasBothLanguagesWithinTheCodePage) {
    std::set<std::string> keys;
    for (const Line& line : Lines) {
        EXPECT_TRUE(keys.insert(line.key).second) << line.key;
        EXPECT_FALSE(line.chinese.empty()) << line.key;
        EXPECT_FALSE(line.english.empty()) << line.key;
        EXPECT_EQ(Utf8FromCodePage936(Gbk(line.key)), line.key);
        EXPECT_EQ(Utf8FromCodePage936(GetMsg(Gbk(line.key))), line.chinese);
        EXPECT_EQ(GetMsg(Gbk(line.key), Language::English), line.english);
    }
}

TEST(Texts, NoChineseTextIsAKeyThatIsStillToBeTranslated) {
    for (const Line& line : Lines) {
        EXPECT_NE(line.chinese.substr(0, 4), "MID_") << line.key;
    }
}

}  // namespace

}  // namespace veygrid
