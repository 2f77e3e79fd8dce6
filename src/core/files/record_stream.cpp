#include "core/files/record_stream.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cstring>
#include <limits>

#include "core/errors.h"
#include "core/files/file_errors.h"

namespace marvolin {

namespace {

constexpr std::size_t kBufferBytes = 1 << 16;

enum TypeCode : std::int16_t {
    kIntegerCode = 2,
    kLongCode = 3,
    kDoubleCode = 5,
    kStringCode = 8,
    kBooleanCode = 11,
};

[[noreturn]] void RaisePastEnd() { throw RuntimeError(62, "Input past end of file"); }
[[noreturn]] void RaiseBadLength() { throw RuntimeError(59, "Bad record length"); }

}  // namespace

RecordWriter::RecordWriter(const std::string& path) : file_(std::in_place, path), buffer_(kBufferBytes) {}
RecordWriter::RecordWriter() : buffer_(kBufferBytes) {}

void RecordWriter::Flush() {
    file_->Write({buffer_.data(), used_});
    used_ = 0;
}

void RecordWriter::MakeRoom(std::size_t bytes) {
    if (bytes <= buffer_.size() - used_) return;
    if (file_) return Flush();
    buffer_.resize(buffer_.size() * 2 + bytes);
}

void RecordWriter::Put(std::uint64_t bits, std::size_t bytes) {
    MakeRoom(bytes);
    for (std::size_t i = 0; i < bytes; ++i) buffer_[used_ + i] = static_cast<char>(bits >> (8 * i) & 0xFF);
    used_ += bytes;
}

void RecordWriter::PutByte(std::uint8_t value) { Put(value, 1); }
void RecordWriter::PutInteger(std::int16_t value) { Put(static_cast<std::uint16_t>(value), 2); }
void RecordWriter::PutLong(std::int32_t value) { Put(static_cast<std::uint32_t>(value), 4); }
void RecordWriter::PutSingle(float value) { Put(std::bit_cast<std::uint32_t>(value), 4); }
void RecordWriter::PutDouble(double value) { Put(std::bit_cast<std::uint64_t>(value), 8); }

void RecordWriter::PutString(std::string_view text) {
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) throw OverflowError();
    PutInteger(static_cast<std::int16_t>(text.size()));
    PutBytes(text);
}

void RecordWriter::PutBytes(std::string_view bytes) {
    // A file takes them in pieces that fit.
    for (std::size_t at = 0; at < bytes.size();) {
        const std::string_view piece = bytes.substr(at, file_ ? kBufferBytes / 2 : bytes.npos);
        MakeRoom(piece.size());
        std::copy(piece.begin(), piece.end(), buffer_.begin() + static_cast<std::ptrdiff_t>(used_));
        used_ += piece.size();
        at += piece.size();
    }
}

void RecordWriter::PutTagged(const TaggedValue& value) {
    if (const auto* integer = std::get_if<std::int16_t>(&value)) {
        PutInteger(kIntegerCode);
        PutInteger(*integer);
    } else if (const auto* whole = std::get_if<std::int32_t>(&value)) {
        PutInteger(kLongCode);
        PutLong(*whole);
    } else if (const auto* real = std::get_if<double>(&value)) {
        PutInteger(kDoubleCode);
        PutDouble(*real);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        PutInteger(kStringCode);
        PutString(*text);
    } else {
        PutInteger(kBooleanCode);
        PutInteger(std::get<TaggedBoolean>(value).Value);
    }
}

void RecordWriter::Finish() {
    Flush();
    file_->Sync();
}

void RecordWriter::Close() {
    Finish();
    file_->TakeName();
    file_->DropReplaced();
}

RecordReader::RecordReader(const std::string& path) : file_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    if (file_ < 0) RaiseFileError(errno);
    struct stat state {};
    // A pipe or a device would block or never end.
    if (::fstat(file_, &state) != 0 || !S_ISREG(state.st_mode)) {
        ::close(file_);
        throw RuntimeError(75, "Path/File access error");
    }
    left_ = static_cast<std::uint64_t>(state.st_size);
}

RecordReader::~RecordReader() { ::close(file_); }

void RecordReader::Get(void* target, std::size_t bytes) {
    if (bytes > left_) RaisePastEnd();
    auto* out = static_cast<char*>(target);
    std::size_t wanted = bytes;
    while (wanted > 0) {
        if (at_ == buffer_.size()) {
            buffer_.resize(kBufferBytes);
            ssize_t got = ::read(file_, buffer_.data(), kBufferBytes);
            while (got < 0 && errno == EINTR) got = ::read(file_, buffer_.data(), kBufferBytes);
            if (got < 0) RaiseFileError(errno);
            // The file has become shorter since it was opened.
            if (got == 0) RaisePastEnd();
            buffer_.resize(static_cast<std::size_t>(got));
            at_ = 0;
        }
        const std::size_t part = std::min(wanted, buffer_.size() - at_);
        std::memcpy(out, buffer_.data() + at_, part);
        at_ += part;
        out += part;
        wanted -= part;
    }
    left_ -= bytes;
}

std::uint64_t RecordReader::GetBits(std::size_t bytes) {
    std::array<std::uint8_t, 8> raw{};
    // The usual case: the whole value is in the buffer.
    if (bytes <= buffer_.size() - at_ && bytes <= left_) {
        std::memcpy(raw.data(), buffer_.data() + at_, bytes);
        at_ += bytes;
        left_ -= bytes;
    } else {
        Get(raw.data(), bytes);
    }
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < bytes; ++i) bits |= static_cast<std::uint64_t>(raw[i]) << (8 * i);
    return bits;
}

std::uint8_t RecordReader::GetByte() { return static_cast<std::uint8_t>(GetBits(1)); }
std::int16_t RecordReader::GetInteger() { return static_cast<std::int16_t>(GetBits(2)); }
std::int32_t RecordReader::GetLong() { return static_cast<std::int32_t>(GetBits(4)); }
float RecordReader::GetSingle() { return std::bit_cast<float>(static_cast<std::uint32_t>(GetBits(4))); }
double RecordReader::GetDouble() { return std::bit_cast<double>(GetBits(8)); }

std::string RecordReader::GetString() {
    const std::int16_t length = GetInteger();
    if (length < 0) RaiseBadLength();
    return GetBytes(static_cast<std::size_t>(length));
}

void RecordReader::Skip(std::uint64_t count) {
    if (count > left_) RaisePastEnd();
    const std::uint64_t buffered = std::min<std::uint64_t>(count, buffer_.size() - at_);
    at_ += buffered;
    left_ -= count;
    if (count > buffered && ::lseek(file_, static_cast<off_t>(count - buffered), SEEK_CUR) < 0) RaiseFileError(errno);
}

std::string RecordReader::GetBytes(std::size_t count) {
    if (count > left_) RaisePastEnd();
    std::string text(count, '\0');
    Get(text.data(), count);
    return text;
}

TaggedValue RecordReader::GetTagged() {
    switch (GetInteger()) {
        case kIntegerCode:
            return GetInteger();
        case kLongCode:
            return GetLong();
        case kDoubleCode:
            return GetDouble();
        case kStringCode:
            return GetString();
        case kBooleanCode:
            return TaggedBoolean{GetInteger()};
        default:
            throw RuntimeError(13, "Type mismatch");
    }
}

std::int32_t RecordReader::CheckedCount(std::int32_t count, std::size_t itemBytes) const {
    if (count < 0) RaiseBadLength();
    if (static_cast<std::uint64_t>(count) * itemBytes > left_) RaisePastEnd();
    return count;
}

}  // namespace marvolin
