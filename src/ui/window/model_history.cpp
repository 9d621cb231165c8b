#include "ui/window/model_history.h"

#include "model/project_file.h"
#include "model/store.h"

#include <numeric>
#include <utility>

namespace havuz {

ProjectNames ProjectNames::now() { return {havuz::ProjeAdi, havuz::ProjeYolu, havuz::ProjeDosyasi}; }

void ProjectNames::put() const {
    havuz::ProjeAdi = ProjeAdi;
    havuz::ProjeYolu = ProjeYolu;
    havuz::ProjeDosyasi = ProjeDosyasi;
}

void ModelHistory::begin() {
    steps_.clear();
    at_ = 0;
    state_.take();
    names_ = ProjectNames::now();
    markSaved();
}

void ModelHistory::markSaved() { file_ = fileAtStep_ = std::make_shared<const std::string>(ProjectText()); }

void ModelHistory::markUnnamed() { file_ = fileAtStep_ = nullptr; }

bool ModelHistory::changed() const {
    ModelState now;
    now.take();
    return changed(now);
}

// A step that is taken back and made again asks for the same two states.
bool ModelHistory::changed(const ModelState &now) const {
    if (file_ == nullptr)
        return true;
    for (const Compared &known : compared_)
        if (known.file == file_ && known.state == now)
            return known.changed;
    std::swap(compared_[0], compared_[1]);
    compared_[0] = {file_, now, ProjectText() != *file_};
    return compared_[0].changed;
}

std::size_t ModelHistory::bytes() const {
    return std::accumulate(steps_.begin(), steps_.end(), std::size_t{0},
                           [](std::size_t sum, const Step &step) { return sum + step.difference.bytes(); });
}

void ModelHistory::forgetOldest() {
    while (steps_.size() > kMostSteps || (steps_.size() > kLeastSteps && bytes() > kMostBytes)) {
        steps_.pop_front();
        --at_;
    }
}

bool ModelHistory::keep(const std::string &name) {
    ModelState now;
    now.take();
    return keep(name, std::move(now));
}

bool ModelHistory::keep(const std::string &name, ModelState now) {
    const ProjectNames names = ProjectNames::now();
    if (now == state_ && names == names_)
        return false;
    steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(at_), steps_.end());
    steps_.push_back({name, ModelDifference(state_, now), names != names_, names_, fileAtStep_});
    at_ = steps_.size();
    state_ = std::move(now);
    names_ = names;
    forgetOldest();
    return true;
}

void ModelHistory::amend() {
    ModelState now;
    now.take();
    names_ = ProjectNames::now();
    if (now == state_)
        return;
    if (canUndo()) {
        Step &before = steps_[at_ - 1];
        ModelState from = state_;
        before.difference.apply(from);
        before.difference = {from, now};
    }
    if (canRedo()) {
        Step &behind = steps_[at_];
        ModelState to = state_;
        behind.difference.apply(to);
        behind.difference = {now, to};
    }
    state_ = std::move(now);
}

// A step that renames leads to the names on its other side, and keeps those of this one.
void ModelHistory::cross(Step &step) {
    step.difference.apply(state_);
    state_.put();
    if (!step.renames)
        return;
    const ProjectNames here = ProjectNames::now();
    step.other.put();
    names_ = step.other;
    step.other = here;
    std::swap(step.otherFile, file_);
    fileAtStep_ = file_;
}

void ModelHistory::undo() {
    if (canUndo())
        cross(steps_[--at_]);
}

void ModelHistory::redo() {
    if (canRedo())
        cross(steps_[at_++]);
}

} // namespace havuz
