#include "audio/ds_error.h"

#include <gtest/gtest.h>

#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;

struct Told {
    std::uint32_t number;
    const char* text;
};

constexpr Told kTold[] = {
    {0x80004001, "The function called is not supported at this time."},
    {0x80004005, "An undetermined error occurred inside the DirectSound subsystem."},
    {0x80070057, "An invalid parameter was passed to the returning function."},
    {0x8878000A,
     "The request failed because resources, such as a priority level, were already in use by another caller."},
    {0x8878001E, "The control (volume, pan, and so forth) requested by the caller is not available."},
    {0x88780032, "This function is not valid for the current state of this object."},
    {0x88780046, "The caller does not have the priority level required for the function to succeed."},
    {0x88780064, "The specified wave format is not supported."},
    {0x88780078, "No sound driver is available for use."},
    {0x88780082, "The object is already initialized."},
    {0x88780096, "The buffer memory has been lost and must be restored."},
    {0x887800A0, "Another application has a higher priority level, preventing this call from succeeding."},
    {0x887800AA, "The DirectSound device has not been initialized."},
    {7, " The DirectSound subsystem could not allocate sufficient memory to complete the caller's request."},
    {430, "The requested COM interface is not available."},
};

TEST(ShowDSError, ShowsTheTextOfEachKnownNumberInAPlainBox) {
    for (const Told& told : kTold) {
        SCOPED_TRACE(told.number);
        Instrument i;
        ShowDSError(i.s, "playing loop", told.number);
        ASSERT_EQ(i.Desk.Boxes.size(), 1U);
        EXPECT_EQ(i.Desk.LastBox(), std::string("Error playing loop: ") + told.text);
        EXPECT_EQ(i.Desk.Boxes[0].Style, BoxStyle::Plain);
    }
}

TEST(ShowDSError, ACodeOutsideTheTableEndsAtTheColonAndBlank) {
    Instrument i;
    ShowDSError(i.s, "panning", 12345);
    EXPECT_EQ(i.Desk.LastBox(), "Error panning: ");
}

}  // namespace
}  // namespace marvolin
