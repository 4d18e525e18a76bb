#include "common/MessageLayout.h"

#include "common/MessageService.h"

#include <algorithm>
#include <cmath>

namespace vellumar {

namespace {

// Lengths in twips.
constexpr double kMinWidth = 2655;
constexpr double kLabelLeft = 800;
constexpr double kLabelTop = 300;
constexpr double kRightMargin = 450;
constexpr double kAboveButtons = 250;
constexpr double kBelowButtons = 180;
constexpr double kButtonGap = 120;
constexpr double kTextBoxLeft = 650;
constexpr double kTextBoxInset = 800; // text box width = window width - this
// The icon sits left of the label, its middle level with the first text line; beside the
// text box, which starts further left than the label, it moves closer to the edge.
constexpr double kIconLeft = 150;
constexpr double kIconLeftBesideTextBox = 90;
constexpr double kIconTop = 180;
constexpr double kIconSize = 480;

int ToPixels(double twips, double twipsPerPixel)
{
    return static_cast<int>(std::lround(twips / twipsPerPixel));
}

PixelRect ToPixels(double left, double top, double width, double height, double tppX, double tppY)
{
    // Convert the edges, not the lengths, so that neighbours that touch in twips touch in pixels.
    const int l = ToPixels(left, tppX);
    const int t = ToPixels(top, tppY);
    return {l, t, ToPixels(left + width, tppX) - l, ToPixels(top + height, tppY) - t};
}

} // namespace

MessageButtons ButtonLayoutOf(int style)
{
    if (style & 4)
        return MessageButtons::YesNo;
    if ((style & 3) == 3)
        return MessageButtons::YesNoCancel;
    if (style & 1)
        return MessageButtons::OKCancel;
    return MessageButtons::OK;
}

MessageIcon IconOf(int style)
{
    // 48 holds the bits of 16 and 32, so it has to be asked first.
    if ((style & MessageStyle::Exclamation) == MessageStyle::Exclamation)
        return MessageIcon::Exclamation;
    if (style & MessageStyle::Question)
        return MessageIcon::Question;
    if (style & MessageStyle::Critical)
        return MessageIcon::Critical;
    if (style & MessageStyle::Information)
        return MessageIcon::Information;
    return MessageIcon::None;
}

std::vector<int> ButtonCodesOf(MessageButtons buttons)
{
    using namespace MessageButtonCode;
    switch (buttons) {
    case MessageButtons::OK:
        return {cmd23};
    case MessageButtons::OKCancel:
    case MessageButtons::YesNo:
        return {cmd12, cmd22};
    case MessageButtons::YesNoCancel:
        return {cmd13, cmd23, cmd33};
    }
    return {};
}

namespace {

struct ButtonMeaning {
    const char* caption;
    int result;
};

// The caption and answer of a button; a null caption for a button the layout hides.
ButtonMeaning MeaningOf(MessageButtons buttons, int code)
{
    using namespace MessageButtonCode;
    static constexpr ButtonMeaning ok{"OK(&O)", MessageResult::OK};
    static constexpr ButtonMeaning cancel{"Cancel(&C)", MessageResult::Cancel};
    static constexpr ButtonMeaning yes{"Yes(&Y)", MessageResult::Yes};
    static constexpr ButtonMeaning no{"No(&N)", MessageResult::No};
    static constexpr ButtonMeaning none{nullptr, 0};
    switch (buttons) {
    case MessageButtons::OK:
        return code == cmd23 ? ok : none;
    case MessageButtons::OKCancel:
        return code == cmd12 ? ok : code == cmd22 ? cancel : none;
    case MessageButtons::YesNo:
        return code == cmd12 ? yes : code == cmd22 ? no : none;
    case MessageButtons::YesNoCancel:
        return code == cmd13 ? yes : code == cmd23 ? no : code == cmd33 ? cancel : none;
    }
    return none;
}

} // namespace

std::string ButtonCaption(MessageButtons buttons, int code)
{
    const ButtonMeaning meaning = MeaningOf(buttons, code);
    return meaning.caption ? meaning.caption : "";
}

int InitialResult(MessageButtons buttons)
{
    return buttons == MessageButtons::YesNo ? MessageResult::No : MessageResult::Cancel;
}

int DefaultButtonOf(int style)
{
    using namespace MessageButtonCode;
    switch (ButtonLayoutOf(style)) {
    case MessageButtons::OK:
        return cmd23;
    case MessageButtons::OKCancel:
    case MessageButtons::YesNo:
        return (style & MessageStyle::DefaultButton2) ? cmd22 : cmd12;
    case MessageButtons::YesNoCancel:
        if (style & MessageStyle::DefaultButton3)
            return cmd33;
        return (style & MessageStyle::DefaultButton2) ? cmd23 : cmd13;
    }
    return cmd23;
}

void MessageAnswer::Reset(int style)
{
    buttons_ = ButtonLayoutOf(style);
    result_ = InitialResult(buttons_);
    done_ = false;
}

void MessageAnswer::SetButtonResult(int code)
{
    if (buttons_ == MessageButtons::OK) {
        // The one button answers OK, whichever handler reports it.
        result_ = MessageResult::OK;
    } else {
        const ButtonMeaning meaning = MeaningOf(buttons_, code);
        if (meaning.caption)
            result_ = meaning.result;
    }
    done_ = true;
}

MessageLayout LayOutMessage(const MessageLayoutInput& input)
{
    const double tppX = input.twipsPerPixelX > 0 ? input.twipsPerPixelX : 15.0;
    const double tppY = input.twipsPerPixelY > 0 ? input.twipsPerPixelY : 15.0;

    MessageLayout layout;
    layout.buttons = ButtonLayoutOf(input.style);
    layout.icon = IconOf(input.style);
    layout.focusButton = DefaultButtonOf(input.style);
    const std::vector<int> codes = ButtonCodesOf(layout.buttons);

    const double maxWidth = kMessageMaxWidthPixels * tppX;
    const double maxHeight = kMessageMaxHeightPixels * tppY;
    const double buttonWidth = std::max(0, input.buttonSize.width) * tppX;
    const double buttonHeight = std::max(0, input.buttonSize.height) * tppY;
    double minWidth = codes.size() == 3 ? buttonWidth + kMinWidth + kButtonGap : kMinWidth;
    // Buttons wider than the usual ones (a large or wide font) must not be cut by the frame:
    // the row keeps at least one button gap at either side.
    const double buttonCount = static_cast<double>(codes.size());
    const double buttonRow = buttonCount * buttonWidth + (buttonCount + 1) * kButtonGap;
    minWidth = std::max(minWidth, buttonRow);

    // The label sizes itself to its text.
    double labelWidth = std::max(0, input.textSize.width) * tppX;
    double labelHeight = std::max(0, input.textSize.height) * tppY;

    double width = minWidth;
    const double neededWidth = kLabelLeft + labelWidth + kRightMargin;
    if (neededWidth > minWidth) {
        if (neededWidth <= maxWidth) {
            width = neededWidth;
        } else {
            width = std::max(maxWidth, minWidth);
            layout.wrap = true;
            labelWidth = std::max(0.0, width - kLabelLeft - kRightMargin);
            const int wrapWidth = ToPixels(labelWidth, tppX);
            const int wrappedHeight = input.wrappedTextHeight ? input.wrappedTextHeight(wrapWidth)
                                                              : input.textSize.height;
            labelHeight = std::max(0, wrappedHeight) * tppY;
        }
    }

    const double captionHeight = std::max(0, input.captionHeight) * tppY;
    const double neededHeight =
        captionHeight + kLabelTop + labelHeight + kAboveButtons + buttonHeight + kBelowButtons;
    if (neededHeight > maxHeight) {
        layout.scrolling = true;
        const double boxWidth = std::max(0.0, width - kTextBoxInset);
        const double boxHeight =
            std::max(0.0, maxHeight - kLabelTop - kAboveButtons - buttonHeight - kBelowButtons);
        layout.textBox = ToPixels(kTextBoxLeft, kLabelTop, boxWidth, boxHeight, tppX, tppY);
        labelHeight = boxHeight;
    }
    layout.label = ToPixels(kLabelLeft, kLabelTop, labelWidth, labelHeight, tppX, tppY);

    const double buttonsTop = kLabelTop + labelHeight + kAboveButtons;
    const double centre = width / 2;
    double left = 0;
    switch (codes.size()) {
    case 1:
        left = centre - buttonWidth / 2;
        break;
    case 2:
        left = centre - kButtonGap / 2 - buttonWidth;
        break;
    default:
        left = centre - buttonWidth / 2 - kButtonGap - buttonWidth;
        break;
    }
    for (int code : codes) {
        layout.buttonPlaces.push_back(
            {code, ButtonCaption(layout.buttons, code),
             ToPixels(left, buttonsTop, buttonWidth, buttonHeight, tppX, tppY)});
        left += buttonWidth + kButtonGap;
    }

    layout.iconRect = ToPixels(layout.scrolling ? kIconLeftBesideTextBox : kIconLeft, kIconTop,
                               kIconSize, kIconSize, tppX, tppY);

    const double height = layout.scrolling ? maxHeight : buttonsTop + buttonHeight + kBelowButtons;
    layout.window = {ToPixels(width, tppX), ToPixels(height, tppY)};
    return layout;
}

} // namespace vellumar
