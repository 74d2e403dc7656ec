#include "removal/disk/ConfinedWork.h"

#include "core/tasks/Thread.h"

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
    // What a thread gave up it never gets back, so it is one of its own.
    runOnOwnThread([&] {
        state = confineThisThread(folders);
        isConfined = state.kind == KernelConfinement::Enforced;
        work();
    });
    return state;
}

} // namespace pryvane
