#pragma once

#include <exception>
#include <functional>

namespace pryvane {

/// Why something was given up, in words that take no memory: usually that there is no more memory,
/// or no further thread.
[[nodiscard]] const char* exhaustionText(const std::exception& error);

/// Called once by main(). From then on a lack of memory or threads that reaches no handler, as one
/// in a library's destructor, ends the process with one sentence and exit code 2. What is stored is
/// whole at any moment, so that this loses nothing that was told.
void endInWordsWhenExhausted(const char* program);

/// That sentence, on standard error; takes no memory. Returns the exit code.
int sayExhausted(const std::exception& error);

/// Does it again while memory is short; others that give up meanwhile free some. After two seconds
/// the process ends with one sentence and exit code 2. Callable from any thread.
void untilThereIsMemory(const std::function<void()>& step);

/// Set before any thread is started: is told, on any thread, of each piece of background work that
/// was given up.
void whenWorkIsGivenUp(std::function<void(const char* why)> told);
void tellGivenUp(const char* why);

} // namespace pryvane
