// Writes down what a person does in the window, in the language of havuz-cli script, so that a day's work can be played
// again. Pixels of the surfaces.
//
// The replay leaves the same model, not the same picture at each moment. Left out are
// - the 100 ms timer, and of hovers all but the last before another act: they change colours alone;
// - of the texts and carets that one box takes in a row all but the last;
// - of moves with no button held, in a row over one surface, those that leave nothing behind which the next one does
//   not set again. A move that catches a node, ends a drag or pulls the zoom window stays.
// What may be left out waits for the next act: this is all that a crash of the process can lose.
#pragma once

#include "ui/window/window_state.h"

#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace havuz {

class Recorder : public ActLog {
public:
    // Becomes the log of the window, whose forms are all made, until it goes. The first line tells the project that the
    // program was started with, the second the size of the drawing surface, a third the switch of the top bar when on.
    // out: a failure of it is its owner's to see.
    Recorder(WindowState &window, std::ostream &out, const std::string &project);
    ~Recorder() override;
    Recorder(const Recorder &) = delete;
    Recorder &operator=(const Recorder &) = delete;

    void Before(const Act &act) override;
    void After() override;

    // A line of another hand between the acts: a word and a path.
    void WritePath(const std::string &word, const std::string &path);

private:
    // What a move leaves behind besides what each move sets anew.
    struct Trace {
        double anchorX = 0.0, anchorY = 0.0, markerX = 0.0, markerY = 0.0;
        int command = 0, edgeDrag = 0;
        bool operator==(const Trace &) const = default;
    };
    // An act whose line waits, since the next one may take its place.
    struct Waiting {
        Act::Kind kind = Act::Tick; // Tick: none waits
        Element element;
        std::string line = {};
        std::string selection = {}; // of a text box, behind its text
        bool passes = false;        // of a move
    };
    struct Running {
        std::string late; // the line of an act that asks for a file: the answer stands before it
        bool move = false;
        Trace before;
    };

    static Trace traceNow();
    bool waitsForBox(Element box) const;
    bool takesPlace(const Act &act) const;
    void wait(const Act &act);
    void waitWithSelection(const Act &act);
    void writeWaiting();
    void write(const std::string &line);
    std::string lineOf(const Act &act) const;
    std::string elementWords(Element element) const;
    std::string words(ActPart part, const Act &act) const; // each with a blank before it
    std::string itemWord(Element list, int item) const;

    WindowState &window_;
    std::ostream &out_;
    std::map<std::pair<std::string, std::string>, int> sharing_; // elements of a form and name
    Waiting waiting_;
    std::vector<Running> running_; // acts told inside acts stand behind them
    Element hovered_;
};

} // namespace havuz
