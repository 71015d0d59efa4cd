#include <gtest/gtest.h>

#include "document/encoding.h"

using namespace mirvane;

TEST(Encoding, ColourLayouts) {
    EXPECT_EQ(ColourCountOf(0x06), 1);
    EXPECT_EQ(ColourCountOf(0x0F), 2);
    EXPECT_FALSE(ColourCountOf(0x02).has_value());
    EXPECT_FALSE(ColourCountOf(0x04).has_value());
}
