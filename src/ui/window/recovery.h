// Copies of unsaved work under the user's state directory: one file for each session, never over that of another, and
// what sessions that are over have left there. A copy is a project file with a few lines behind its last record, where
// no reader looks: when, why, of which project, under which title.
#pragma once

#include <ctime>
#include <future>
#include <optional>
#include <string>
#include <vector>

namespace havuz {

struct RecoveryCopy {
    std::string file;    // the copy
    std::string project; // path of the project's file, "" for a model without a name
    std::string reason;  // why the session ended, "" when it was cut off
    std::string title;   // ProjeIsmi
    std::time_t time = 0;
};

class Recovery {
public:
    explicit Recovery(std::string directory); // made when it is needed
    ~Recovery();                              // a copy that was kept stays
    Recovery(const Recovery &) = delete;
    Recovery &operator=(const Recovery &) = delete;

    // $XDG_STATE_HOME/havuz, else ~/.local/state/havuz; "" without a home.
    static std::string UsualDirectory();

    // What sessions that are over have left, the latest first. Files that such a session left half written go.
    std::vector<RecoveryCopy> left() const;
    static void remove(const RecoveryCopy &copy);

    // The model as it stands into this session's file: now, or beside the work. A failing write is File; of a later one
    // takeError tells, once.
    void keep(const std::string &reason);
    void keepLater();
    std::string takeError();
    // Nothing is unsaved any more: this session's file goes.
    void drop();

private:
    std::string stem() const { return directory_ + "/" + session_; }
    void begin();
    void finishWriting();

    std::string directory_, session_; // "": nothing was written yet
    int lock_ = -1;
    std::future<std::string> writing_; // gives the failure, "" for none
    std::string error_;
};

// The copy of a path, when it has what makes it one.
std::optional<RecoveryCopy> ReadRecoveryCopy(const std::string &file);

} // namespace havuz
