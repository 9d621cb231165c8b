// Writing files so that nothing is lost: beside the old one, flushed to the disk, renamed over it, the directory
// synced. A failing write leaves the old file whole; so does a kill.
#pragma once

#include "model/temporary_files.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace havuz {

// What becomes of a target that is a pipe or a character device: written straight, or refused.
enum class Special { Straight, Refused };

// A new file beside its target. It goes again unless it took the target's place. A symbolic link is followed, also one
// that leads to nothing yet. File, naming the target: it is a directory or read-only, no one reads the pipe, or the
// system refuses.
class BesideFile {
public:
    explicit BesideFile(const std::string &target, Special special = Special::Straight);
    ~BesideFile();
    BesideFile(const BesideFile &) = delete;
    BesideFile &operator=(const BesideFile &) = delete;

    void write(std::string_view bytes);
    const std::string &path() const { return made_.path; } // of the file beside, for those that write it themselves
    const std::string &target() const { return target_; }  // links followed

    void keepTail();      // appends what the target holds behind the length of the new file
    void keepBackup();    // the target becomes target~, unless the new bytes are the same
    void seal();          // permissions of the target, flushed, closed: all that can fail before the rename
    void replaceTarget(); // sealed, renamed over the target, directory synced

private:
    friend void ReplaceTogether(std::initializer_list<BesideFile *> files);
    void setAside();
    void takePlace();
    void putBack();
    void dropSpare();
    [[noreturn]] void fail() const;

    std::string target_;
    TemporaryFile made_;
    std::string spare_; // where the old file waits while several take their places
    bool straight_ = false, placed_ = false;
};

// All of them take their places, or none: a failure puts the old ones back. A kill in between leaves some missing,
// never files of two sets side by side. The last, which may vouch for the others, leaves first and comes last.
void ReplaceTogether(std::initializer_list<BesideFile *> files);

enum class Backup { None, Kept };
void WriteWholeFile(const std::string &path, std::string_view bytes, Backup backup = Backup::None);

} // namespace havuz
