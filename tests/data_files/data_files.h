// Small readers for the tests of the shipped data: whole files, tab-separated
// tables and the size of a picture from its header.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "document/cp1252.h"  // isValidUtf8

namespace vt::test {

std::filesystem::path sourceDir();
std::filesystem::path dataDir();

std::string readFile(const std::filesystem::path& path);

// Lines of a text file without their line ends (LF or CR LF).
std::vector<std::string> readLines(const std::filesystem::path& path);

std::vector<std::string> split(const std::string& line, char separator);

// The rows of a tab-separated table, skipping empty lines and lines starting
// with '#'.
std::vector<std::vector<std::string>> readTable(const std::filesystem::path& path);

struct PictureInfo {
  std::string format;  // "bmp", "jpg" or "png"
  int width = 0;
  int height = 0;
  int bitsPerPixel = 0;  // BMP only
};

// The format and size of a BMP, JPEG or PNG file; nothing for anything else.
std::optional<PictureInfo> readPictureInfo(const std::filesystem::path& path);

}  // namespace vt::test
