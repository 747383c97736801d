// Tests of the command that draws: what it draws where, how large, and what it refuses.
#include <gmock/gmock.h>

#include "grd/Support.h"
#include "platform/recording/RecordingSurface.h"

namespace veygrid {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

// Pictures whose content is the list of what was drawn.
class RecordedPictures : public PictureMaker {
  public:
    std::unique_ptr<Picture> Begin(const PictureRequest& request, ByteSink& sink) override {
        Request = request;
        return std::make_unique<Recorded>(sink);
    }

    PictureRequest Request;

  private:
    class Recorded : public Picture {
      public:
        explicit Recorded(ByteSink& sink) : m_sink(sink) { m_surface.m_isPrinting = true; }
        Surface& Canvas() override { return m_surface; }
        void Finish() override { m_sink.Write(m_surface.Dump()); }

      private:
        ByteSink& m_sink;
        RecordingSurface m_surface;
    };
};

class RenderTest : public ::testing::Test {
  protected:
    RenderTest() { m_tool.Pictures = &m_pictures; }

    GridStore& Store() { return m_grid.Store; }
    // What is drawn with these options, or the error.
    std::string Render(const std::vector<std::string>& options = {}) {
        m_tool.Put("a.grd", m_grid);
        std::vector<std::string> words{"render", "a.grd", "-o", "a.png"};
        words.insert(words.end(), options.begin(), options.end());
        m_tool.Files.Content.erase("a.png");
        m_code = m_tool.Run(words);
        return m_tool.Terminal.Error + m_tool.Files.Content["a.png"];
    }

    Tool m_tool;
    RecordedPictures m_pictures;
    Grid m_grid;
    int m_code = -1;
};

TEST_F(RenderTest, DrawsHeadersLinesAndTextsAsThePropertiesSay) {
    Store().SetCellText(1, 1, Gbk("名称"));
    Store().SetCellText(2, 2, "7");
    const std::string drawn = Render();
    EXPECT_EQ(m_code, ExitOk);
    EXPECT_THAT(drawn, AllOf(HasSubstr("\"名称\""), HasSubstr("\"7\""), HasSubstr("\"A\""),
                             HasSubstr("\"2\"")));
    EXPECT_THAT(drawn, Not(AnyOf(HasSubstr("\"3\""), HasSubstr("\"C\""))));
    Store().Properties.ShowColHeaders = false;
    Store().Properties.ShowRowHeaders = false;
    EXPECT_THAT(Render(), Not(HasSubstr("\"A\"")));
    EXPECT_EQ(m_pictures.Request.Width, 120);
    EXPECT_EQ(m_pictures.Request.Height, 36);
}

TEST_F(RenderTest, ShowsNeitherSelectionNorActiveCell) {
    Store().SetCellText(1, 1, "x");
    const std::string drawn = Render();
    EXPECT_THAT(drawn, Not(AnyOf(HasSubstr("InvertRect"), HasSubstr("R1C1"), HasSubstr("R0C0"))));
    Store().Properties.RowMode = true;
    EXPECT_THAT(Render(), Not(HasSubstr("DrawFrameControl")));
}

TEST_F(RenderTest, ShowsTextsByTheirShowFormats) {
    Store().SetColType(1, 3);
    Store().SetCellText(1, 1, "2024-3-1");
    EXPECT_THAT(Render(), HasSubstr("\"2024-03-01\""));
}

TEST_F(RenderTest, IsAsLargeAsWhatHasBeenInUseWithItsHeaders) {
    Store().SetCellText(3, 2, "x");
    Store().SetRowHeight(1, 40);
    Store().SetColWidth(2, 100);
    Render();
    EXPECT_EQ(m_pictures.Request.Width, 50 + 60 + 100);
    EXPECT_EQ(m_pictures.Request.Height, 20 + 40 + 18 + 18);
    EXPECT_EQ(m_pictures.Request.Title, "a.grd");
    EXPECT_EQ(m_tool.Terminal.Out, "a.png: 210 x 96 pixels\n");
}

TEST_F(RenderTest, ASheetThatWasNeverUsedIsDrawnWhole) {
    Render();
    EXPECT_EQ(m_pictures.Request.Width, 50 + 20 * 60);
    EXPECT_EQ(m_pictures.Request.Height, 20 + 50 * 18);
}

TEST_F(RenderTest, ARangeBeginsThePictureAndEndsIt) {
    for (std::int32_t row = 1; row <= 9; ++row) {
        for (std::int32_t col = 1; col <= 9; ++col) {
            Store().SetCellText(row, col, "t" + std::to_string(row) + "." + std::to_string(col));
        }
    }
    const std::string drawn = Render({"--range", "R3C4:R5C6"});
    EXPECT_EQ(m_pictures.Request.Width, 50 + 3 * 60);
    EXPECT_EQ(m_pictures.Request.Height, 20 + 3 * 18);
    EXPECT_THAT(drawn, AllOf(HasSubstr("\"t3.4\" 52,22,"), HasSubstr("\"t5.6\"")));
    EXPECT_THAT(drawn, Not(AnyOf(HasSubstr("\"t2.4\""), HasSubstr("\"t3.3\""),
                                 HasSubstr("\"t6.4\""), HasSubstr("\"t3.7\""))));
    EXPECT_THAT(Render({"--range", "C2"}), AllOf(HasSubstr("\"t9.2\""), Not(HasSubstr(".3\""))));
    EXPECT_EQ(m_pictures.Request.Height, 20 + 9 * 18);
}

TEST_F(RenderTest, ARangeIsCutAtTheSheetsEnd) {
    Render({"--range", "R49C1:R200C1"});
    EXPECT_EQ(m_pictures.Request.Height, 20 + 2 * 18);
    EXPECT_EQ(Render({"--range", "R51C1"}),
              "grd: a.grd: there is nothing to draw: the sheet has 50 rows and 20 columns\n");
    EXPECT_EQ(m_code, ExitFailed);
    EXPECT_THAT(Render({"--range", "C2147483647"}), HasSubstr("there is nothing to draw"));
}

TEST_F(RenderTest, HiddenRowsTakeNoRoom) {
    Store().SetCellText(3, 1, "x");
    Store().SetRowHeight(2, 0);
    Render();
    EXPECT_EQ(m_pictures.Request.Height, 20 + 2 * 18);
}

TEST_F(RenderTest, ASheetOfHiddenRowsIsRefusedHoweverManyTheyAre) {
    Store().Properties.MaxRow = 2'147'483'647;
    Store().Properties.DefCellHeight = 0;
    Store().Properties.ShowColHeaders = false;
    EXPECT_EQ(Render(), "grd: a.grd: there is nothing to draw: all rows or columns are hidden\n");
    Store().SetRowHeight(2'000'000'000, 18);
    EXPECT_THAT(Render({"--range", "R1:R2147483647"}), HasSubstr("DrawText"));
    EXPECT_EQ(m_pictures.Request.Height, 18);
}

TEST_F(RenderTest, AMillionRowsAreRefusedWithTheLimit) {
    Store().Properties.MaxRow = 1'000'000;
    EXPECT_EQ(Render({"--range", "R1:R1000000"}),
              "grd: a.grd: a picture of 1250 x 18000020 pixels is too large: at most 32767 x 32767 "
              "pixels and 250 million of them; --range draws a part\n");
    EXPECT_EQ(m_code, ExitFailed);
    EXPECT_EQ(m_tool.Files.Content["a.png"], "");
    EXPECT_THAT(Render({"--range", "R999000:R999999"}), HasSubstr("\"999999\""));
}

TEST_F(RenderTest, TheLimitIsThatOfTheFormAndOfTheScaledPicture) {
    Store().Properties.MaxRow = 1100;
    EXPECT_THAT(Render({"--format", "pdf", "--range", "R1:R1100"}),
                HasSubstr("at most 19200 x 19200 pixels"));
    Render({"--range", "R1:R1100"});
    EXPECT_EQ(m_code, ExitOk);
    EXPECT_THAT(Render({"--range", "R1:R1100", "--scale", "2"}),
                HasSubstr("2500 x 39640 pixels is too large"));
    Store().Properties.MaxCol = 300;
    EXPECT_THAT(Render({"--range", "R1C1:R1000C300"}),
                HasSubstr("18050 x 18020 pixels is too large"));
}

TEST_F(RenderTest, ScaleEnlargesThePicture) {
    Store().SetCellText(1, 1, "x");
    Render({"--scale", "2.5"});
    EXPECT_EQ(m_pictures.Request.Scale, 2.5);
    EXPECT_EQ(m_pictures.Request.Width, 110);
    EXPECT_EQ(m_tool.Terminal.Out, "a.png: 275 x 95 pixels\n");
}

TEST_F(RenderTest, TheFormIsToldByTheEndingOrByName) {
    Store().SetCellText(1, 1, "x");
    m_tool.Put("a.grd", m_grid);
    for (const auto& [name, form] : {std::pair{"a.PNG", PictureForm::Png},
                                     {"a.b.pdf", PictureForm::Pdf},
                                     {"a.svg", PictureForm::Svg}}) {
        EXPECT_EQ(m_tool.Run({"render", "a.grd", "-o", name}), ExitOk) << name;
        EXPECT_EQ(m_pictures.Request.Form, form) << name;
    }
    m_tool.Run({"render", "a.grd", "-o", "a.png", "--format", "svg"});
    EXPECT_EQ(m_pictures.Request.Form, PictureForm::Svg);
}

TEST_F(RenderTest, WritesToTheStandardOutputWithoutASummary) {
    Store().SetCellText(1, 1, "x");
    m_tool.Put("a.grd", m_grid);
    EXPECT_EQ(m_tool.Run({"render", "a.grd", "-o", "-", "--format", "png"}), ExitOk);
    EXPECT_THAT(m_tool.Terminal.Out, AllOf(StartsWith("SetBkColor"), HasSubstr("\"x\"")));
    EXPECT_THAT(m_tool.Terminal.Out, Not(HasSubstr("pixels")));
    m_tool.Terminal.IsTerminal = true;
    EXPECT_EQ(m_tool.Run({"render", "a.grd", "-o", "-", "--format", "png"}), ExitUsage);
    EXPECT_EQ(m_tool.Terminal.Error,
              "grd: render: a picture is nothing for a terminal; send it to a file\n");
}

TEST_F(RenderTest, TheStockFontIsTheFiles) {
    m_grid.Document.Stock.Font = {.lfHeight = -17, .lfWeight = 400};
    Render();
    EXPECT_EQ(m_pictures.Request.StockFont.lfHeight, -17);
}

TEST_F(RenderTest, WrongArgumentsAreRefusedWithTheRightOnes) {
    const auto error = [&](const std::vector<std::string>& words) {
        EXPECT_EQ(m_tool.Run(words), ExitUsage);
        return m_tool.Terminal.Error;
    };
    EXPECT_THAT(error({"render", "a.grd", "-o", "a.gif"}),
                StartsWith("grd: render: --output: 'a.gif' ends in none of .png, .pdf, .svg"));
    EXPECT_THAT(error({"render", "a.grd", "-o", "png"}), HasSubstr("ends in none of"));
    EXPECT_THAT(error({"render", "a.grd", "-o", "-"}), HasSubstr("has no name"));
    EXPECT_THAT(error({"render", "a.grd", "-o", "a.png", "--format", "gif"}),
                HasSubstr("--format: 'gif' is none of png, pdf, svg"));
    EXPECT_THAT(error({"render", "a.grd", "-o", "a.png", "--range", "A1"}),
                HasSubstr("--range: 'A1' is no range"));
    for (const char* scale : {"0", "-1", "9", "nan"}) {
        EXPECT_THAT(error({"render", "a.grd", "-o", "a.png", "--scale", scale}),
                    HasSubstr("--scale: not between 0.25 and 8"));
    }
    EXPECT_THAT(error({"render", "a.grd"}), HasSubstr("--output is required"));
}

TEST_F(RenderTest, ABuildWithoutPicturesSaysSo) {
    m_tool.Pictures = nullptr;
    EXPECT_EQ(Render(), "grd: render: this build of grd draws no pictures\n");
    EXPECT_EQ(m_code, ExitUsage);
}

TEST_F(RenderTest, TroubleWithFilesIsNamed) {
    EXPECT_EQ(m_tool.Run({"render", "none.grd", "-o", "a.png"}), ExitFailed);
    EXPECT_EQ(m_tool.Terminal.Error, "grd: none.grd: no such file\n");
    m_tool.Put("a.grd", m_grid);
    EXPECT_EQ(m_tool.Run({"render", "a.grd", "-o", "full/a.png"}), ExitFailed);
    EXPECT_THAT(m_tool.Terminal.Error, EndsWith("writing failed at byte 0: no room\n"));
    EXPECT_EQ(m_tool.Files.Content.count("full/a.png"), 0U);
}

}  // namespace
}  // namespace veygrid
