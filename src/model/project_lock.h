// One analysis of a project at a time: a lock file beside it, NAME.LCK, held while the run goes on.
#pragma once

#include <string>

namespace havuz {

class ProjectLock {
public:
    // project: path without extension. A lock that a living process holds is File, naming the process; one that a dead
    // process left is taken over.
    explicit ProjectLock(const std::string &project);
    ~ProjectLock();
    ProjectLock(const ProjectLock &) = delete;
    ProjectLock &operator=(const ProjectLock &) = delete;

private:
    std::string path_;
    int channel_ = -1;
};

} // namespace havuz
