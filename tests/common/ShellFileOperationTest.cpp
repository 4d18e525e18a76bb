#include "common/FileHelpers.h"
#include "common/ReplaceFile.h"
#include "common/ResultText.h"
#include "support/CountingEventPump.h"
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
    test::CountingEventPump events;

    TextList everything()
    {
        TextList list;
        ListFilesInTree(files, events, temp.path(), "*.*", list);
        return list;
    }
};

TEST_F(ShellFileOperationTest, CopyIntoAFolderAndOverAFileWithoutAsking)
{
    const std::string source = temp.write("src/sky.bmp", "new");
    temp.write("dst/sky.bmp", "old");
    EXPECT_TRUE(
        ShellFileOperation(files, messages, source, temp / "dst", ShellOperation::Copy, false));
    EXPECT_EQ(temp.read("dst/sky.bmp"), "new");
    EXPECT_TRUE(messages.empty());
    EXPECT_TRUE(ShellFileOperation(files, messages, source, temp / "dst/renamed.bmp",
                                   ShellOperation::Copy, false));
    EXPECT_EQ(temp.read("dst/renamed.bmp"), "new");
}

TEST_F(ShellFileOperationTest, CopyOfAFolderCopiesItsTree)
{
    temp.write("set/a.bmp", "a");
    temp.write("set/sub/b.bmp", "b");
    EXPECT_TRUE(ShellFileOperation(files, messages, temp / "set", temp / "copy",
                                   ShellOperation::Copy, false));
    EXPECT_EQ(temp.read("copy/a.bmp"), "a");
    EXPECT_EQ(temp.read("copy/sub/b.bmp"), "b");
}

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

TEST_F(ShellFileOperationTest, DeleteMoveAndRename)
{
    temp.write("tree/a/b.bmp");
    EXPECT_TRUE(
        ShellFileOperation(files, messages, temp / "tree", "", ShellOperation::Delete, false));
    EXPECT_EQ(FileExists(files, temp / "tree"), "Error");

    const std::string file = temp.write("one.bmp", "1");
    temp.makeFolder("into");
    EXPECT_TRUE(
        ShellFileOperation(files, messages, file, temp / "into", ShellOperation::Move, false));
    EXPECT_EQ(temp.read("into/one.bmp"), "1");
    EXPECT_TRUE(ShellFileOperation(files, messages, temp / "into/one.bmp", temp / "into/two.bmp",
                                   ShellOperation::Rename, false));
    EXPECT_EQ(temp.read("into/two.bmp"), "1");
    EXPECT_EQ(FileExists(files, temp / "into/one.bmp"), "Error");
}

TEST_F(ShellFileOperationTest, AMissingSourceFails)
{
    EXPECT_FALSE(ShellFileOperation(files, messages, temp / "missing.bmp", temp / "x.bmp",
                                    ShellOperation::Copy, false));
    EXPECT_FALSE(ShellFileOperation(files, messages, temp / "missing.bmp", "",
                                    ShellOperation::Delete, false));
}

TEST_F(ShellFileOperationTest, AFailedCopyLeavesTheTargetAsItWasAndNoTemporaryFile)
{
    const std::string source = temp.write("src/sky.bmp", "new bytes of a long file");
    const std::string target = temp.write("dst/sky.bmp", "the original");
    files.failCopyHalfway = [](const std::string&, const std::string&) { return true; };
    EXPECT_FALSE(ReplaceFileWithCopy(files, source, target));
    EXPECT_EQ(temp.read("dst/sky.bmp"), "the original");
    EXPECT_EQ(everything(), (TextList{temp / "dst/sky.bmp", temp / "src/sky.bmp"}));
}

} // namespace
} // namespace vellumar
