// A session manager as desktops have one (XSMP), for one program that starts while it lives: it can log the program
// out.
#pragma once

#include <functional>
#include <string>

namespace havuz {

class SessionManager {
public:
    SessionManager(); // names itself in SESSION_MANAGER
    ~SessionManager();
    SessionManager(const SessionManager &) = delete;
    SessionManager &operator=(const SessionManager &) = delete;

    // Serves the program until it holds; false after a while.
    bool serveUntil(const std::function<bool()> &holds);
    bool hasClient() const;
    void askToSave(); // for the end of the session
    bool saved() const;
    void askToGo();

private:
    struct Server;
    Server *server_;
};

} // namespace havuz
