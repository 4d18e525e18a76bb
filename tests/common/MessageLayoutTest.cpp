#include "common/MessageLayout.h"

#include "common/MessageService.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

namespace vellumar {
namespace {

using namespace MessageButtonCode;

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

MessageLayoutInput InputFor(const std::string& text, int style, double twipsPerPixel = 15.0,
                            std::vector<int>* wrapWidthsAsked = nullptr)
{
    const Typewriter font;
    MessageLayoutInput input;
    input.style = style;
    input.twipsPerPixelX = twipsPerPixel;
    input.twipsPerPixelY = twipsPerPixel;
    input.captionHeight = kCaption;
    input.buttonSize = kButton;
    input.textSize = font.size(text);
    input.wrappedTextHeight = [font, text, wrapWidthsAsked](int width) {
        if (wrapWidthsAsked)
            wrapWidthsAsked->push_back(width);
        return font.wrappedHeight(text, width);
    };
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

TEST(MessageButtons, StyleBitsChooseTheLayoutInTheirOrder)
{
    EXPECT_EQ(ButtonLayoutOf(0), MessageButtons::OK);
    EXPECT_EQ(ButtonLayoutOf(2), MessageButtons::OK); // no layout of its own: OK alone
    EXPECT_EQ(ButtonLayoutOf(8), MessageButtons::OK);
    EXPECT_EQ(ButtonLayoutOf(1), MessageButtons::OKCancel);
    EXPECT_EQ(ButtonLayoutOf(3), MessageButtons::YesNoCancel);
    EXPECT_EQ(ButtonLayoutOf(4), MessageButtons::YesNo);
    // Bit 4 wins over everything in the low bits.
    EXPECT_EQ(ButtonLayoutOf(5), MessageButtons::YesNo);
    EXPECT_EQ(ButtonLayoutOf(6), MessageButtons::YesNo);
    EXPECT_EQ(ButtonLayoutOf(7), MessageButtons::YesNo);
    // Icon and default-button bits do not change the buttons.
    EXPECT_EQ(ButtonLayoutOf(3 + 48 + 512), MessageButtons::YesNoCancel);
    EXPECT_EQ(ButtonLayoutOf(1 + 16 + 256), MessageButtons::OKCancel);
    EXPECT_EQ(ButtonLayoutOf(64 + 256), MessageButtons::OK);
}

TEST(MessageIcon, StyleBitsChooseTheIconInTheirOrder)
{
    EXPECT_EQ(IconOf(0), MessageIcon::None);
    EXPECT_EQ(IconOf(4 + 256), MessageIcon::None);
    EXPECT_EQ(IconOf(16), MessageIcon::Critical);
    EXPECT_EQ(IconOf(32), MessageIcon::Question);
    EXPECT_EQ(IconOf(48), MessageIcon::Exclamation); // not Critical, although bit 16 is set
    EXPECT_EQ(IconOf(64), MessageIcon::Information);
    // Several icon bits: 48 before 32 before 16 before 64.
    EXPECT_EQ(IconOf(64 + 16), MessageIcon::Critical);
    EXPECT_EQ(IconOf(64 + 32), MessageIcon::Question);
    EXPECT_EQ(IconOf(64 + 48), MessageIcon::Exclamation);
    EXPECT_EQ(IconOf(3 + 32 + 512), MessageIcon::Question);
}

TEST(MessageAnswer, StartsWithTheCancelLikeAnswerOfTheLayout)
{
    MessageAnswer answer;
    for (int style : {0, 2, 1, 3, 1 + 64}) {
        answer.Reset(style);
        EXPECT_EQ(answer.result(), MessageResult::Cancel) << style;
        EXPECT_FALSE(answer.done());
    }
    for (int style : {4, 5, 4 + 256}) {
        answer.Reset(style);
        EXPECT_EQ(answer.result(), MessageResult::No) << style;
    }
    // Closing the window without a button keeps that answer.
    answer.Reset(3);
    answer.Dismiss();
    EXPECT_TRUE(answer.done());
    EXPECT_EQ(answer.result(), MessageResult::Cancel);
}

TEST(MessageAnswer, EachButtonGivesItsResult)
{
    struct Case {
        int style;
        int code;
        int result;
    };
    const Case cases[] = {
        {0, cmd23, MessageResult::OK},     {2, cmd23, MessageResult::OK},
        {1, cmd12, MessageResult::OK},     {1, cmd22, MessageResult::Cancel},
        {4, cmd12, MessageResult::Yes},    {4, cmd22, MessageResult::No},
        {5, cmd12, MessageResult::Yes},    {5, cmd22, MessageResult::No},
        {3, cmd13, MessageResult::Yes},    {3, cmd23, MessageResult::No},
        {3, cmd33, MessageResult::Cancel},
    };
    for (const Case& c : cases) {
        MessageAnswer answer;
        answer.Reset(c.style);
        answer.SetButtonResult(c.code);
        EXPECT_TRUE(answer.done());
        EXPECT_EQ(answer.result(), c.result) << "style " << c.style << " button " << c.code;
    }
}

TEST(MessageAnswer, OKLayoutAnswersOKForAnyButtonOthersIgnoreForeignButtons)
{
    MessageAnswer answer;
    for (int code : {cmd12, cmd22, cmd13, cmd23, cmd33, 0, 99}) {
        answer.Reset(0);
        answer.SetButtonResult(code);
        EXPECT_EQ(answer.result(), MessageResult::OK) << code;
        EXPECT_TRUE(answer.done());
    }

    // A button that is not part of the layout ends the wait but leaves the answer.
    answer.Reset(4);
    answer.SetButtonResult(cmd33);
    EXPECT_TRUE(answer.done());
    EXPECT_EQ(answer.result(), MessageResult::No);
    answer.Reset(1);
    answer.SetButtonResult(cmd13);
    EXPECT_TRUE(answer.done());
    EXPECT_EQ(answer.result(), MessageResult::Cancel);
    answer.Reset(3);
    answer.SetButtonResult(cmd12);
    EXPECT_TRUE(answer.done());
    EXPECT_EQ(answer.result(), MessageResult::Cancel);

    // The next message starts over.
    answer.Reset(5);
    EXPECT_FALSE(answer.done());
    EXPECT_EQ(answer.result(), MessageResult::No);
}

TEST(MessageFocus, DefaultButtonBitsPerLayout)
{
    EXPECT_EQ(DefaultButtonOf(0), cmd23);
    EXPECT_EQ(DefaultButtonOf(0 + 256), cmd23);
    EXPECT_EQ(DefaultButtonOf(2 + 512), cmd23);

    EXPECT_EQ(DefaultButtonOf(1), cmd12);
    EXPECT_EQ(DefaultButtonOf(1 + 256), cmd22);
    EXPECT_EQ(DefaultButtonOf(1 + 512), cmd12); // no third button: the first keeps the focus
    EXPECT_EQ(DefaultButtonOf(4 + 256), cmd22);
    EXPECT_EQ(DefaultButtonOf(5 + 512), cmd12);

    EXPECT_EQ(DefaultButtonOf(3), cmd13);
    EXPECT_EQ(DefaultButtonOf(3 + 256), cmd23);
    EXPECT_EQ(DefaultButtonOf(3 + 512), cmd33);
    EXPECT_EQ(DefaultButtonOf(3 + 256 + 512), cmd33);

    EXPECT_EQ(LayOutMessage(InputFor("x", 3 + 512 + 48)).focusButton, cmd33);
}

TEST(MessageGeometry, ShortTextGivesTheMinimumWidth)
{
    for (int style : {0, 1, 4, 64}) {
        const MessageLayout layout = LayOutMessage(InputFor("Done.", style));
        EXPECT_EQ(layout.window.width, Px(2655)) << style;
        EXPECT_FALSE(layout.wrap);
        EXPECT_FALSE(layout.scrolling);
    }
    // Three buttons need room for one more button and its gap.
    const MessageLayout three = LayOutMessage(InputFor("Done.", 3));
    EXPECT_EQ(three.window.width, Px(kButton.width * 15 + 2655 + 120));
}

TEST(MessageGeometry, WidthFollowsTheTextUpToTheMaximumThenWraps)
{
    // The longest line decides, and below the maximum nothing wraps.
    const std::string medium = "short\n" + std::string(30, 'w') + "\nshort";
    const MessageLayout grown = LayOutMessage(InputFor(medium, 0));
    EXPECT_GT(grown.window.width, Px(2655));
    EXPECT_FALSE(grown.wrap);
    EXPECT_EQ(grown.label.width, 30 * 8);

    // The widest line that fits: 800 + 406 * 15 + 450 = 7340 twips, within 490 * 15 = 7350.
    // One pixel more needs 7355 twips and wraps.
    MessageLayoutInput fitting = InputFor("x", 0);
    fitting.textSize = {406, 16};
    const MessageLayout fits = LayOutMessage(fitting);
    EXPECT_FALSE(fits.wrap);
    EXPECT_EQ(fits.window.width, Px(7340));
    EXPECT_EQ(fits.label.width, 406);
    fitting.textSize.width = 407;
    const MessageLayout over = LayOutMessage(fitting);
    EXPECT_TRUE(over.wrap);
    EXPECT_EQ(over.window.width, 490);

    // A wrapped label is as tall as its text wrapped at its own width, and the buttons go
    // below it.
    std::vector<int> asked;
    const std::string sentence =
        "The texture set could not be installed because one of the simulator's files is "
        "read-only.";
    const MessageLayout wrapped = LayOutMessage(InputFor(sentence, 48, 15.0, &asked));
    EXPECT_TRUE(wrapped.wrap);
    EXPECT_EQ(wrapped.window.width, kMessageMaxWidthPixels);
    ASSERT_EQ(asked, std::vector<int>{wrapped.label.width});
    EXPECT_EQ(wrapped.label.height, Typewriter{}.wrappedHeight(sentence, wrapped.label.width));
    EXPECT_GT(wrapped.label.height, Typewriter{}.lineHeight);
    EXPECT_GT(wrapped.buttonPlaces.front().rect.top, wrapped.label.bottom());
}

TEST(MessageGeometry, TooTallTextScrollsInATextBoxOfTheMaximumHeight)
{
    std::string tall;
    for (int line = 0; line < 20; ++line)
        tall += "line " + std::to_string(line) + "\n";
    const MessageLayout layout = LayOutMessage(InputFor(tall, 3));
    ASSERT_TRUE(layout.scrolling);
    EXPECT_EQ(layout.window.height, kMessageMaxHeightPixels);
    // The hidden label takes the box's height, so the buttons go below the box and stay in
    // the window.
    EXPECT_EQ(layout.label.height, layout.textBox.height);
    for (const auto& place : layout.buttonPlaces) {
        EXPECT_GT(place.rect.top, layout.textBox.bottom());
        EXPECT_LT(place.rect.bottom(), layout.window.height);
    }
}

TEST(MessageGeometry, HeightLimitCountsTheCaptionAndIsInclusive)
{
    // Needed height = caption + 300 + text + 250 + button + 180 twips, against 260 pixels.
    MessageLayoutInput input = InputFor("x", 0);
    const int room = 260 - kCaption - Px(300 + 250 + 180) - kButton.height;
    input.textSize = {100, room};
    ASSERT_EQ(Px((kCaption + room + kButton.height) * 15 + 300 + 250 + 180), 260);
    EXPECT_FALSE(LayOutMessage(input).scrolling);
    input.textSize.height = room + 1;
    EXPECT_TRUE(LayOutMessage(input).scrolling);
    // A taller title bar leaves less room for the text.
    input.textSize.height = room;
    input.captionHeight = kCaption + 1;
    EXPECT_TRUE(LayOutMessage(input).scrolling);
}

TEST(MessageGeometry, LongTextBothWrapsAndScrolls)
{
    std::string text;
    for (int i = 0; i < 60; ++i)
        text += "This sentence repeats until the window cannot hold it. ";
    const MessageLayout layout = LayOutMessage(InputFor(text, 64));
    EXPECT_TRUE(layout.wrap);
    EXPECT_TRUE(layout.scrolling);
    EXPECT_EQ(layout.window, (PixelSize{490, 260}));
    EXPECT_EQ(layout.textBox.width, 490 - Px(800));
}

TEST(MessageGeometry, ButtonsAreCentredWithTheirGaps)
{
    const int gap = Px(120);
    {
        const MessageLayout one = LayOutMessage(InputFor("Saved.", 0));
        const PixelRect b = one.buttonPlaces[0].rect;
        EXPECT_LE(std::abs(b.left - (one.window.width - b.right())), 1);
    }
    for (int style : {1, 4}) {
        const MessageLayout two = LayOutMessage(InputFor("Install this set now?", style));
        const PixelRect a = two.buttonPlaces[0].rect;
        const PixelRect b = two.buttonPlaces[1].rect;
        EXPECT_EQ(b.left - a.right(), gap);
        EXPECT_EQ(a.top, b.top);
        EXPECT_LE(std::abs(a.left - (two.window.width - b.right())), 1); // 60 each side of centre
    }
    {
        const MessageLayout three =
            LayOutMessage(InputFor("Keep the simulator's original files as a backup?", 3));
        const PixelRect a = three.buttonPlaces[0].rect;
        const PixelRect b = three.buttonPlaces[1].rect;
        const PixelRect c = three.buttonPlaces[2].rect;
        EXPECT_EQ(b.left - a.right(), gap);
        EXPECT_EQ(c.left - b.right(), gap);
        EXPECT_LE(std::abs(b.left - (three.window.width - b.right())), 1);
        for (const PixelRect& r : {a, b, c})
            EXPECT_EQ(r.width, kButton.width);
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
