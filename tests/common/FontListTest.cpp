#include "common/FontList.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

TEST(EnumerateFonts, EachFamilyOnceInSystemOrderUntilTheCallbackStops)
{
    // The system lists a family once per character set it supports.
    const TextList installed = {"Arial", "Courier New", "arial", "MS Gothic", "Arial", "Tahoma"};
    TextList handed;
    EnumerateFonts(installed, [&handed](const std::string& family) {
        handed.push_back(family);
        return true;
    });
    EXPECT_EQ(handed, (TextList{"Arial", "Courier New", "MS Gothic", "Tahoma"}));

    TextList untilGothic;
    EnumerateFonts(installed, [&untilGothic](const std::string& family) {
        untilGothic.push_back(family);
        return family != "MS Gothic";
    });
    EXPECT_EQ(untilGothic, (TextList{"Arial", "Courier New", "MS Gothic"}));
}

} // namespace
} // namespace vellumar
