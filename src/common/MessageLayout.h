#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vellumar {

// Everything about the program's own message box that can be decided without a widget: which
// buttons and icon a style asks for, what each button answers, where the focus starts, and the
// window geometry. frmMsg only measures, asks, and places.

enum class MessageButtons { OK, OKCancel, YesNo, YesNoCancel };
enum class MessageIcon { None, Critical, Question, Exclamation, Information };

// The buttons are named cmdXY: button X of a row of Y. Their codes are the two digits.
namespace MessageButtonCode {
inline constexpr int cmd12 = 12;
inline constexpr int cmd22 = 22;
inline constexpr int cmd13 = 13;
inline constexpr int cmd23 = 23;
inline constexpr int cmd33 = 33;
} // namespace MessageButtonCode

MessageButtons ButtonLayoutOf(int style);
MessageIcon IconOf(int style);

// The codes of the visible buttons, left to right.
std::vector<int> ButtonCodesOf(MessageButtons buttons);

// The caption of a visible button ("OK(&O)" ...); empty for a button the layout hides.
std::string ButtonCaption(MessageButtons buttons, int code);

// The answer held before any button is pressed, which is also the answer of a window closed
// without one: Cancel, or No where there is no Cancel.
int InitialResult(MessageButtons buttons);

// The button that has the focus when the window opens.
int DefaultButtonOf(int style);

// Result and done of one open message.
class MessageAnswer {
public:
    // Starts waiting for an answer to a message of this style.
    void Reset(int style);

    // A button was pressed. A code the layout does not show leaves the result as it is, but
    // still ends the wait, so a stray click can never hang the caller.
    void SetButtonResult(int code);

    // The window was closed without a button.
    void Dismiss() { done_ = true; }

    int result() const { return result_; }
    bool done() const { return done_; }

private:
    MessageButtons buttons_ = MessageButtons::OK;
    int result_ = InitialResult(MessageButtons::OK);
    bool done_ = false;
};

struct PixelSize {
    int width = 0;
    int height = 0;
    friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

struct PixelRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    int right() const { return left + width; }
    int bottom() const { return top + height; }
    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

// What the window measures before it asks for a layout. Sizes are in pixels; the layout's own
// lengths are in twips (1/1440 inch), so they keep their proportions at any screen resolution.
struct MessageLayoutInput {
    int style = 0;
    double twipsPerPixelX = 15.0;
    double twipsPerPixelY = 15.0;
    int captionHeight = 0; // the title bar
    PixelSize buttonSize;  // every button has this size
    // The text laid out with one line per text line and no wrapping.
    PixelSize textSize;
    // The height of the text wrapped at words to the given width.
    std::function<int(int width)> wrappedTextHeight;
};

struct MessageButtonPlace {
    int code = 0;
    std::string caption;
    PixelRect rect;
};

// The window in pixels. `window` is the area inside the frame and below the title bar.
struct MessageLayout {
    MessageButtons buttons = MessageButtons::OK;
    MessageIcon icon = MessageIcon::None;
    PixelSize window;
    PixelRect iconRect;     // meaningful when icon != None
    PixelRect label;        // lblMsg; its height also holds the text box's height when scrolling
    bool wrap = false;      // lblMsg wraps at words
    bool scrolling = false; // txtMsg replaces lblMsg
    PixelRect textBox;      // txtMsg, when scrolling
    std::vector<MessageButtonPlace> buttonPlaces; // left to right
    int focusButton = 0;
};

// The window stays within this size, in pixels.
inline constexpr int kMessageMaxWidthPixels = 490;
inline constexpr int kMessageMaxHeightPixels = 260;

MessageLayout LayOutMessage(const MessageLayoutInput& input);

} // namespace vellumar
