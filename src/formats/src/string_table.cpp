#include "formats/string_table.h"

#include <map>
#include <string_view>

namespace vt {

// The file's bytes, embedded at configure time.
extern const char* const kStringsTsv;

namespace {

// "\n", "\t" and "\\" in the file stand for a line break, a tab, a backslash.
std::string déséchapper(std::string_view s) {
  std::string out;
  out.reserve(s.size());
  for (std::size_t i = 0; i < s.size(); ++i) {
    if (s[i] == '\\' && i + 1 < s.size()) {
      const char c = s[++i];
      out += c == 'n' ? '\n' : c == 't' ? '\t' : c;
    } else {
      out += s[i];
    }
  }
  return out;
}

const std::map<int, std::string>& table() {
  static const std::map<int, std::string> t = parseStringTable(kStringsTsv);
  return t;
}

}  // namespace

std::map<int, std::string> parseStringTable(std::string_view all) {
  std::map<int, std::string> m;
  bool entête = true;
  while (!all.empty()) {
    const auto eol = all.find('\n');
    std::string_view line = all.substr(0, eol);
    all = eol == std::string_view::npos ? std::string_view() : all.substr(eol + 1);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    if (entête) {
      entête = false;
      continue;
    }
    const auto t1 = line.find('\t');
    if (line.empty() || line[0] == '#' || t1 == std::string_view::npos) continue;
    const auto t2 = line.find('\t', t1 + 1);
    if (t2 == std::string_view::npos) continue;
    // The digits of the id; an id must stay below the English offset.
    int id = 0;
    for (char c : line.substr(0, t1)) {
      if (c >= '0' && c <= '9') id = id * 10 + (c - '0');
      if (id >= kLangAnglais) break;
    }
    if (id >= kLangAnglais) continue;
    m[id + kLangFrançais] = déséchapper(line.substr(t1 + 1, t2 - t1 - 1));
    m[id + kLangAnglais] = déséchapper(line.substr(t2 + 1));
  }
  return m;
}

std::string loadString(int id, int setLang) {
  const auto it = table().find(setLang + id);
  return it != table().end() ? it->second : "[" + std::to_string(id) + "]";
}

bool hasString(int id, int setLang) {
  return table().count(setLang + id) != 0;
}

std::vector<int> stringIds() {
  std::vector<int> ids;
  for (const auto& [k, v] : table())
    if (k < kLangAnglais) ids.push_back(k);
  return ids;
}

}  // namespace vt
