#include "audio/ds_error.h"

#include <array>
#include <string>

namespace marvolin {

namespace {

struct ErrorText {
    std::uint32_t number;
    std::string_view text;
};

constexpr std::array<ErrorText, 15> kErrorTexts{{
    {sound_error::kNotImplemented, "The function called is not supported at this time."},
    {sound_error::kGeneric, "An undetermined error occurred inside the DirectSound subsystem."},
    {sound_error::kInvalidArgument, "An invalid parameter was passed to the returning function."},
    {sound_error::kAllocated,
     "The request failed because resources, such as a priority level, were already in use by another caller."},
    {sound_error::kControlUnavailable,
     "The control (volume, pan, and so forth) requested by the caller is not available."},
    {sound_error::kInvalidCall, "This function is not valid for the current state of this object."},
    {sound_error::kPriorityNeeded, "The caller does not have the priority level required for the function to succeed."},
    {sound_error::kBadFormat, "The specified wave format is not supported."},
    {sound_error::kNoDriver, "No sound driver is available for use."},
    {sound_error::kAlreadyInitialised, "The object is already initialized."},
    {sound_error::kBufferLost, "The buffer memory has been lost and must be restored."},
    {sound_error::kOtherHasPriority,
     "Another application has a higher priority level, preventing this call from succeeding."},
    {sound_error::kUninitialised, "The DirectSound device has not been initialized."},
    {sound_error::kOutOfMemory,
     " The DirectSound subsystem could not allocate sufficient memory to complete the caller's request."},
    {sound_error::kNoInterface, "The requested COM interface is not available."},
}};

}  // namespace

std::string_view DSErrorText(std::uint32_t number) {
    for (const ErrorText& error : kErrorTexts) {
        if (error.number == number) return error.text;
    }
    return "";
}

void ShowDSError(Session& s, std::string_view context, std::uint32_t number) {
    std::string text = "Error ";
    text.append(context).append(": ").append(DSErrorText(number));
    s.World.Desk.Report(text);
}

}  // namespace marvolin
