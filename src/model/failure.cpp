#include "model/failure.h"

namespace havuz {

void FailSubscript(const std::string &table, long long no, long long last) {
    throw RuntimeFailure(Subscript, table + "(" + std::to_string(no) + ") lies outside 0.." + std::to_string(last));
}

void FailOverflow(const std::string &what) { throw RuntimeFailure(Overflow, what); }

} // namespace havuz
