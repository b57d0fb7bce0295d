#include "data_files.h"

#include <fstream>
#include <sstream>

namespace vt::test {

std::filesystem::path sourceDir() {
  return VT_SOURCE_DIR;
}

std::filesystem::path dataDir() {
  return sourceDir() / "data";
}

std::string readFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

std::vector<std::string> readLines(const std::filesystem::path& path) {
  std::vector<std::string> lines;
  std::istringstream in(readFile(path));
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

std::vector<std::string> split(const std::string& line, char separator) {
  std::vector<std::string> fields;
  std::string::size_type start = 0;
  while (true) {
    const auto end = line.find(separator, start);
    fields.push_back(line.substr(start, end - start));
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return fields;
}

std::vector<std::vector<std::string>> readTable(const std::filesystem::path& path) {
  std::vector<std::vector<std::string>> rows;
  for (const auto& line : readLines(path)) {
    if (line.empty() || line[0] == '#') continue;
    rows.push_back(split(line, '\t'));
  }
  return rows;
}

namespace {

// `n` bytes of `b` from `at`, little- or big-endian.
std::uint32_t nombre(const std::string& b, std::size_t at, int n, bool grosBout) {
  std::uint32_t v = 0;
  for (int k = 0; k < n; ++k)
    v |= std::uint32_t{static_cast<unsigned char>(b[at + static_cast<std::size_t>(k)])}
         << (8 * (grosBout ? n - 1 - k : k));
  return v;
}
}  // namespace

std::optional<PictureInfo> readPictureInfo(const std::filesystem::path& path) {
  const std::string b = readFile(path);
  if (b.size() >= 30 && b[0] == 'B' && b[1] == 'M') {
    PictureInfo info{"bmp", static_cast<int>(nombre(b, 18, 4, false)),
                     static_cast<int>(nombre(b, 22, 4, false)), 0};
    info.height = info.height < 0 ? -info.height : info.height;
    info.bitsPerPixel = static_cast<int>(nombre(b, 28, 2, false));
    if (nombre(b, 2, 4, false) != b.size())
      return std::nullopt;  // the header's file size must be the real one
    return info;
  }
  if (b.size() >= 24 && b.compare(0, 8, "\x89PNG\r\n\x1a\n") == 0 && b.compare(12, 4, "IHDR") == 0)
    return PictureInfo{"png", static_cast<int>(nombre(b, 16, 4, true)),
                       static_cast<int>(nombre(b, 20, 4, true)), 0};
  if (b.size() >= 4 && static_cast<unsigned char>(b[0]) == 0xFF &&
      static_cast<unsigned char>(b[1]) == 0xD8) {
    // Walk the segments up to the frame header (SOF0 to SOF3).
    std::size_t at = 2;
    while (at + 9 < b.size()) {
      if (static_cast<unsigned char>(b[at]) != 0xFF) return std::nullopt;
      const auto marker = static_cast<unsigned char>(b[at + 1]);
      if (marker >= 0xC0 && marker <= 0xC3)
        return PictureInfo{"jpg", static_cast<int>(nombre(b, at + 7, 2, true)),
                           static_cast<int>(nombre(b, at + 5, 2, true)), 0};
      at += 2 + nombre(b, at + 2, 2, true);
    }
  }
  return std::nullopt;
}

}  // namespace vt::test
