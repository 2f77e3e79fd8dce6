#include "persistence/bin_record.h"

#include <gtest/gtest.h>

namespace marvolin {
namespace {

TEST(BinRecord, ADestinationOfALoopTrackIsStoredAsItIsAndALaterOneCoded) {
    constexpr std::int16_t kStored[] = {0, 1, 2, 3, 256, 257};
    for (std::int16_t index = 0; index < 6; ++index) {
        EXPECT_EQ(CodeDestination(index), kStored[index]);
        EXPECT_EQ(DecodeDestination(kStored[index]), index);
    }
}

TEST(BinRecord, TheReaderTakes255AndMoreAsCodedBelow6AsAnIndexAndNothingBetween) {
    EXPECT_EQ(DecodeDestination(255), 3);
    EXPECT_EQ(DecodeDestination(4), 4);
    EXPECT_EQ(DecodeDestination(5), 5);
    EXPECT_EQ(DecodeDestination(6), std::nullopt);
    EXPECT_EQ(DecodeDestination(254), std::nullopt);
}

}  // namespace
}  // namespace marvolin
