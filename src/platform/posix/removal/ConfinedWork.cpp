#include "platform/posix/removal/ConfinedWork.h"

#include "platform/posix/removal/HostConfinement.h"

#include <exception>
#include <thread>

namespace pryvane {

KernelConfinement runConfined(std::span<const int> writableFolders,
                              const std::function<void()>& work)
{
    auto confined = KernelConfinement::NotAvailable;
    std::exception_ptr thrown;
    // What a thread gave up it never gets back, so it is one of its own.
    std::thread thread([&] {
        try {
            confined = confineThisThread(writableFolders);
            work();
        } catch (...) {
            thrown = std::current_exception();
        }
    });
    thread.join();
    if (thrown)
        std::rethrow_exception(thrown);
    return confined;
}

} // namespace pryvane
