// Windows' own media control interface answers through the same door as the interpreter.

#include "sound/CreatePlatformMediaControl.h"
#include "support/FakeClock.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

TEST(MediaControlTest, AnUnknownCommandGivesAnErrorNumberAndItsText)
{
    test::FakeClock clock;
    const std::unique_ptr<MediaControl> control = CreatePlatformMediaControl(clock);
    std::string reply = "untouched";
    const std::uint32_t error = control->SendString("frobnicate cd", reply);
    EXPECT_NE(error, 0u);
    EXPECT_EQ(reply, "");
    EXPECT_FALSE(control->ErrorText(error).empty());
}

} // namespace
} // namespace vellumar
