// Starts a program on an empty display and prints, on one line: milliseconds until it has painted
// its window, its memory in kilobytes then, and the processor time in milliseconds that it takes in
// the next seconds while nobody touches it.
//   first_frame SECONDS PROGRAM [ARGUMENT...]     0 seconds: the first frame alone
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

using Clock = std::chrono::steady_clock;

/// A place that both windows cover; the display behind them is black.
constexpr std::int16_t kX = 420, kY = 320;

std::uint32_t pixel(xcb_connection_t* display, xcb_window_t root)
{
    const auto cookie = xcb_get_image(display, XCB_IMAGE_FORMAT_Z_PIXMAP, root, kX, kY, 1, 1, ~0U);
    auto* image = xcb_get_image_reply(display, cookie, nullptr);
    const std::uint32_t value =
        image ? *reinterpret_cast<std::uint32_t*>(xcb_get_image_data(image)) : 0;
    std::free(image);
    return value & 0xffffff;
}

long residentKilobytes(pid_t process)
{
    long kilobytes = 0;
    const std::string path = "/proc/" + std::to_string(process) + "/status";
    if (std::FILE* status = std::fopen(path.c_str(), "r")) {
        char line[128];
        while (std::fgets(line, sizeof line, status)) {
            if (std::sscanf(line, "VmRSS: %ld", &kilobytes) == 1)
                break;
        }
        std::fclose(status);
    }
    return kilobytes;
}

double processorMilliseconds(pid_t process)
{
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &time) != 0)
        return -1;
    return 1e3 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e6;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3)
        return 2;
    xcb_connection_t* display = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(display))
        return 2;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(display)).data->root;
    const std::uint32_t empty = pixel(display, root);
    const auto start = Clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execv(argv[2], argv + 2);
        _exit(127);
    }
    while (pixel(display, root) == empty) {
        if (Clock::now() - start > std::chrono::seconds(20))
            return 1;
        std::this_thread::sleep_for(std::chrono::microseconds(300));
    }
    const std::chrono::duration<double, std::milli> painted = Clock::now() - start;
    long memory = 0;
    double idle = 0;
    if (const std::chrono::seconds watched(std::atoi(argv[1])); watched.count() > 0) {
        std::this_thread::sleep_for(std::chrono::seconds(2)); // what follows the first frame
        memory = residentKilobytes(child);
        const double before = processorMilliseconds(child);
        std::this_thread::sleep_for(watched);
        idle = processorMilliseconds(child) - before;
    }
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    xcb_disconnect(display);
    std::printf("%.1f %ld %.1f\n", painted.count(), memory, idle);
    return 0;
}
