// The system message box: a helper thread finds the box among this thread's windows, notes
// what it shows and presses a button. Needs a display (under Wine: an X server such as Xvfb).

#include "common/PathText.h"
#include "common/SystemMessageBox_win.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace vellumar {
namespace {

bool CanShowWindows()
{
    HWND probe = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr,
                                 nullptr);
    if (!probe)
        return false;
    DestroyWindow(probe);
    return true;
}

std::wstring TextOf(HWND window)
{
    wchar_t text[1024] = {};
    const int length = GetWindowTextW(window, text, 1024);
    return std::wstring(text, static_cast<std::size_t>(std::max(length, 0)));
}

// What the box showed, read before the button was pressed.
struct SeenBox {
    bool found = false;
    std::wstring title;
    std::wstring text;
    std::vector<int> buttons; // dialog ids, which are the result numbers
    int defaultButton = 0;
};

// Presses `button` in the next message box this thread shows.
class Answerer {
public:
    explicit Answerer(int button)
        : button_(button)
        , owner_(GetCurrentThreadId())
        , worker_([this] { run(); })
    {}
    ~Answerer()
    {
        stop_ = true;
        worker_.join();
    }
    Answerer(const Answerer&) = delete;
    Answerer& operator=(const Answerer&) = delete;

    // Valid once the box has closed.
    const SeenBox& seen() const { return seen_; }

private:
    void run()
    {
        const ULONGLONG deadline = GetTickCount64() + 20000;
        while (!stop_ && GetTickCount64() < deadline) {
            if (HWND box = findBox()) {
                inspect(box);
                PostMessageW(box, WM_COMMAND, MAKEWPARAM(button_, BN_CLICKED),
                             reinterpret_cast<LPARAM>(GetDlgItem(box, button_)));
                return;
            }
            Sleep(10);
        }
    }

    HWND findBox() const
    {
        HWND found = nullptr;
        EnumThreadWindows(
            owner_,
            [](HWND window, LPARAM result) -> BOOL {
                wchar_t kind[16] = {};
                GetClassNameW(window, kind, 16);
                // Visible only once the dialog has set itself up.
                if (std::wstring_view(kind) == L"#32770" && IsWindowVisible(window)) {
                    *reinterpret_cast<HWND*>(result) = window;
                    return FALSE;
                }
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    }

    void inspect(HWND box)
    {
        seen_.found = true;
        seen_.title = TextOf(box);
        seen_.text = TextOf(GetDlgItem(box, 0xFFFF));
        for (int id = IDOK; id <= IDNO; ++id) {
            HWND button = GetDlgItem(box, id);
            if (!button)
                continue;
            seen_.buttons.push_back(id);
            // Wine's box answers DM_GETDEFID with IDOK whatever its style; the button knows.
            if ((GetWindowLongW(button, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON)
                seen_.defaultButton = id;
        }
    }

    int button_;
    DWORD owner_;
    std::atomic<bool> stop_{false};
    SeenBox seen_;
    std::thread worker_;
};

class SystemMessageBoxTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!CanShowWindows())
            GTEST_SKIP() << "no display to show windows on";
    }

    Win32MessageService messages;
};

TEST_F(SystemMessageBoxTest, ShowsTitleTextAndStyleAndAnswersWithThePressedButton)
{
    Answerer answerer(IDNO);
    const int result = messages.ShowSystemMessage(
        std::string(kTrailingSeparatorReport),
        MessageStyle::YesNoCancel | MessageStyle::Question | MessageStyle::DefaultButton2,
        "Vellumar \xC3\xBC");
    EXPECT_EQ(result, MessageResult::No);
    const SeenBox& seen = answerer.seen();
    ASSERT_TRUE(seen.found);
    EXPECT_EQ(seen.title, L"Vellumar \u00fc");
    EXPECT_EQ(seen.text, L"\u30d5\u30a1\u30a4\u30eb\u540d\u3068\u308a\u3053\u307f\u3067\u30d1"
                         L"\u30b9\u540d\u306e\u6700\u5f8c\u306b\uffe5\u304c\u3042\u308a\u307e"
                         L"\u3057\u305f\u3002");
    EXPECT_EQ(seen.buttons, (std::vector<int>{IDCANCEL, IDYES, IDNO}));
    EXPECT_EQ(seen.defaultButton, IDNO);
}

} // namespace
} // namespace vellumar
