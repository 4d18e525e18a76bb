#include "common/FileHelpers.h"
#include "support/FakeMessageService.h"
#include "support/FaultyFileOperations.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

class ShellFileOperationTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::FaultyFileOperations files;
    test::FakeMessageService messages;
};

TEST_F(ShellFileOperationTest, ConfirmationRefusedAbortsAndReportsFailure)
{
    const std::string source = temp.write("src/sky.bmp", "new");
    temp.write("dst/sky.bmp", "old");
    messages.answerNext(MessageResult::No);
    EXPECT_FALSE(
        ShellFileOperation(files, messages, source, temp / "dst", ShellOperation::Copy, true));
    EXPECT_EQ(temp.read("dst/sky.bmp"), "old");
    ASSERT_EQ(messages.shown().size(), 1u);
    EXPECT_EQ(messages.last().style, MessageStyle::YesNo | MessageStyle::Exclamation);

    messages.answerNext(MessageResult::Yes);
    EXPECT_TRUE(
        ShellFileOperation(files, messages, source, temp / "dst", ShellOperation::Copy, true));
    EXPECT_EQ(temp.read("dst/sky.bmp"), "new");
}

} // namespace
} // namespace vellumar
