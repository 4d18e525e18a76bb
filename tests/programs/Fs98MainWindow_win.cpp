// Stands in for the simulator on Windows: a top-level window of the simulator's class
// "FS98MAIN". It closes when sent WM_CLOSE, or by itself after the milliseconds named in
// VELLUMAR_TEST_WINDOW_MS (10 s when unset), so that a failed test never leaves it behind.

#include <windows.h>

#include <cstdlib>

namespace {

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_TIMER:
        DestroyWindow(window);
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

} // namespace

int main()
{
    const char* lifetime = std::getenv("VELLUMAR_TEST_WINDOW_MS");
    const long milliseconds = lifetime ? std::strtol(lifetime, nullptr, 10) : 10000;

    const HINSTANCE instance = GetModuleHandleW(nullptr);
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = WindowProcedure;
    windowClass.hInstance = instance;
    windowClass.lpszClassName = L"FS98MAIN";
    if (!RegisterClassW(&windowClass))
        return 1;
    const HWND window = CreateWindowExW(0, L"FS98MAIN", L"Flight Simulator stand-in",
                                        WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, 320, 200,
                                        nullptr, nullptr, instance, nullptr);
    if (!window)
        return 1;
    // SW_SHOWDEFAULT takes the way of showing the starter asked for (SW_SHOWNOACTIVATE).
    ShowWindow(window, SW_SHOWDEFAULT);
    SetTimer(window, 1, milliseconds > 0 ? static_cast<UINT>(milliseconds) : 10000, nullptr);

    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}
