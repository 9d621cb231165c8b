// Files of fixed-length records, numbered from 1, without header or padding: record n begins at byte (n-1)*length.
// Numbers in them are IEEE 754 32-bit floats, least significant byte first.
#pragma once

#include "model/result_records.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <string>
#include <vector>

namespace havuz {

static_assert(std::endian::native == std::endian::little, "record files are written as they lie in memory");

class RecordFile {
public:
    enum Access { ReadOnly, ReadWrite };
    // ReadWrite makes a missing file and keeps the bytes of one that exists. A file that cannot be opened is File.
    // shown: its name in failures, when it is not the path.
    RecordFile(const std::string &path, std::size_t length, Access access = ReadWrite, const std::string &shown = "");
    // Of an open channel, which it closes.
    RecordFile(int channel, std::size_t length, const std::string &shown);
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
    // The same for records that follow each other.
    template <std::size_t Count>
    void PutRecords(const std::vector<std::array<Float32, Count>> &buffer, int firstRecord) {
        put(buffer.data(), sizeof buffer[0] * buffer.size(), firstRecord);
    }
    template <std::size_t Count>
    void GetRecords(std::vector<std::array<Float32, Count>> &buffer, int firstRecord) const {
        get(buffer.data(), sizeof buffer[0] * buffer.size(), firstRecord);
    }
    int records() const; // whole records in the file

private:
    void put(const void *bytes, std::size_t size, int record);
    void get(void *bytes, std::size_t size, int record) const;
    std::string path_;
    std::size_t length_;
    int channel_;
};

constexpr std::size_t kBlockRecords = 64; // what the two below move at once

// Writes records as they come, those that follow each other in one transfer. What was put last reaches the file with
// flush().
template <class Record>
class RecordWriter {
public:
    explicit RecordWriter(RecordFile &file) : file_(file) { block_.reserve(kBlockRecords); }
    void put(const Record &buffer, int record) {
        if (block_.size() == kBlockRecords || record != first_ + static_cast<int>(block_.size()))
            flush();
        if (block_.empty())
            first_ = record;
        block_.push_back(buffer);
    }
    void flush() {
        if (!block_.empty())
            file_.PutRecords(block_, first_);
        block_.clear();
    }

private:
    RecordFile &file_;
    std::vector<Record> block_;
    int first_ = 0;
};

// Reads records in rising order, those behind the one that is asked for in the same transfer.
template <class Record>
class RecordReader {
public:
    explicit RecordReader(const RecordFile &file) : file_(file), records_(file.records()) {}
    const Record &get(int record) {
        if (record < first_ || record >= first_ + static_cast<int>(block_.size())) {
            const int behind = std::clamp(records_ - record + 1, 1, static_cast<int>(kBlockRecords));
            block_.resize(static_cast<std::size_t>(behind));
            first_ = record;
            file_.GetRecords(block_, first_);
        }
        return block_[static_cast<std::size_t>(record - first_)];
    }

private:
    const RecordFile &file_;
    int records_;
    std::vector<Record> block_;
    int first_ = 0;
};

constexpr int kStiffnessTerms = 300;
constexpr int kElementFreedoms = 24;
// STIF001: upper triangle of a mesh's stiffness, then its load vector. 1296 bytes.
using ElementRecord = std::array<Float32, kStiffnessTerms + kElementFreedoms>;
static_assert(sizeof(ElementRecord) == 1296);

} // namespace havuz
