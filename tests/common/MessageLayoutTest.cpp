#include "common/MessageLayout.h"

#include "common/MessageService.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

namespace vellumar {
namespace {

// A typewriter font stands in for the window's measurements: every character is as wide as
// the next, so a test can say how wide a text is by counting.
struct Typewriter {
    int charWidth = 8;
    int lineHeight = 16;

    std::vector<std::string> lines(const std::string& text) const
    {
        std::vector<std::string> result;
        std::istringstream in(text);
        for (std::string line; std::getline(in, line);)
            result.push_back(line);
        if (result.empty())
            result.emplace_back();
        return result;
    }

    PixelSize size(const std::string& text) const
    {
        int widest = 0;
        const auto all = lines(text);
        for (const auto& line : all)
            widest = std::max(widest, static_cast<int>(line.size()) * charWidth);
        return {widest, static_cast<int>(all.size()) * lineHeight};
    }

    // Greedy word wrap, as a label does it; a word longer than a line takes lines of its own.
    int wrappedHeight(const std::string& text, int width) const
    {
        const int perLine = std::max(1, width / charWidth);
        int count = 0;
        for (const auto& line : lines(text)) {
            std::istringstream words(line);
            int used = 0;
            int lineCount = 1;
            for (std::string word; words >> word;) {
                const int length = static_cast<int>(word.size());
                if (used > 0 && used + 1 + length > perLine) {
                    ++lineCount;
                    used = 0;
                }
                used += (used > 0 ? 1 : 0) + length;
                while (used > perLine) {
                    ++lineCount;
                    used -= perLine;
                }
            }
            count += lineCount;
        }
        return count * lineHeight;
    }
};

constexpr PixelSize kButton{73, 25};
constexpr int kCaption = 23;

MessageLayoutInput InputFor(const std::string& text, int style)
{
    const Typewriter font;
    MessageLayoutInput input;
    input.style = style;
    input.twipsPerPixelX = 15.0;
    input.twipsPerPixelY = 15.0;
    input.captionHeight = kCaption;
    input.buttonSize = kButton;
    input.textSize = font.size(text);
    input.wrappedTextHeight = [font, text](int width) { return font.wrappedHeight(text, width); };
    return input;
}

int Px(double twips, double twipsPerPixel = 15.0)
{
    return static_cast<int>(std::lround(twips / twipsPerPixel));
}

bool Overlap(const PixelRect& a, const PixelRect& b)
{
    return a.left < b.right() && b.left < a.right() && a.top < b.bottom() && b.top < a.bottom();
}

// The window test wraps real text at the maximum width; below it the window grows instead.
TEST(MessageGeometry, WidthFollowsTheLongestLineBelowTheMaximum)
{
    const MessageLayout grown = LayOutMessage(InputFor("short\n" + std::string(30, 'w'), 0));
    EXPECT_GT(grown.window.width, Px(2655));
    EXPECT_FALSE(grown.wrap);
    EXPECT_EQ(grown.label.width, 30 * 8);
}

TEST(MessageGeometry, ButtonsAreCentredWithTheirGaps)
{
    for (int style : {0, 1, 4, 3}) {
        const MessageLayout layout = LayOutMessage(InputFor("Install this set now?", style));
        const auto& places = layout.buttonPlaces;
        for (std::size_t i = 0; i < places.size(); ++i) {
            EXPECT_EQ(places[i].rect.width, kButton.width) << style;
            EXPECT_EQ(places[i].rect.top, places[0].rect.top) << style;
            if (i > 0) {
                EXPECT_EQ(places[i].rect.left - places[i - 1].rect.right(), Px(120)) << style;
            }
        }
        const int left = places.front().rect.left;
        EXPECT_LE(std::abs(left - (layout.window.width - places.back().rect.right())), 1) << style;
    }
}

TEST(MessageGeometry, WideButtonsAreNeverCutByTheFrame)
{
    // Buttons sized for a wide font: the row keeps a button gap at either side.
    for (int style : {1, 3}) {
        MessageLayoutInput input = InputFor("?", style);
        input.buttonSize = {120, 30};
        const MessageLayout layout = LayOutMessage(input);
        EXPECT_GE(layout.buttonPlaces.front().rect.left, Px(120)) << style;
        EXPECT_LE(layout.buttonPlaces.back().rect.right(), layout.window.width - Px(120));
    }
}

TEST(MessageGeometry, ControlsNeverOverlapOrLeaveTheWindow)
{
    // A sweep over text shapes and styles: whatever the text, nothing collides.
    for (int style : {0, 1, 3, 4, 16, 32 + 1, 48 + 3, 64 + 4}) {
        for (int columns : {0, 1, 10, 40, 55, 70, 200}) {
            for (int lines : {1, 2, 5, 9, 12, 40}) {
                std::string text;
                for (int line = 0; line < lines; ++line)
                    text +=
                        std::string(columns / 5, 'a') + " " + std::string(columns / 2, 'b') + "\n";
                const MessageLayout layout = LayOutMessage(InputFor(text, style));
                SCOPED_TRACE("style " + std::to_string(style) + " columns " +
                             std::to_string(columns) + " lines " + std::to_string(lines));
                EXPECT_LE(layout.window.width, kMessageMaxWidthPixels);
                EXPECT_LE(layout.window.height, kMessageMaxHeightPixels);
                const PixelRect text_ = layout.scrolling ? layout.textBox : layout.label;
                EXPECT_LE(text_.right(), layout.window.width);
                for (const auto& place : layout.buttonPlaces) {
                    EXPECT_GE(place.rect.left, 0);
                    EXPECT_LE(place.rect.right(), layout.window.width);
                    EXPECT_LE(place.rect.bottom(), layout.window.height);
                    EXPECT_FALSE(Overlap(place.rect, text_));
                    if (layout.icon != MessageIcon::None) {
                        EXPECT_FALSE(Overlap(place.rect, layout.iconRect));
                    }
                }
                if (layout.icon != MessageIcon::None) {
                    EXPECT_FALSE(Overlap(layout.iconRect, text_));
                }
            }
        }
    }
}

TEST(MessageGeometry, EmptyOrMissingMeasurementsStillGiveAWindow)
{
    MessageLayoutInput input;
    input.style = 3;
    input.twipsPerPixelX = 0; // unknown screen: assume the usual 96 dots per inch
    input.twipsPerPixelY = -1;
    input.captionHeight = -5;
    input.buttonSize = kButton;
    input.textSize = {4000, 16}; // wider than the window, but nobody to measure the wrap
    const MessageLayout layout = LayOutMessage(input);
    EXPECT_TRUE(layout.wrap);
    EXPECT_EQ(layout.window.width, kMessageMaxWidthPixels);
    EXPECT_EQ(layout.label.height, 16);
    EXPECT_EQ(layout.buttonPlaces.size(), 3u);

    const MessageLayout empty = LayOutMessage(InputFor("", 0));
    EXPECT_EQ(empty.window.width, Px(2655));
    EXPECT_GT(empty.window.height, empty.buttonPlaces[0].rect.bottom());
}

} // namespace
} // namespace vellumar
