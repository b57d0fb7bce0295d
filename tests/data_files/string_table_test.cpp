// The string table: the file's own form, the compiled-in table, the ids the
// windows need, and every id the code uses.
#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>

#include "data_files.h"
#include "formats/string_table.h"

namespace vt::test {
namespace {

struct Entry {
  std::string fr, en;  // as written in the file, escapes included
};

std::string unescape(const std::string& s) {
  std::string out;
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

std::map<int, Entry> readStringFile() {
  std::map<int, Entry> table;
  const auto lines = readLines(dataDir() / "strings.tsv");
  for (std::size_t n = 1; n < lines.size(); ++n) {
    const auto f = split(lines[n], '\t');
    if (f.size() == 3) table[std::stoi(f[0])] = {f[1], f[2]};
  }
  return table;
}

// Accelerators are single '&' (a doubled one is a literal ampersand).
int accelerators(const std::string& s) {
  int n = 0;
  for (std::size_t i = 0; i < s.size(); ++i) {
    if (s[i] != '&') continue;
    if (i + 1 < s.size() && s[i + 1] == '&') {
      ++i;
      continue;
    }
    ++n;
  }
  return n;
}

TEST(StringFile, HeaderSortedIdsThreeFieldsAndTextsThatAgreeBetweenLanguages) {
  const std::regex pattern(R"(\*\.[A-Za-z0-9*]+|%[0-9a-z])");
  const auto lines = readLines(dataDir() / "strings.tsv");
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines[0], "id\tfr\ten");
  EXPECT_EQ(readFile(dataDir() / "strings.tsv").find('\r'), std::string::npos)
      << "line ends must be LF";
  int previous = 0;
  for (std::size_t n = 1; n < lines.size(); ++n) {
    const auto& line = lines[n];
    SCOPED_TRACE("line " + std::to_string(n + 1) + ": " + line);
    const auto f = split(line, '\t');
    ASSERT_EQ(f.size(), 3u);
    ASSERT_FALSE(f[0].empty());
    ASSERT_EQ(f[0].find_first_not_of("0123456789"), std::string::npos);
    const int id = std::stoi(f[0]);
    EXPECT_GT(id, 0);
    EXPECT_LT(id, 10000) << "English lives at id + 10000; ids stay below it";
    EXPECT_GT(id, previous) << "ids must be unique and rising";
    previous = id;
    for (const auto& text : {f[1], f[2]}) {
      EXPECT_FALSE(text.empty());
      EXPECT_TRUE(isValidUtf8(text));
      // A backslash only starts \n, \t or \\.
      for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') continue;
        ASSERT_LT(i + 1, text.size()) << "a lone backslash ends the text";
        EXPECT_NE(std::string("nt\\").find(text[i + 1]), std::string::npos);
        ++i;
      }
    }
    // At most one accelerator, in both languages or in neither.
    const int touches = accelerators(f[1]);
    EXPECT_LE(touches, 1);
    EXPECT_EQ(accelerators(f[2]), touches);
    // File patterns of dialog filters and placeholders such as %c must match.
    std::multiset<std::string> a, b;
    for (std::sregex_iterator it(f[1].begin(), f[1].end(), pattern), end; it != end; ++it)
      a.insert(it->str());
    for (std::sregex_iterator it(f[2].begin(), f[2].end(), pattern), end; it != end; ++it)
      b.insert(it->str());
    EXPECT_EQ(a, b);
    // Texts that are joined to others keep their edge blanks in both languages.
    EXPECT_EQ(std::pair(f[1].front() == ' ', f[1].back() == ' '),
              std::pair(f[2].front() == ' ', f[2].back() == ' '));
  }
  EXPECT_GT(lines.size(), 700u);
}

TEST(StringTable, CompiledTableIsTheFile) {
  const auto file = readStringFile();
  std::vector<int> ids;
  for (const auto& [id, e] : file) {
    ids.push_back(id);
    EXPECT_EQ(loadString(id, kLangFrançais), unescape(e.fr)) << id;
    EXPECT_EQ(loadString(id, kLangAnglais), unescape(e.en)) << id;
    EXPECT_EQ(loadString(StringId{id}, kLangAnglais), unescape(e.en)) << id;
  }
  EXPECT_EQ(stringIds(), ids) << "rebuild: the compiled table is older than data/strings.tsv";
  EXPECT_EQ(loadString(9999, kLangAnglais), "[9999]");
}

TEST(StringTable, EveryIdTheWindowsNeedExistsWithItsFixedText) {
  const auto rows = readTable(sourceDir() / "tests" / "data_files" / "required_string_ids.tsv");
  ASSERT_GT(rows.size(), 100u);
  int checked = 0;
  for (const auto& row : rows) {
    ASSERT_GE(row.size(), 2u);
    const auto range = split(row[0], '-');
    const int first = std::stoi(range[0]);
    const int last = range.size() > 1 ? std::stoi(range[1]) : first;
    ASSERT_LE(first, last) << row[0];
    for (int id = first; id <= last; ++id) {
      EXPECT_TRUE(hasString(id, kLangFrançais)) << id << " (" << row[1] << ") has no French text";
      EXPECT_TRUE(hasString(id, kLangAnglais)) << id << " (" << row[1] << ") has no English text";
      ++checked;
    }
    if (row.size() > 2) {
      EXPECT_EQ(loadString(first, kLangAnglais), row[2]) << first;
    }
  }
  EXPECT_GT(checked, 350);
}

TEST(StringTable, NamesOfNotesFollowBothTables) {
  const char* const names[] = {"A", "A#", "B", "C", "C#", "D", "D#", "E", "F", "F#", "G", "G#"};
  const char* const french[] = {"La",   "La #", "Si", "Do",   "Do #", "Ré",
                                "Ré #", "Mi",   "Fa", "Fa #", "Sol",  "Sol #"};
  for (int k = 0; k < 12; ++k) {
    EXPECT_EQ(loadString(2010 + k, kLangFrançais), names[k]);
    EXPECT_EQ(loadString(2010 + k, kLangAnglais), names[k]);
    EXPECT_EQ(loadString(2806 + k, kLangAnglais), names[k]);
    EXPECT_EQ(loadString(2806 + k, kLangFrançais), french[k]);
  }
  EXPECT_EQ(loadString(4000 + 27, kLangAnglais), "Electric Guitar (clean)");
  EXPECT_EQ(loadString(2513 + (38 - 35), kLangAnglais), "Acoustic Snare");
}

// Ids written in the code: literal ids in calls of loadString, setStatusText and
// refuse, and every StringId{N}. setStatusText(0) clears the hint: no string.
std::set<int> idsIn(const std::string& source) {
  static const std::regex call(
      R"(\b(?:loadString|setStatusText)\s*\(\s*(\d+)\b|\brefuse\s*\(\s*[A-Za-z_][\w.>-]*\s*,\s*(\d+)\b|\bStringId\s*\{\s*(\d+)\s*\})");
  std::set<int> ids;
  for (std::sregex_iterator it(source.begin(), source.end(), call), end; it != end; ++it) {
    for (int g = 1; g <= 3; ++g) {
      if (!(*it)[g].matched) continue;
      const int id = std::stoi((*it)[g].str());
      if (g == 1 && id == 0 && it->str().rfind("setStatusText", 0) == 0) continue;
      ids.insert(id);
    }
  }
  return ids;
}

TEST(StringTable, EveryIdUsedInTheCodeExistsInBothLanguages) {
  const std::string sample = R"(
    label->setText(qs(loadString(1201, lang)));  vt::loadString( 6004 , setLang);
    setStatusText(48); setStatusText(0); refuse(ctx, 6005); refuse(ctx, stringId);
    const Button buttons[] = {{"nouveau", StringId{1202}}, {"ouvrir", StringId{ 1203 }}};
    loadString(base + 3, lang); int x = 1234;)";
  ASSERT_EQ(idsIn(sample), (std::set<int>{48, 1201, 1202, 1203, 6004, 6005}));
  int files = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(sourceDir() / "src")) {
    const auto ext = entry.path().extension();
    if (ext != ".cpp" && ext != ".h" && ext != ".in") continue;
    ++files;
    for (int id : idsIn(readFile(entry.path()))) {
      EXPECT_TRUE(hasString(id, kLangFrançais) && hasString(id, kLangAnglais))
          << entry.path().filename() << " uses string " << id << ", which the table lacks";
    }
  }
  EXPECT_GT(files, 0);
}

}  // namespace
}  // namespace vt::test
