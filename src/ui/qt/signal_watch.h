// The signals by which a system ends a program, taken as events: SIGTERM, SIGHUP, SIGINT.
#pragma once

#include <QObject>
#include <functional>

namespace havuz {

// Told once, whatever follows within moments. One that comes seconds later ends the process as if nobody watched.
class SignalWatch : public QObject {
public:
    explicit SignalWatch(std::function<void(int signal)> told);
    ~SignalWatch() override;

private:
    void read();

    std::function<void(int)> told_;
    int channel_;
};

} // namespace havuz
