// Hexadecimal helpers of the MIDI code: messages and file chunks can be formed
// as text, two upper-case digits per byte, and turned into bytes at the end.
// The file writer and the reader work on bytes directly; these helpers give the
// same bytes and serve the short messages and the messages shown to the user.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vt {

// "0" gives one zero byte; otherwise each pair of digits gives a byte (a last
// lone digit gives its own value). Characters that are not digits count as 0.
std::vector<std::uint8_t> hexToBytes(std::string_view hex);

// The number in upper-case hexadecimal, padded on the left with "0" to the
// width; a longer number is not cut.
std::string hexPad2(std::uint32_t n);
std::string hexPad4(std::uint32_t n);
std::string hexPad6(std::uint32_t n);
std::string hexPad8(std::uint32_t n);

// A "0" on the left when the length is odd.
std::string hexPadEven(std::string_view hex);

// A number as a MIDI variable-length quantity, in hexadecimal (values above
// 0x0FFFFFFF are held to it: four bytes is the longest quantity).
std::string bytesToVarLen(std::uint32_t n);

// Each byte of a text as two digits.
std::string textToHex(std::string_view texte);

// The value of a variable-length quantity: seven bits of each byte, reading up
// to and including the first byte below 128, at most four bytes.
std::uint32_t varLenToNumber(std::span<const std::uint8_t> octets);

// Big-endian bytes to a number (at most the last four count).
std::uint32_t bytesToNumber(std::span<const std::uint8_t> octets);

// A 14-bit pitch-wheel value as four digits, the low seven bits first.
std::string wheelToHex(int valeur);

// Appends the quantity's bytes (the byte form of bytesToVarLen).
void appendVarLen(std::vector<std::uint8_t>& out, std::uint32_t n);

}  // namespace vt
