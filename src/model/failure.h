// Failures of the core: the one exception it throws, and the end of the program asked for by its platform.
// A failure carries its parts; its English and its Turkish sentence are printed from them (failure_words.cpp). The core
// never catches one half way: the programs and the start-up do.
#pragma once

#include "model/things.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace havuz {

enum FailureKind { Subscript, Overflow, DivisionByZero, BadNumber, BadShape, File };

// What went wrong. Each belongs to one kind and has one sentence in either language; the comments name the parts that
// the sentence shows besides the place.
enum class Fault : std::uint8_t {
    // Subscript
    OutsideBounds, // thing, number, first, bound
    NamesOutside,  // number, first, bound: a mesh names a node that is none
    NodeHeld,      // thing, number, bound load columns, first: how many a held node can take
    NodeUnused,    // thing, number, bound load columns: a point load on a node of no active mesh
    JoinsTooMany,  // thing, number, first meshes, bound entries
    TooManyEquations,
    ProfileTooLong,  // number of equations, first: cells of the profile, bound
    TooManyRhsCells, // number of equations, first: load columns, bound
    MeshTooFine,     // text: width asked for, first nodes, bound meshes of the tables, number: least width that fits
    NoWidthFits,     // first nodes, bound meshes of the tables
    Unknown,         // thing, text: a name that nothing has
    // Overflow
    Past16Bits,       // number, that a field cannot hold
    Past32Bits,       // number, that a field cannot hold
    CountPast16Bits,  // number
    WholePast32Bits,  // number
    NumberTooLarge,   // text
    CodePast16Bits,   // thing, number, bound: the last plate with a code
    SolutionTooLarge, // of the equation that the place names
    PictureTooLarge,  // number x bound pixels
    // DivisionByZero
    Divided,        // thing
    DividedBy,      // thing, a field of the place
    NoLengthOfFoot, // of the wall
    NoLengthOfSlope,
    NoPlanExtent,
    NoPlanLength,
    NoExtent,
    NoSide, // thing
    NoLocalArea,
    // BadNumber
    NotANumber,  // text
    NoMeshWidth, // thing, text
    NoRowHeight, // text
    // BadShape
    OutlineCrosses, // text: near which place
    OutlineTouches, // text: near which place
    FewCorners,
    NoPlanArea,
    RimNotEven,
    // File: text is the path
    EndsInLine,
    IsDirectory,
    NotOurs,
    CannotOpen,
    CannotRead,
    CannotReadRecord, // number
    CannotCreate,
    CannotCreateScratch,
    CannotWrite,
    CannotRemove,
    CannotStart,
    ReadOnly,
    NoPlainFile,
    AlreadyAnalysed, // number: the process that does
    IsTheProject,
    NoPicture,
    NothingToDraw,
    NothingToExport,
};

FailureKind KindOf(Fault fault);

// A number of a sentence: whole, or with six decimals.
struct Amount {
    double value = 0.0;
    bool whole = true;

    Amount() = default;
    template <class Number, class = std::enable_if_t<std::is_arithmetic_v<Number>>>
    Amount(Number v) : value(static_cast<double>(v)), whole(std::is_integral_v<Number>) {}
};

// A step of a place: "plate 3", "NoktaTable(7)".
struct Spot {
    Thing thing;
    long long no;
};
using Spots = std::vector<Spot>; // outermost first

// A thing with words, or a name of the model that is the same in both languages. The text of a name must outlive it.
struct Label {
    Label(const char *modelName) : name(modelName) {}
    Label(Thing named) : thing(named) {}
    const char *name = nullptr;
    Thing thing = Thing::Nothing;
};

// The field of a text file at which its reading failed.
struct FileField {
    std::string path;
    int line = 0, field = 0;
    Label record = Thing::Nothing;
    int recordNo = 0; // 0: the record has no number
    Label fieldName = Thing::Nothing;
};

struct FailureParts {
    Fault fault = Fault::OutsideBounds;
    Spots where = {};
    Thing thing = Thing::Nothing;
    Amount number = {};
    long long first = 0, bound = 0;
    std::string text = {}; // a path or a word that was found
    int reason = 0;        // errno, 0 where the system gave none
    std::optional<FileField> inFile = {};
};

class RuntimeFailure : public std::runtime_error {
public:
    explicit RuntimeFailure(FailureParts parts);
    FailureKind kind() const { return KindOf(parts_->fault); }
    const FailureParts &parts() const { return *parts_; }
    // The same failure, met while this field was read.
    RuntimeFailure in(FileField field) const;

private:
    std::shared_ptr<const FailureParts> parts_; // an exception must copy without throwing
};

// what() of a failure: "plate 3: NoktaTable(5001) lies outside 0..5000".
std::string FailureInEnglish(const FailureParts &parts);
// For the prompt line, the kind in front: "TABLO SINIRI ASILDI: PLAK 3: NoktaTable(5001) SINIR 0..5000".
std::string FailureInTurkish(const RuntimeFailure &failure);

// Thrown by the operation of a platform that ends the program, so that a test can see the end.
struct ProgramEnd {
    int status = 0;
};

[[noreturn]] void FailSubscript(Thing thing, long long no, long long last);
[[noreturn]] void FailSubscript(const Spots &where, Thing thing, long long no, long long last);
[[noreturn]] void FailOverflow(Fault fault, Amount number);
// reason: errno as the failing call left it.
[[noreturn]] void FailFile(Fault fault, const std::string &path, int reason);

// Element k of a sequence numbered from 0. Outside it is Subscript.
template <class Sequence>
decltype(auto) CheckedElement(Sequence &cells, Thing thing, long long k) {
    if (k < 0 || k >= static_cast<long long>(cells.size()))
        FailSubscript(thing, k, static_cast<long long>(cells.size()) - 1);
    return cells[static_cast<std::size_t>(k)];
}

} // namespace havuz
