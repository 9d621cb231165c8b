// The whole of the model as bytes: tables with their scratch slots, counts, parameters, title. Two states of one model
// are the same exactly when no command can tell them apart; what a drawing derives (the depth order of meshes) and what
// never was a value (padding) is none of it. As long as the records that are not blank, at most 1 MB; taken and put
// back in a fraction of a millisecond.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace havuz {

class ModelState {
public:
    void take();      // of the store
    void put() const; // into the store; what is no part of the state stays as it is there
    bool operator==(const ModelState &) const = default;

    // Whether plates and panels are the same; nodes and meshes.
    bool samePlates(const ModelState &other) const;
    bool sameMesh(const ModelState &other) const;

    // Each table, the values, the title; a part ends with its last word that is not 0.
    using Words = std::vector<std::uint64_t>;
    static constexpr std::size_t kParts = 7;
    const Words &part(std::size_t no) const { return parts_[no]; }
    Words &part(std::size_t no) { return parts_[no]; }

private:
    std::array<Words, kParts> parts_;
};

// What leads from one state to another and back: runs of words that differ, as their exclusive or.
class ModelDifference {
public:
    ModelDifference(const ModelState &from, const ModelState &to);
    // Turns the one of the two states into the other.
    void apply(ModelState &state) const;
    std::size_t bytes() const;

private:
    struct Run {
        std::uint32_t first, length;
    };
    struct Part { // one that differs
        std::size_t no, fromSize, toSize;
        std::vector<Run> runs;
        ModelState::Words words; // of all runs, one behind the other
    };
    std::vector<Part> parts_;
};

} // namespace havuz
