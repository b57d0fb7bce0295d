// The tips of the day and the help: enough tips in both languages, and a help
// whose table of contents, pages, links and anchors all hold together.
#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>

#include "data_files.h"

namespace vt::test {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> tips(const char* file) {
  std::vector<std::string> out;
  for (const auto& line : readLines(dataDir() / file))
    if (line.find_first_not_of(" \t") != std::string::npos) out.push_back(line);
  return out;
}

TEST(Tips, AtLeastThirtyDistinctTipsInEachLanguage) {
  for (const char* file : {"tipofday.ini", "tipofdayen.ini"}) {
    SCOPED_TRACE(file);
    const auto list = tips(file);
    EXPECT_GE(list.size(), 30u);
    EXPECT_EQ(std::set<std::string>(list.begin(), list.end()).size(), list.size())
        << "a tip is there twice";
    for (const auto& tip : list) {
      EXPECT_TRUE(isValidUtf8(tip)) << tip;
      EXPECT_LT(tip.size(), 400u) << "a tip must fit the tip window: " << tip;
      EXPECT_GT(tip.size(), 30u) << tip;
    }
  }
  EXPECT_EQ(tips("tipofday.ini").size(), tips("tipofdayen.ini").size())
      << "the two files translate each other";
}

struct Topic {
  std::string key, title, target;
};

std::vector<Topic> contents(const std::string& lang) {
  std::vector<Topic> topics;
  for (const auto& row : readTable(dataDir() / "help" / lang / "contents.txt")) {
    EXPECT_TRUE(row.size() == 2 || row.size() == 3) << lang << ": " << row[0];
    topics.push_back({row[0], row.size() > 1 ? row[1] : "", row.size() > 2 ? row[2] : ""});
  }
  return topics;
}

// The ids of a page's anchors.
std::set<std::string> anchors(const std::string& html) {
  static const std::regex id(R"(\bid="([^"]+)\")");
  std::set<std::string> out;
  for (std::sregex_iterator it(html.begin(), html.end(), id), end; it != end; ++it)
    out.insert((*it)[1].str());
  return out;
}

// A page and anchor exist: "page.html" or "page.html#anchor".
void expectTarget(const std::string& lang, const std::string& target, const std::string& from) {
  const auto hash = target.find('#');
  const std::string page = target.substr(0, hash);
  const fs::path path = dataDir() / "help" / lang / page;
  ASSERT_TRUE(fs::exists(path)) << from << " points to missing " << lang << "/" << page;
  if (hash != std::string::npos) {
    EXPECT_EQ(anchors(readFile(path)).count(target.substr(hash + 1)), 1u)
        << from << " points to a missing anchor: " << lang << "/" << target;
  }
}

TEST(Help, ContentsOfBothLanguagesFormOneTreeOfExistingTargetsWithTheAnchorsWindowsOpen) {
  const std::set<std::string> windows = {"FAccords",   "FGammes",     "FHarmony", "FAccordeur",
                                         "FMetronome", "FMultimedia", "FTab"};
  const std::set<std::string> commands = {"options", "tip"};
  std::map<std::string, std::vector<std::string>> keysOf;
  std::map<std::string, std::vector<std::string>> targetsOf;
  for (const std::string lang : {"fr", "en"}) {
    SCOPED_TRACE(lang);
    std::set<std::string> seen;
    const auto topics = contents(lang);
    ASSERT_GT(topics.size(), 20u);
    for (const auto& t : topics) {
      EXPECT_FALSE(t.title.empty()) << t.key;
      EXPECT_TRUE(isValidUtf8(t.title));
      EXPECT_TRUE(std::regex_match(t.key, std::regex("[a-z](\\.[a-z])*"))) << t.key;
      EXPECT_TRUE(seen.insert(t.key).second) << "key twice: " << t.key;
      const auto dot = t.key.rfind('.');
      if (dot != std::string::npos) {
        EXPECT_EQ(seen.count(t.key.substr(0, dot)), 1u) << "parent after child: " << t.key;
      }
      keysOf[lang].push_back(t.key);
      targetsOf[lang].push_back(t.target);
      if (t.target.rfind("tool:", 0) == 0) {
        EXPECT_EQ(windows.count(t.target.substr(5)), 1u) << t.target;
        EXPECT_EQ(t.key[0], 'b') << "tools live under the node b";
      } else if (t.target.rfind("command:", 0) == 0) {
        EXPECT_EQ(commands.count(t.target.substr(8)), 1u) << t.target;
      } else if (!t.target.empty()) {
        expectTarget(lang, t.target, "contents " + t.key);
      }
    }
  }
  EXPECT_EQ(keysOf["fr"], keysOf["en"]);
  EXPECT_EQ(targetsOf["fr"], targetsOf["en"]);
  // The Help button of the ASCII import and of each page of the options dialog.
  for (const std::string lang : {"fr", "en"})
    for (const char* target :
         {"files.html#corrupted", "options.html#general", "options.html#tablature",
          "options.html#scales", "options.html#chords", "options.html#metronome",
          "options.html#midi", "options.html#midiin", "index.html"})
      expectTarget(lang, target, "a window's Help button");
}

TEST(Help, EveryPageIsInTheContentsAndEveryLinkLeadsSomewhere) {
  static const std::regex link(R"(\b(?:href|src)="([^"]+)\")");
  for (const std::string lang : {"fr", "en"}) {
    std::set<std::string> listed;
    for (const auto& t : contents(lang))
      if (t.target.find(".html") != std::string::npos)
        listed.insert(t.target.substr(0, t.target.find('#')));
    std::set<std::string> pages;
    for (const auto& entry : fs::directory_iterator(dataDir() / "help" / lang)) {
      if (entry.path().extension() != ".html") continue;
      const std::string name = entry.path().filename().string();
      pages.insert(name);
      SCOPED_TRACE(lang + "/" + name);
      EXPECT_EQ(listed.count(name), 1u) << "page missing from the contents";
      EXPECT_TRUE(fs::exists(dataDir() / "help" / (lang == "fr" ? "en" : "fr") / name))
          << "no translation";
      const std::string html = readFile(entry.path());
      EXPECT_TRUE(isValidUtf8(html));
      EXPECT_EQ(html.rfind("<!DOCTYPE html>", 0), 0u);
      EXPECT_NE(html.find("<html lang=\"" + lang + "\">"), std::string::npos);
      EXPECT_NE(html.find("<title>"), std::string::npos);
      EXPECT_NE(html.find("</html>"), std::string::npos);
      for (std::sregex_iterator it(html.begin(), html.end(), link), end; it != end; ++it) {
        const std::string target = (*it)[1].str();
        if (target.rfind("http", 0) == 0 || target.rfind("mailto:", 0) == 0) continue;
        if (target.rfind("../", 0) == 0) {
          EXPECT_TRUE(fs::exists(dataDir() / "help" / target.substr(3))) << target;
        } else {
          expectTarget(lang, target[0] == '#' ? name + target : target, name);
        }
      }
    }
    EXPECT_GE(pages.size(), 20u);
  }
}

}  // namespace
}  // namespace vt::test
