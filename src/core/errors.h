#pragma once
/// \file
/// The errors that a routine raises to the trap of its caller.

#include <cstdint>
#include <stdexcept>
#include <string>

namespace marvolin {

/// An error of the running program, with the number and the description by which traps report it.
class RuntimeError : public std::runtime_error {
public:
    RuntimeError(std::uint32_t number, const std::string& description)
        : std::runtime_error(description), number_(number) {}
    std::uint32_t Number() const { return number_; }

private:
    std::uint32_t number_;
};

/// A row or another index lies outside its table (number 9).
class SubscriptError : public RuntimeError {
public:
    SubscriptError() : RuntimeError(9, "Subscript out of range") {}
};

/// A sum does not fit its 16 bits (number 6).
class OverflowError : public RuntimeError {
public:
    OverflowError() : RuntimeError(6, "Overflow") {}
};

/// An object is used that was never made or no longer exists (number 91).
class NoObjectError : public RuntimeError {
public:
    NoObjectError() : RuntimeError(91, "Object variable or With block variable not set") {}
};

/// The audio service refuses an operation. The number is one of those that `DSErrorText` names.
class SoundError : public RuntimeError {
public:
    explicit SoundError(std::uint32_t number) : RuntimeError(number, "sound service error") {}
};

/// Numbers of the audio service.
namespace sound_error {
inline constexpr std::uint32_t kOutOfMemory = 7;
inline constexpr std::uint32_t kNoInterface = 430;
inline constexpr std::uint32_t kNotImplemented = 0x80004001;
inline constexpr std::uint32_t kGeneric = 0x80004005;
inline constexpr std::uint32_t kInvalidArgument = 0x80070057;
inline constexpr std::uint32_t kAllocated = 0x8878000A;
inline constexpr std::uint32_t kControlUnavailable = 0x8878001E;
inline constexpr std::uint32_t kInvalidCall = 0x88780032;
inline constexpr std::uint32_t kPriorityNeeded = 0x88780046;
inline constexpr std::uint32_t kBadFormat = 0x88780064;
inline constexpr std::uint32_t kNoDriver = 0x88780078;
inline constexpr std::uint32_t kAlreadyInitialised = 0x88780082;
inline constexpr std::uint32_t kBufferLost = 0x88780096;
inline constexpr std::uint32_t kOtherHasPriority = 0x887800A0;
inline constexpr std::uint32_t kUninitialised = 0x887800AA;
}  // namespace sound_error

/// What no amount of memory would mend: more than a position or a buffer of the service can count. Told as
/// `kOutOfMemory`.
class SoundTooLong : public SoundError {
public:
    SoundTooLong() : SoundError(sound_error::kOutOfMemory) {}
};

}  // namespace marvolin
