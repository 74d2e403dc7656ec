#include "removal/disk/ConfinedWork.h"

#include "removal/disk/HostConfinement.h"

#include <exception>
#include <thread>

namespace pryvane {

namespace {

thread_local bool isConfined = false;

} // namespace

bool isThisThreadConfined()
{
    return isConfined;
}

ConfinementState runConfined(std::span<const int> folders, const std::function<void()>& work)
{
    ConfinementState state;
    std::exception_ptr thrown;
    // What a thread gave up it never gets back, so it is one of its own.
    std::thread thread([&] {
        try {
            state = confineThisThread(folders);
            isConfined = state.kind == KernelConfinement::Enforced;
            work();
        } catch (...) {
            thrown = std::current_exception();
        }
    });
    thread.join();
    if (thrown)
        std::rethrow_exception(thrown);
    return state;
}

} // namespace pryvane
