#pragma once
/// \file
/// Binary records in a file, written and read strictly in sequence: little-endian, without padding.
///
/// Failures are `RuntimeError`s with a number and a description for the player: those of `RaiseFileError`, and
/// for what a file holds "Input past end of file" (62), "Bad record length" (59) and "Type mismatch" (13).

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/files/new_file.h"
#include "core/files/tagged_value.h"

namespace marvolin {

/// Writes a new file, which gets its name when it is whole. Without `Close`, or `TakeName` of its
/// `File`, nothing is left of it, and the file that has the name stays as it is.
///
/// Without a path the records stay in memory.
class RecordWriter {
public:
    explicit RecordWriter(const std::string& path);
    RecordWriter();

    void PutByte(std::uint8_t value);
    void PutInteger(std::int16_t value);
    void PutLong(std::int32_t value);
    void PutSingle(float value);
    void PutDouble(double value);
    void PutBoolean(bool value) { PutInteger(ToBoolean(value)); }
    /// Integer with the number of bytes, then the bytes. More than 32767 raise `OverflowError`.
    void PutString(std::string_view text);
    /// Records that were written before, in memory.
    void PutBytes(std::string_view bytes);
    /// Type code, then the value.
    void PutTagged(const TaggedValue& value);
    void PutTagged(std::string_view text) { PutTagged(TaggedValue(std::string(text))); }
    /// In memory: the bytes of all records since the last `Clear`, valid until the next call.
    std::string_view Bytes() const { return {buffer_.data(), used_}; }
    /// In memory: begins again, in the room that is there.
    void Clear() { used_ = 0; }

    // Those of a file.

    /// Writes what is still in memory and waits until all of it is on the disk. The file has no name yet.
    void Finish();
    /// The file under way, for those who name several files together. It lives as long as this.
    NewFile& File() { return *file_; }
    /// `Finish`, and gives the file its name in place of the one that has it.
    void Close();

private:
    void Put(std::uint64_t bits, std::size_t bytes);
    void Flush();
    void MakeRoom(std::size_t bytes);
    std::optional<NewFile> file_;  ///< none in memory
    std::vector<char> buffer_;     ///< longer than any string of a file
    std::size_t used_ = 0;
};

/// Reads a file as untrusted bytes: a length or a count beyond the rest of the file is refused.
class RecordReader {
public:
    /// Opens plain files only; anything else is "Path/File access error" (75).
    explicit RecordReader(const std::string& path);
    ~RecordReader();
    RecordReader(const RecordReader&) = delete;
    RecordReader& operator=(const RecordReader&) = delete;

    std::uint8_t GetByte();
    std::int16_t GetInteger();
    std::int32_t GetLong();
    float GetSingle();
    double GetDouble();
    /// A negative length is "Bad record length" (59).
    std::string GetString();
    /// The bytes of a string whose length was read already.
    std::string GetBytes(std::size_t count);
    /// Passes over bytes, also more than fit in memory.
    void Skip(std::uint64_t count);
    /// An unknown type code is "Type mismatch" (13).
    TaggedValue GetTagged();
    /// Checks a count of items of at least `itemBytes` each and returns it: "Bad record length" when it is negative,
    /// "Input past end of file" when the rest of the file cannot hold that many.
    std::int32_t CheckedCount(std::int32_t count, std::size_t itemBytes) const;
    /// Bytes not yet read.
    std::uint64_t Left() const { return left_; }

private:
    void Get(void* target, std::size_t bytes);
    std::uint64_t GetBits(std::size_t bytes);
    int file_ = -1;
    std::uint64_t left_ = 0;
    std::vector<char> buffer_;
    std::size_t at_ = 0;
};

}  // namespace marvolin
