#include "model/failure.h"

#include <utility>

namespace havuz {

FailureKind KindOf(Fault fault) {
    if (fault <= Fault::Unknown)
        return Subscript;
    if (fault <= Fault::PictureTooLarge)
        return Overflow;
    if (fault <= Fault::NoLocalArea)
        return DivisionByZero;
    if (fault <= Fault::NoRowHeight)
        return BadNumber;
    return fault <= Fault::RimNotEven ? BadShape : File;
}

RuntimeFailure::RuntimeFailure(FailureParts parts)
    : std::runtime_error(FailureInEnglish(parts)), parts_(std::make_shared<const FailureParts>(std::move(parts))) {}

RuntimeFailure RuntimeFailure::in(FileField field) const {
    FailureParts placed = *parts_;
    placed.inFile = std::move(field);
    return RuntimeFailure(std::move(placed));
}

void FailSubscript(Thing thing, long long no, long long last) { FailSubscript({}, thing, no, last); }

void FailSubscript(const Spots &where, Thing thing, long long no, long long last) {
    throw RuntimeFailure({.where = where, .thing = thing, .number = no, .bound = last});
}

void FailOverflow(Fault fault, Amount number) { throw RuntimeFailure({.fault = fault, .number = number}); }

void FailFile(Fault fault, const std::string &path, int reason) {
    throw RuntimeFailure({.fault = fault, .text = path, .reason = reason});
}

} // namespace havuz
