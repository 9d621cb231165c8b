// The steps of a person's work on the model, to be taken back and made again. Steps are kept as differences; the oldest
// go when there are more than kMostSteps or when they fill more than kMostBytes, but never below kLeastSteps.
#pragma once

#include "ui/window/model_state.h"

#include <array>
#include <deque>
#include <memory>
#include <string>

namespace havuz {

// Under which name the project lies, beside the model: opening changes it with the model, saving without it.
struct ProjectNames {
    std::string ProjeAdi, ProjeYolu, ProjeDosyasi;
    static ProjectNames now();
    void put() const;
    bool operator==(const ProjectNames &) const = default;
};

class ModelHistory {
public:
    static constexpr std::size_t kLeastSteps = 100, kMostSteps = 1000, kMostBytes = 90U << 20;

    // The store as it stands is the beginning; no step is behind it.
    void begin();
    // From the last step to the store as it stands; false, with nothing done, when both are the same. What was taken
    // back is dropped.
    bool keep(const std::string &name);
    bool keep(const std::string &name, ModelState now); // now: of the store
    // The store differs from the last step by what is none of its own (a save rebuilds the springs): the step before
    // and the one behind lead to it now.
    void amend();

    // The project's file holds the model as it stands. Whether the model differs from what its project's file holds.
    void markSaved();
    void markUnnamed(); // no file holds the model
    bool changed() const;
    bool changed(const ModelState &now) const; // now: of the store

    bool canUndo() const { return at_ > 0; }
    bool canRedo() const { return at_ < steps_.size(); }
    const std::string &undoName() const { return steps_[at_ - 1].name; }
    const std::string &redoName() const { return steps_[at_].name; }
    void undo(); // writes the store
    void redo();

    std::size_t steps() const { return steps_.size(); }
    std::size_t bytes() const; // of all steps
    const ModelState &state() const { return state_; }

private:
    using FileText = std::shared_ptr<const std::string>; // what the project's file holds
    struct Step {
        std::string name;
        ModelDifference difference;
        bool renames = false; // leads to another project
        ProjectNames other = {};
        FileText otherFile = {};
    };
    struct Compared {
        FileText file;
        ModelState state;
        bool changed = false;
    };
    void cross(Step &step);
    void forgetOldest();

    ModelState state_; // at the last step
    ProjectNames names_;
    FileText file_, fileAtStep_;
    mutable std::array<Compared, 2> compared_; // with the file, the last first
    std::deque<Step> steps_;
    std::size_t at_ = 0; // steps that are not taken back
};

} // namespace havuz
