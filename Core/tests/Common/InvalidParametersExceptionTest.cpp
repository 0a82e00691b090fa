#include "Common/InvalidParametersException.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using keo::InvalidParametersException;

TEST(InvalidParametersExceptionTest, CarriesEveryField) {
    const InvalidParametersException e(2, "message", "Owner::operation", "Core/src/File", 42);
    EXPECT_EQ(e.getErrorCode(), 2);
    EXPECT_EQ(e.getMessage(), "message");
    EXPECT_EQ(e.getFunction(), "Owner::operation");
    EXPECT_EQ(e.getFile(), "Core/src/File");
    EXPECT_EQ(e.getLine(), 42);
    EXPECT_STREQ(e.what(), "message");
}

TEST(InvalidParametersExceptionTest, KeepsNonUtf8MessageBytes) {
    const std::string gbk = "\xbe\xd8\xd0\xce"; // two GBK-encoded characters
    const InvalidParametersException e(1, gbk, "f", "file", 1);
    EXPECT_EQ(e.getMessage(), gbk);
    EXPECT_EQ(std::string(e.what()), gbk);
}

TEST(InvalidParametersExceptionTest, IsCaughtAsStdException) {
    try {
        throw InvalidParametersException(7, "bad", "f", "file", 3);
    } catch (const std::exception& e) {
        EXPECT_STREQ(e.what(), "bad");
        const auto* typed = dynamic_cast<const InvalidParametersException*>(&e);
        ASSERT_NE(typed, nullptr);
        EXPECT_EQ(typed->getErrorCode(), 7);
    }
}

TEST(InvalidParametersExceptionTest, CopiesKeepTheFields) {
    const InvalidParametersException e(2, "m", "f", "file", 9);
    const InvalidParametersException copy =
        e; // NOLINT(performance-unnecessary-copy-initialization)
    EXPECT_EQ(copy.getLine(), 9);
    EXPECT_EQ(copy.getMessage(), "m");
}

} // namespace
