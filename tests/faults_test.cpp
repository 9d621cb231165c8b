// Every opening, write, sync, rename, link and close of a save and of a run fails once, kills once and is followed by a
// SIGTERM once: what was there stays, or what is new is whole, and the signal leaves nothing else behind. By a layer
// between havuz-cli and the system (tests/fuzz/fault_layer.cpp).
#include "support.h"

#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <vector>

namespace havuz {

namespace fs = std::filesystem;

namespace {

using Files = std::vector<std::string>; // the bytes of each, "" where it is missing

// A folder with a command that is to be disturbed, and the files that it replaces.
class Disturbed {
public:
    Disturbed(std::string command, std::vector<std::string> names)
        : command_(std::move(command)), names_(std::move(names)) {
        fs::create_directory(scratch());
    }
    const std::string &path() const { return folder_.path(); }
    std::string scratch() const { return path() + "/scratch"; }

    int shell(const std::string &words, const std::string &environment = "") const {
        const std::string line = "cd " + path() + " && TMPDIR=" + scratch() + " " + environment + " " + HAVUZ_CLI +
                                 " " + words + " >/dev/null 2>&1";
        const int status = std::system(line.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    int disturb(const std::string &fault) const {
        return shell(command_,
                     "ASAN_OPTIONS=verify_asan_link_order=0 LD_PRELOAD=" HAVUZ_FAULT_LAYER " HAVUZ_FAULT_IN=" + path() +
                         " HAVUZ_FAULT_LOG=" + path() + "/log HAVUZ_FAULT='" + fault + "'");
    }
    int undisturbed() const { return shell(command_); }
    long calls() const { return std::atol(ReadBytes(path() + "/log").c_str()); }

    Files files() const {
        Files all;
        for (const std::string &name : names_)
            all.push_back(ReadBytes(path() + "/" + name));
        return all;
    }
    void put(const Files &files) const {
        for (std::size_t k = 0; k < names_.size(); ++k) {
            fs::remove(path() + "/" + names_[k]); // two names of one file otherwise take the same bytes
            if (!files[k].empty())
                WriteBytes(path() + "/" + names_[k], files[k]);
        }
    }
    // What neither the command nor its user knows of.
    std::string strangers() const {
        std::string found;
        for (const auto &entry : fs::recursive_directory_iterator(path())) {
            const std::string name = entry.path().filename().string();
            if (std::find(names_.begin(), names_.end(), name) == names_.end() && name != "log" && name != "scratch" &&
                name != "P.POL")
                found += name + " ";
        }
        return found;
    }

private:
    TemporaryFolder folder_;
    std::string command_;
    std::vector<std::string> names_;
};

} // namespace

TEST(Faults, ASaveLosesNothing) {
    const Disturbed d("set \"$PWD\"/P.POL Fck=300", {"P.POL", "P.POL~"});
    ASSERT_EQ(d.shell("pool rectangular -o P.POL --set Fck=160"), 0);
    ASSERT_EQ(d.shell("set P.POL Fck=200"), 0);
    const Files old = d.files();
    ASSERT_EQ(d.disturb(""), 0);
    const Files made = d.files();
    ASSERT_EQ(made[1], old[0]);
    const long calls = d.calls();
    ASSERT_GE(calls, 5); // write, link, rename, sync, close, rename
    for (long n = 1; n <= calls; ++n) {
        SCOPED_TRACE(n);
        d.put(old);
        const int status = d.disturb("fail " + std::to_string(n));
        EXPECT_EQ(d.files()[0], status == 0 ? made[0] : old[0]);
        EXPECT_TRUE(d.files()[1] == old[1] || d.files()[1] == old[0]);
        EXPECT_EQ(d.strangers(), "");
        d.put(old);
        EXPECT_EQ(d.disturb("term " + std::to_string(n)), 128 + SIGTERM);
        EXPECT_TRUE(d.files()[0] == old[0] || d.files()[0] == made[0]);
        EXPECT_EQ(d.strangers(), "");
        d.put(old);
        EXPECT_NE(d.disturb("kill " + std::to_string(n)), 0);
        EXPECT_TRUE(d.files()[0] == old[0] || d.files()[0] == made[0]);
        EXPECT_TRUE(d.files()[1] == old[1] || d.files()[1] == old[0]);
        EXPECT_EQ(d.undisturbed(), 0); // and the next one clears up
        EXPECT_EQ(d.files()[0], made[0]);
        EXPECT_EQ(d.strangers(), "");
    }
}

TEST(Faults, ARunNeverMixesItsFilesWithThoseOfAnother) {
    const Disturbed d("run \"$PWD\"/P.POL --quiet", {"P.DEP", "P.SON", "P.HSP", "WORKPOOL"});
    ASSERT_EQ(
        d.shell("pool rectangular -o P.POL --set Lx=4 --set Ly=4 --set UstKot=4 --set Bk=0 --set MeshGenisligi=4"), 0);
    ASSERT_EQ(d.shell("mesh P.POL --mesh-width 4"), 0);
    ASSERT_EQ(d.undisturbed(), 0);
    const Files old = d.files();
    ASSERT_EQ(d.shell("set P.POL SiviKotu=1.5"), 0);
    fs::remove(d.path() + "/P.POL~");
    ASSERT_EQ(d.disturb(""), 0);
    const Files made = d.files();
    const long calls = d.calls();
    for (std::size_t k = 0; k < 3; ++k)
        ASSERT_NE(old[k], made[k]);
    for (long n = 1; n <= calls; ++n) {
        SCOPED_TRACE(n);
        d.put(old);
        const int status = d.disturb("fail " + std::to_string(n));
        EXPECT_EQ(d.files(), status == 0 ? made : old);
        EXPECT_EQ(d.strangers(), "");
        d.put(old);
        EXPECT_EQ(d.disturb("term " + std::to_string(n)), 128 + SIGTERM);
        EXPECT_TRUE(d.files() == old || d.files() == made);
        EXPECT_EQ(d.strangers(), "");
        d.put(old);
        EXPECT_NE(d.disturb("kill " + std::to_string(n)), 0);
        const Files left = d.files();
        bool ofOld = false, ofNew = false;
        for (std::size_t k = 0; k < 3; ++k) {
            ofOld = ofOld || left[k] == old[k];
            ofNew = ofNew || left[k] == made[k];
            EXPECT_TRUE(left[k].empty() || left[k] == old[k] || left[k] == made[k]);
        }
        EXPECT_FALSE(ofOld && ofNew);
        EXPECT_TRUE(left[2].empty() || (!left[0].empty() && !left[1].empty())); // ".HSP" vouches for both
        EXPECT_EQ(d.undisturbed(), 0);
        EXPECT_EQ(d.files(), made);
        EXPECT_EQ(d.strangers(), "");
    }
}

} // namespace havuz
