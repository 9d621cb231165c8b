#include "ui/qt/signal_watch.h"

#include <QSocketNotifier>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace havuz {

namespace {

struct Watched {
    int number;
    const char *name;
};
constexpr Watched kWatched[] = {{SIGTERM, "SIGTERM"}, {SIGHUP, "SIGHUP"}, {SIGINT, "SIGINT"}};

int pipeEnds[2] = {-1, -1}; // a handler may do little more than write

extern "C" void WriteSignal(int number) {
    const auto byte = static_cast<unsigned char>(number);
    if (write(pipeEnds[1], &byte, 1) != 1)
        _exit(128 + number);
}

} // namespace

const char *SignalName(int signal) {
    for (const Watched &row : kWatched)
        if (row.number == signal)
            return row.name;
    return "";
}

SignalWatch::SignalWatch(std::function<void(int)> told) : told_(std::move(told)) {
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    notifier_ = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, [this] { read(); });
    struct sigaction action {};
    action.sa_handler = WriteSignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    for (const Watched &row : kWatched)
        sigaction(row.number, &action, nullptr);
}

SignalWatch::~SignalWatch() {
    for (const Watched &row : kWatched)
        std::signal(row.number, SIG_DFL);
    for (int &end : pipeEnds)
        if (end >= 0) {
            close(end);
            end = -1;
        }
}

void SignalWatch::read() {
    unsigned char byte = 0;
    if (::read(pipeEnds[0], &byte, 1) == 1)
        told_(byte);
}

} // namespace havuz
