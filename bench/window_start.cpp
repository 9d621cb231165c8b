// How long a program takes from its start until its window stands on the screen, painted: the programs named are
// started in turn, each ROUNDS times after one that is not counted. Runs on an X display of its own, under
// tests/window/with_display:
//
//   window_start ROUNDS PROGRAM [ARGUMENT]...
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double Since(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

// A window of the program that is large enough to be the main one; 0 while there is none.
Window MainWindowOf(Display *display) {
    Window root = 0;
    Window parent = 0;
    Window *children = nullptr;
    unsigned count = 0;
    Window found = 0;
    XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count);
    for (unsigned i = 0; i < count; ++i) {
        XWindowAttributes state;
        if (XGetWindowAttributes(display, children[i], &state) != 0 && state.map_state == IsViewable &&
            state.width > 300 && state.height > 200)
            found = children[i];
    }
    if (children != nullptr)
        XFree(children);
    return found;
}

// The window's upper part, where buttons and titles stand, shows more than one colour.
bool Painted(Display *display, Window window) {
    XImage *image = XGetImage(display, window, 0, 0, 300, 100, AllPlanes, ZPixmap);
    if (image == nullptr)
        return false;
    bool several = false;
    for (int y = 0; y < image->height && !several; ++y)
        for (int x = 0; x < image->width && !several; ++x)
            several = XGetPixel(image, x, y) != XGetPixel(image, 0, 0);
    XDestroyImage(image);
    return several;
}

struct Start {
    double seconds, processor; // until the window stands; of the program's processor until its end
};

Start OneStart(Display *display, char **program) {
    const Clock::time_point start = Clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execv(program[0], program);
        _exit(127);
    }
    Window window = 0;
    while ((window = MainWindowOf(display)) == 0 || !Painted(display, window)) {
        if (Since(start) > 20.0 || waitpid(child, nullptr, WNOHANG) != 0) {
            std::fprintf(stderr, "window_start: no window of %s\n", program[0]);
            std::exit(1);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    const double seconds = Since(start);
    kill(child, SIGKILL);
    rusage used = {};
    wait4(child, nullptr, 0, &used);
    while (MainWindowOf(display) != 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    return {seconds, static_cast<double>(used.ru_utime.tv_sec + used.ru_stime.tv_sec) +
                         1e-6 * static_cast<double>(used.ru_utime.tv_usec + used.ru_stime.tv_usec)};
}

} // namespace

int main(int argc, char **argv) {
    const int rounds = argc > 2 ? std::atoi(argv[1]) : 0;
    Display *display = XOpenDisplay(nullptr);
    if (rounds < 1 || display == nullptr) {
        std::fprintf(stderr, "usage, on a display: window_start ROUNDS PROGRAM [ARGUMENT]...\n");
        return 2;
    }
    XSetErrorHandler([](Display *, XErrorEvent *) { return 0; }); // a window may go while it is looked at
    OneStart(display, argv + 2);
    std::vector<Start> starts;
    for (int i = 0; i < rounds; ++i)
        starts.push_back(OneStart(display, argv + 2));
    std::sort(starts.begin(), starts.end(), [](const Start &a, const Start &b) { return a.seconds < b.seconds; });
    const Start &middle = starts[starts.size() / 2];
    std::printf("%.3f %.3f\n", middle.seconds, middle.processor);
    return 0;
}
