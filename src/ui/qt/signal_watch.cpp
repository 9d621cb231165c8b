#include "ui/qt/signal_watch.h"

#include "model/platform.h"

#include <QSocketNotifier>

namespace havuz {

SignalWatch::SignalWatch(std::function<void(int)> told) : told_(std::move(told)), channel_(platform::OpenSignals()) {
    if (channel_ < 0)
        return;
    auto *notifier = new QSocketNotifier(channel_, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] { read(); });
}

SignalWatch::~SignalWatch() { platform::CloseSignals(); }

void SignalWatch::read() {
    unsigned char byte = 0;
    if (platform::Read(channel_, &byte, 1) == 1)
        told_(byte);
}

} // namespace havuz
