#include "session_manager.h"

#include <X11/ICE/ICElib.h>
#include <X11/SM/SMlib.h>
#include <array>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <stdexcept>

namespace havuz {

struct SessionManager::Server {
    int listening = 0;
    IceListenObj *listeners = nullptr;
    IceConn ice = nullptr;
    SmsConn client = nullptr;
    bool registered = false, saved = false;
    void serve();
};

namespace {

template <class Server>
Server &Of(SmPointer data) {
    return *static_cast<Server *>(data);
}

} // namespace

// What a client may ask for; most of it is of no account here.
template <class Server>
static Status NewClient(SmsConn connection, SmPointer data, unsigned long *mask, SmsCallbacks *calls, char **) {
    Of<Server>(data).client = connection;
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
            SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask | SmsSaveYourselfDoneProcMask |
            SmsCloseConnectionProcMask | SmsSetPropertiesProcMask | SmsDeletePropertiesProcMask |
            SmsGetPropertiesProcMask;
    calls->register_client.callback = [](SmsConn c, SmPointer d, char *before) -> Status {
        char *name = SmsGenerateClientID(c);
        SmsRegisterClientReply(c, name);
        std::free(name);
        std::free(before);
        SmsSaveYourself(c, SmSaveLocal, False, SmInteractStyleNone, False); // as the protocol wants of the first
        Of<Server>(d).registered = true;
        return 1;
    };
    calls->interact_request.callback = [](SmsConn, SmPointer, int) {};
    calls->interact_done.callback = [](SmsConn, SmPointer, Bool) {};
    calls->save_yourself_request.callback = [](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {};
    calls->save_yourself_phase2_request.callback = [](SmsConn c, SmPointer) { SmsSaveYourselfPhase2(c); };
    calls->save_yourself_done.callback = [](SmsConn c, SmPointer d, Bool) {
        Of<Server>(d).saved = true;
        SmsSaveComplete(c);
    };
    calls->close_connection.callback = [](SmsConn c, SmPointer d, int count, char **reasons) {
        SmFreeReasons(count, reasons);
        SmsCleanUp(c);
        Of<Server>(d).client = nullptr;
    };
    calls->set_properties.callback = [](SmsConn, SmPointer, int count, SmProp **properties) {
        for (int k = 0; k < count; ++k)
            SmFreeProperty(properties[k]);
        std::free(properties);
    };
    calls->delete_properties.callback = [](SmsConn, SmPointer, int, char **) {};
    calls->get_properties.callback = [](SmsConn c, SmPointer) { SmsReturnProperties(c, 0, nullptr); };
    calls->register_client.manager_data = calls->save_yourself_done.manager_data =
        calls->close_connection.manager_data = data;
    return 1;
}

SessionManager::SessionManager() : server_(new Server) {
    IceSetIOErrorHandler([](IceConn) {}); // the library's own ends the process
    std::array<char, 256> error{};
    char vendor[] = "havuz", release[] = "1";
    if (SmsInitialize(
            vendor, release, NewClient<Server>, server_, [](char *) -> Bool { return True; },
            static_cast<int>(error.size()), error.data()) == 0 ||
        IceListenForConnections(&server_->listening, &server_->listeners, static_cast<int>(error.size()),
                                error.data()) == 0)
        throw std::runtime_error(error.data());
    for (int k = 0; k < server_->listening; ++k)
        IceSetHostBasedAuthProc(server_->listeners[k], [](char *) -> Bool { return True; });
    char *names = IceComposeNetworkIdList(server_->listening, server_->listeners);
    setenv("SESSION_MANAGER", names, 1);
    std::free(names);
}

SessionManager::~SessionManager() {
    unsetenv("SESSION_MANAGER");
    if (server_->ice != nullptr) {
        IceSetShutdownNegotiation(server_->ice, False);
        IceCloseConnection(server_->ice);
    }
    IceFreeListenObjs(server_->listening, server_->listeners);
    delete server_;
}

// A client that goes is closed by the library, or, when it just broke off, here.
void SessionManager::Server::serve() {
    const IceProcessMessagesStatus status = IceProcessMessages(ice, nullptr, nullptr);
    if (status == IceProcessMessagesIOError) {
        IceSetShutdownNegotiation(ice, False);
        IceCloseConnection(ice);
    }
    if (status != IceProcessMessagesSuccess)
        ice = nullptr;
}

bool SessionManager::serveUntil(const std::function<bool()> &holds) {
    for (int tries = 0; tries < 1000 && !holds(); ++tries) { // 10 ms each
        IceConn &ice = server_->ice;
        std::array<pollfd, 8> channels{};
        nfds_t count = 0;
        if (ice != nullptr)
            channels[count++] = {IceConnectionNumber(ice), POLLIN, 0};
        else
            for (int k = 0; k < server_->listening && count < channels.size(); ++k)
                channels[count++] = {IceGetListenConnectionNumber(server_->listeners[k]), POLLIN, 0};
        if (poll(channels.data(), count, 10) <= 0)
            continue;
        if (ice != nullptr) {
            server_->serve();
            continue;
        }
        for (std::size_t k = 0; k < count && ice == nullptr; ++k) {
            IceAcceptStatus status{};
            if ((channels[k].revents & POLLIN) != 0)
                ice = IceAcceptConnection(server_->listeners[k], &status);
        }
    }
    return holds();
}

bool SessionManager::hasClient() const { return server_->registered; }

void SessionManager::askToSave() {
    server_->saved = false;
    SmsSaveYourself(server_->client, SmSaveBoth, True, SmInteractStyleNone, False);
}

bool SessionManager::saved() const { return server_->saved; }

void SessionManager::askToGo() { SmsDie(server_->client); }

} // namespace havuz
