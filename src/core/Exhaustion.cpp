#include "core/Exhaustion.h"

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <new>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace pryvane {

namespace {

constexpr const char* kNoMemory = "there is not enough memory; close other programs and try again";
constexpr const char* kNoThread =
    "the system has no further thread for this; close other programs and try again";
constexpr int kTries = 100;
constexpr std::chrono::milliseconds kBetweenTries{20};

std::function<void(const char*)>& teller()
{
    static std::function<void(const char*)> told;
    return told;
}

constexpr int kFailed = 2;
const char* g_program = "pryvane";

void say(const char* why)
{
    for (const char* text : {g_program, ": ", why, "\n"})
        static_cast<void>(!write(STDERR_FILENO, text, std::strlen(text)));
}

[[noreturn]] void onTerminate()
{
    try {
        if (const auto error = std::current_exception())
            std::rethrow_exception(error);
    } catch (const std::bad_alloc& error) {
        _exit(sayExhausted(error));
    } catch (const std::system_error& error) {
        _exit(sayExhausted(error));
    } catch (...) {
        say("an error inside the program");
    }
    std::abort();
}

} // namespace

const char* exhaustionText(const std::exception& error)
{
    if (dynamic_cast<const std::bad_alloc*>(&error))
        return kNoMemory;
    if (dynamic_cast<const std::system_error*>(&error))
        return kNoThread;
    return "an error inside the program";
}

void endInWordsWhenExhausted(const char* program)
{
    g_program = program;
    std::set_terminate(onTerminate);
}

int sayExhausted(const std::exception& error)
{
    say(exhaustionText(error));
    return kFailed;
}

void untilThereIsMemory(const std::function<void()>& step)
{
    for (int tries = 0; tries < kTries; ++tries) {
        try {
            step();
            return;
        } catch (const std::bad_alloc&) {
            std::this_thread::sleep_for(kBetweenTries);
        }
    }
    say(kNoMemory);
    _exit(kFailed);
}

void whenWorkIsGivenUp(std::function<void(const char*)> told)
{
    teller() = std::move(told);
}

void tellGivenUp(const char* why)
{
    if (teller())
        teller()(why);
}

} // namespace pryvane
