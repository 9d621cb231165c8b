// A fixed-capacity table: records 0..Capacity, allocated once. Records are numbered from 1; record 0 stays blank and is
// the source for clearing a record. The count is a variable of its own and slots above it are free scratch, so the
// bound is the capacity. It is checked in every build.
#pragma once

#include "model/failure.h"

#include <cstddef>
#include <vector>

namespace havuz {

template <class Record, int Capacity>
class Table {
public:
    explicit Table(Thing name) : name_(name), row_(Capacity + 1) {}
    Record &operator[](int no) { return row_[place(no)]; }
    const Record &operator[](int no) const { return row_[place(no)]; }
    static constexpr int capacity() { return Capacity; }
    void reset() { row_.assign(Capacity + 1, Record{}); }

private:
    std::size_t place(int no) const {
        if (no < 0 || no > Capacity)
            FailSubscript(name_, no, Capacity);
        return static_cast<std::size_t>(no);
    }
    Thing name_;
    std::vector<Record> row_;
};

} // namespace havuz
