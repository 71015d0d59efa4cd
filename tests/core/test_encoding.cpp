#include <gtest/gtest.h>

#include "document/encoding.h"

using namespace mirvane;

TEST(Encoding, ColourLayouts) {
    EXPECT_EQ(ColourCountOf(0x06), 1);
    EXPECT_EQ(ColourCountOf(0x0F), 2);
    // Layouts of older editors: day only, the background clear or not.
    EXPECT_EQ(ColourCountOf(0x02), 1);
    EXPECT_EQ(ColourCountOf(0x04), 2);
}
