// Files of fixed-length records, numbered from 1, without header or padding: record n begins at byte (n-1)*length.
// Numbers in them are IEEE 754 32-bit floats, least significant byte first.
#pragma once

#include "model/result_records.h"

#include <array>
#include <bit>
#include <cstddef>
#include <string>

namespace havuz {

static_assert(std::endian::native == std::endian::little, "record files are written as they lie in memory");

class RecordFile {
public:
    enum Access { ReadOnly, ReadWrite };
    // ReadWrite makes a missing file and keeps the bytes of one that exists. A file that cannot be opened is File.
    // shown: its name in failures, when it is not the path.
    RecordFile(const std::string &path, std::size_t length, Access access = ReadWrite, const std::string &shown = "");
    ~RecordFile();
    RecordFile(const RecordFile &) = delete;
    RecordFile &operator=(const RecordFile &) = delete;

    // Whole records; a failing or incomplete transfer is File.
    template <std::size_t Count>
    void PutRecord(const std::array<Float32, Count> &buffer, int record) {
        put(buffer.data(), sizeof buffer, record);
    }
    template <std::size_t Count>
    void GetRecord(std::array<Float32, Count> &buffer, int record) const {
        get(buffer.data(), sizeof buffer, record);
    }
    int records() const; // whole records in the file

private:
    void put(const void *bytes, std::size_t size, int record);
    void get(void *bytes, std::size_t size, int record) const;
    std::string path_;
    std::size_t length_;
    int channel_;
};

constexpr int kStiffnessTerms = 300;
constexpr int kElementFreedoms = 24;
// STIF001: upper triangle of a mesh's stiffness, then its load vector. 1296 bytes.
using ElementRecord = std::array<Float32, kStiffnessTerms + kElementFreedoms>;
static_assert(sizeof(ElementRecord) == 1296);

} // namespace havuz
