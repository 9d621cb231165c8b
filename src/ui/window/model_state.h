// The whole of the model as bytes: tables with their scratch slots, counts, parameters, title. Two states of one model
// are the same exactly when no command can tell them apart; what a drawing derives (the depth order of meshes) and what
// never was a value (padding) is none of it. About 1 MB, taken and put back in a fraction of a millisecond.
#pragma once

#include <cstdint>
#include <vector>

namespace havuz {

class ModelState {
public:
    void take();      // of the store
    void put() const; // into the store; what is no part of the state stays as it is there
    bool operator==(const ModelState &) const = default;

    // Whether plates and panels are the same; nodes, meshes and counts.
    bool samePlates(const ModelState &other) const;
    bool sameMesh(const ModelState &other) const;

    using Words = std::vector<std::uint64_t>;
    const Words &words() const { return words_; }
    void set(Words words) { words_ = std::move(words); }

private:
    Words words_;
};

// What leads from one state to another and back: runs of words that differ, as their exclusive or.
class ModelDifference {
public:
    ModelDifference(const ModelState &from, const ModelState &to);
    // Turns the one of the two states into the other.
    void apply(ModelState &state) const;
    bool empty() const { return runs_.empty() && fromSize_ == toSize_; }
    std::size_t bytes() const { return runs_.size() * sizeof(Run) + words_.size() * sizeof(std::uint64_t); }

private:
    struct Run {
        std::uint32_t first, length;
    };
    std::vector<Run> runs_;
    ModelState::Words words_; // of all runs, one behind the other
    std::size_t fromSize_, toSize_;
};

} // namespace havuz
