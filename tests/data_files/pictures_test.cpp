// The default skin and the toolbar pictures: every picture the windows ask for
// exists, in a format the loaders read, at the size the windows are laid out for.
#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>

#include "data_files.h"
#include "formats/string_table.h"

namespace vt::test {
namespace {

namespace fs = std::filesystem;

// The skin's table of pictures, index to base name, as the windows number them:
// the quoted names of kNoms in the shell's skin source.
std::vector<std::string> skinNames() {
  const std::string src = readFile(sourceDir() / "src" / "shell" / "src" / "skin.cpp");
  const auto début = src.find("kNoms = {");
  const std::string table = src.substr(début, src.find("};", début) - début);
  static const std::regex quoted("\"([^\"]*)\"");
  std::vector<std::string> out;
  for (std::sregex_iterator it(table.begin(), table.end(), quoted), end; it != end; ++it)
    out.push_back((*it)[1].str());
  return out;
}

fs::path skinDir() {
  return dataDir() / "skins" / "default";
}

std::vector<std::vector<std::string>> skinTable() {
  return readTable(sourceDir() / "tools" / "skin_pictures.tsv");
}

void expectPicture(const fs::path& path, const std::string& format, int width, int height) {
  SCOPED_TRACE(path.filename().string());
  ASSERT_TRUE(fs::exists(path)) << "missing";
  const auto info = readPictureInfo(path);
  ASSERT_TRUE(info.has_value()) << "not a readable " << format;
  EXPECT_EQ(std::tuple(info->format, info->width, info->height), std::tuple(format, width, height));
  if (format == "bmp") {
    EXPECT_TRUE(info->bitsPerPixel == 8 || info->bitsPerPixel == 24);
  }
}

TEST(Skin, TableNamesEveryPictureOfTheWindowsInOrderAndTheSmallSkinHasEachAtItsSize) {
  const auto names = skinNames();
  ASSERT_EQ(names.size(), 86u);
  std::vector<std::string> rows;
  for (const auto& row : skinTable()) {
    ASSERT_EQ(row.size(), 7u) << row[0];
    EXPECT_EQ(row[0], std::to_string(rows.size()));
    rows.push_back(row[1]);
    const std::string& format = row[4];
    ASSERT_TRUE(format == "bmp" || format == "jpg") << row[1];
    expectPicture(skinDir() / (row[1] + "." + format), format, std::stoi(row[2]),
                  std::stoi(row[3]));
    // One file per picture, so that the .bmp-before-.jpg order cannot pick a stale one.
    EXPECT_FALSE(fs::exists(skinDir() / (row[1] + (format == "bmp" ? ".jpg" : ".bmp")))) << row[1];
  }
  EXPECT_EQ(rows, names);
  std::uintmax_t total = 0;
  for (const auto& entry : fs::directory_iterator(skinDir()))
    total += entry.file_size();
  EXPECT_LT(total, 10u * 1024 * 1024);
}

TEST(Skin, EveryAnimationHasItsFramesAndItsRestingPictures) {
  std::map<std::string, std::pair<int, int>> sizeOf;
  for (const auto& row : skinTable())
    sizeOf[row[1]] = {std::stoi(row[2]), std::stoi(row[3])};
  std::set<std::string> prefixes;
  for (const auto& row : readTable(sourceDir() / "tools" / "skin_animations.tsv")) {
    ASSERT_EQ(row.size(), 5u);
    const std::string& prefix = row[0];
    const int frames = std::stoi(row[1]);
    const int w = std::stoi(row[2]);
    const int h = std::stoi(row[3]);
    prefixes.insert(prefix);
    for (int f = 0; f < frames; ++f) {
      const std::string n = (f < 10 ? "0" : "") + std::to_string(f);
      expectPicture(skinDir() / (prefix + n + ".bmp"), "bmp", w, h);
    }
    if (prefix == "tictac") continue;  // the pendulum has no resting picture
    // The pictures after the last frame: at rest, and under the mouse.
    for (int f : {frames, frames + 1}) {
      const std::string name = prefix + std::to_string(f);
      ASSERT_EQ(sizeOf.count(name), 1u) << name << " is not in the table";
      EXPECT_EQ(sizeOf[name], std::make_pair(w, h)) << name;
    }
  }
  // The start page's seven buttons and the metronome need these series.
  for (const char* p : {"accord00", "gammes00", "pbplay00", "accordeur00", "tictac00",
                        "tablature00", "baguette00", "tictac"})
    EXPECT_EQ(prefixes.count(p), 1u) << p;
  EXPECT_EQ(std::stoi(readTable(sourceDir() / "tools" / "skin_animations.tsv").back()[1]), 36)
      << "36 pendulum frames make one beat";
}

// The toolbar pictures listed in the resource file.
std::set<std::string> resourceFiles() {
  static const std::regex file(R"(<file>([^<]+)</file>)");
  const std::string qrc = readFile(dataDir() / "toolbar" / "toolbar.qrc");
  std::set<std::string> out;
  for (std::sregex_iterator it(qrc.begin(), qrc.end(), file), end; it != end; ++it)
    out.insert((*it)[1].str());
  return out;
}

TEST(Toolbar, ResourceFileListsOnlyRealPicturesWithTheirDoubleSize) {
  const auto files = resourceFiles();
  ASSERT_GT(files.size(), 200u);
  for (const auto& f : files) {
    SCOPED_TRACE(f);
    const auto info = readPictureInfo(dataDir() / "toolbar" / f);
    ASSERT_TRUE(info.has_value());
    EXPECT_EQ(info->format, "png");
    const auto at = f.find("@2x");
    if (at == std::string::npos) {
      const std::string twin = f.substr(0, f.size() - 4) + "@2x.png";
      ASSERT_EQ(files.count(twin), 1u);
      const auto big = readPictureInfo(dataDir() / "toolbar" / twin);
      ASSERT_TRUE(big.has_value());
      EXPECT_EQ(std::pair(big->width, big->height), std::pair(2 * info->width, 2 * info->height));
    }
  }
}

TEST(Toolbar, EveryButtonAndEveryPictureTheWindowsNameHasItsPicturesAndTooltip) {
  const auto files = resourceFiles();
  std::map<std::string, std::set<std::string>> keys;
  for (const auto& row : readTable(dataDir() / "toolbar" / "buttons.tsv")) {
    ASSERT_EQ(row.size(), 4u);
    SCOPED_TRACE(row[0] + " " + row[1]);
    keys[row[0]].insert(row[1]);
    const int size = row[0] == "Toolbar" ? 32 : 24;
    for (const std::string suffix : {"", "1"}) {
      const std::string png = row[2] + suffix + ".png";
      ASSERT_EQ(files.count(png), 1u) << png;
      const auto info = readPictureInfo(dataDir() / "toolbar" / png);
      ASSERT_TRUE(info.has_value());
      EXPECT_EQ(std::pair(info->width, info->height), std::pair(size, size));
    }
    const int tip = std::stoi(row[3]);
    if (tip != 0) {
      EXPECT_TRUE(hasString(tip, kLangFrançais) && hasString(tip, kLangAnglais)) << tip;
    }
  }
  const std::pair<const char*, const char*> buttons[] = {
      {"Toolbar",
       "accords|gammes|mci|accordeur|métronome|tablatures|harmony|options|manche|aide|"
       "quitter"},
      {"tbToolbar",
       "nouveau|ouvrir|enregistrer|imprimer|preview|pagesetup|proprietes|joue|"
       "jouemarker|arriere|avant|couper|copier|coller|undo|redo|view_mode_1|"
       "view_mode_2|view_mode_3|view_mode_4|view_mode_triolet|record|options|redraw"},
      {"tbPistes", "add|remove|properties|1|2|3|4|5|6|7"},
      {"tbGeneral", "texte|accord|accordcreate|signature|loop|tempo"},
      {"tbEffet",
       "hammer-on|pull-off|slide up|slide down|vibrato|bendup|bendupdn|bendreturn|"
       "benddn|tremolo|trill|liaison"},
      {"tbRythme", "ronde|blanche|noire|croche|double|triple|pointée|triolet"},
      {"tbAttaque",
       "attaque none|attaque tap|attaque slap|attaque pop|attaque harm|attaque ah|"
       "attaque up|attaque dn|attaque dead note|attaque palmmute|attaque brush up|"
       "attaque brush dn"},
      {"tbVolume", "ppp|pp|p|mp|mf|f|ff|fff"},
  };
  std::map<std::string, std::set<std::string>> expected;
  for (const auto& [toolbar, names] : buttons)
    for (const auto& name : split(names, '|'))
      expected[toolbar].insert(name);
  EXPECT_EQ(keys, expected);
  // The main window's image list, the editor's window picture and track buttons,
  // and the fretboard's dots.
  for (const char* name :
       {"TB_GAMME",  "TB_ACCORD", "TB_MCI",    "TB_ACCORDEUR",        "TB_TAB",    "TB_METRONOME",
        "TB_QUIT",   "TB_HELP",   "TB_KEY",    "TB_OPTIONS",          "TB_MANCHE", "TB_WIZARD",
        "TABLATURE", "TB_ADD",    "TB_REMOVE", "TB_PROPRIETES_PISTE", "TB_1",      "TB_2",
        "TB_7",      "RONDS"})
    EXPECT_EQ(files.count(std::string(name) + ".png"), 1u) << name;
  const auto dots = readPictureInfo(dataDir() / "toolbar" / "RONDS.png");
  ASSERT_TRUE(dots.has_value());
  EXPECT_EQ(std::pair(dots->width, dots->height), std::pair(60, 15));
}

}  // namespace
}  // namespace vt::test
