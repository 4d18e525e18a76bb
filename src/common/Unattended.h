#pragma once

#include <string_view>

namespace vellumar {

// With VELLUMAR_EXIT_WHEN_READY set (to anything but "" or "0"), the program runs for a
// script or a benchmark: it ends as soon as its window stands ready, and there is nobody to
// answer a question.
bool ExitsWhenReady();

// The exit status of a run that met a message or dialog with nobody to answer it.
inline constexpr int kUnattendedQuestionStatus = 2;

// Instead of waiting for an answer that never comes: writes the title and the text of the
// message or dialog to standard error and ends the program with kUnattendedQuestionStatus.
// Nothing runs after it; every file the program writes is replaced whole, so none is left
// half-written.
[[noreturn]] void EndUnattended(std::string_view title, std::string_view text);

} // namespace vellumar
