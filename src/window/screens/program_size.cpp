#include "window/screens/program_size.h"

#include <algorithm>

namespace marvolin {

bool IsProgramSize(int percent) { return std::ranges::find(kProgramSizes, percent) != kProgramSizes.end(); }

bool SizeFits(int percent, const FormSizes& forms, QSize room) {
    return forms.Main.width() * percent <= room.width() * 100 &&
           forms.Main.height() * percent <= (room.height() - kTitleRoom) * 100;
}

int LargestSize(const FormSizes& forms, QSize room) {
    const FormSizes both{{forms.Main.width() + forms.Browser, forms.Main.height()}, 0};
    const auto largest = std::find_if(kProgramSizes.rbegin(), kProgramSizes.rend(), [&](int percent) {
        return SizeFits(percent, percent > 100 ? both : forms, room);
    });
    return largest == kProgramSizes.rend() ? kProgramSizes.front() : *largest;
}

int UsableSize(int percent, const FormSizes& forms, QSize room) {
    const auto usable = std::find_if(kProgramSizes.rbegin(), kProgramSizes.rend(),
                                     [&](int size) { return size <= percent && SizeFits(size, forms, room); });
    return usable == kProgramSizes.rend() ? kProgramSizes.front() : *usable;
}

}  // namespace marvolin
