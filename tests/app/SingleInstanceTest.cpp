#include "app/SingleInstance.h"

#include <gtest/gtest.h>

#include <string>

namespace vellumar {
namespace {

TEST(SingleInstance, ASecondHolderIsRefusedUntilTheFirstLetsGo)
{
    const std::string name =
        "vellumar-test-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed());
    auto first = CreateSingleInstanceLock(name.c_str());
    auto second = CreateSingleInstanceLock(name.c_str());
    EXPECT_TRUE(first->acquire());
    EXPECT_TRUE(first->acquire()); // holding it already
    EXPECT_FALSE(second->acquire());
    first.reset();
    EXPECT_TRUE(second->acquire());
}

} // namespace
} // namespace vellumar
