#include <gtest/gtest.h>

#include "formats/hex.h"
#include "interchange_test_util.h"

namespace vt {
namespace {

TEST(Hex, PaddingAndBytes) {
  // hexPad2 never cuts.
  EXPECT_EQ((std::vector<std::string>{hexPad2(0x5), hexPad2(0x1AB), hexPad6(500000), hexPad8(0),
                                      hexPadEven("ABC"), hexPadEven("AB"), textToHex("Ab")}),
            (std::vector<std::string>{"05", "1AB", "07A120", "00000000", "0ABC", "AB", "4162"}));
  EXPECT_EQ(hexToBytes("0"), test::octets({0}));
  EXPECT_EQ(hexToBytes("4D5468"), test::octets({0x4D, 0x54, 0x68}));
  EXPECT_EQ(hexToBytes("4D5"), test::octets({0x4D, 0x05}));
}

TEST(Hex, VariableLengthQuantities) {
  // Held to four bytes.
  EXPECT_EQ((std::vector<std::string>{bytesToVarLen(0), bytesToVarLen(0x7F), bytesToVarLen(0x80),
                                      bytesToVarLen(0xFF), bytesToVarLen(0x3FFF),
                                      bytesToVarLen(0x0FFFFFFF), bytesToVarLen(0xFFFFFFFF)}),
            (std::vector<std::string>{"00", "7F", "8100", "817F", "FF7F", "FFFFFF7F", "FFFFFF7F"}));
  for (std::uint32_t n : {0u, 1u, 127u, 128u, 300u, 16383u, 16384u, 0x0FFFFFFFu})
    EXPECT_EQ(varLenToNumber(hexToBytes(bytesToVarLen(n))), n);
  // Never more than four bytes are read, whatever follows.
  EXPECT_EQ(varLenToNumber(test::octets({0x81, 0x80, 0x80, 0x80, 0x80, 0x00})), 0x0200000u);
  EXPECT_EQ(bytesToNumber(test::octets({0x07, 0xA1, 0x20})), 500000u);
}

TEST(Hex, WheelLowSevenBitsFirst) {
  EXPECT_EQ((std::vector<std::string>{wheelToHex(8192), wheelToHex(9536), wheelToHex(16383),
                                      wheelToHex(-5)}),
            (std::vector<std::string>{"0040", "404A", "7F7F", "0000"}));
}

}  // namespace
}  // namespace vt
