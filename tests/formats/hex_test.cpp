#include <gtest/gtest.h>

#include "formats/hex.h"
#include "interchange_test_util.h"

namespace vt {
namespace {

TEST(Hex, PaddingAndBytes) {
  EXPECT_EQ(hexPad2(0x5), "05");
  EXPECT_EQ(hexPad2(0x1AB), "1AB");  // never cut
  EXPECT_EQ(hexPad6(500000), "07A120");
  EXPECT_EQ(hexPad8(0), "00000000");
  EXPECT_EQ(hexPadEven("ABC"), "0ABC");
  EXPECT_EQ(hexPadEven("AB"), "AB");
  EXPECT_EQ(hexToBytes("0"), test::octets({0}));
  EXPECT_EQ(hexToBytes("4D5468"), test::octets({0x4D, 0x54, 0x68}));
  EXPECT_EQ(hexToBytes("4D5"), test::octets({0x4D, 0x05}));
  EXPECT_EQ(textToHex("Ab"), "4162");
}

TEST(Hex, VariableLengthQuantities) {
  EXPECT_EQ(bytesToVarLen(0), "00");
  EXPECT_EQ(bytesToVarLen(0x7F), "7F");
  EXPECT_EQ(bytesToVarLen(0x80), "8100");
  EXPECT_EQ(bytesToVarLen(0x3FFF), "FF7F");
  EXPECT_EQ(bytesToVarLen(0x0FFFFFFF), "FFFFFF7F");
  EXPECT_EQ(bytesToVarLen(0xFFFFFFFF), "FFFFFF7F");  // held to four bytes
  for (std::uint32_t n : {0u, 1u, 127u, 128u, 300u, 16383u, 16384u, 0x0FFFFFFFu})
    EXPECT_EQ(varLenToNumber(hexToBytes(bytesToVarLen(n))), n);
  // Never more than four bytes are read, whatever follows.
  EXPECT_EQ(varLenToNumber(test::octets({0x81, 0x80, 0x80, 0x80, 0x80, 0x00})), 0x0200000u);
  EXPECT_EQ(bytesToNumber(test::octets({0x07, 0xA1, 0x20})), 500000u);
}

TEST(Hex, WheelLowSevenBitsFirst) {
  EXPECT_EQ(wheelToHex(8192), "0040");
  EXPECT_EQ(wheelToHex(9536), "404A");
  EXPECT_EQ(wheelToHex(16383), "7F7F");
  EXPECT_EQ(wheelToHex(-5), "0000");
}

}  // namespace
}  // namespace vt
