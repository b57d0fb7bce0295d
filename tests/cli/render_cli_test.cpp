// vantoro-cli render: the strip drawn offscreen into a PNG.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

namespace fs = std::filesystem;

class RenderCli : public ::testing::Test {
 protected:
  void SetUp() override {
    dossier_ = fs::temp_directory_path() / ("vt_render_cli_" + std::to_string(::getpid()));
    fs::create_directories(dossier_);
  }
  void TearDown() override { fs::remove_all(dossier_); }

  int lancer(const std::string& arguments) {
    const std::string commande = std::string("'") + VT_CLI + "' " + arguments + " >/dev/null 2>'" +
                                 (dossier_ / "stderr").string() + "'";
    const int statut = std::system(commande.c_str());
    return WIFEXITED(statut) ? WEXITSTATUS(statut) : -1;
  }
  std::string chemin(const std::string& nom) const { return "'" + (dossier_ / nom).string() + "'"; }

  // Width and height from a PNG's IHDR chunk.
  static std::pair<int, int> taillePng(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    const std::string o((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (o.size() < 24 || o.compare(1, 3, "PNG") != 0) return {0, 0};
    auto be = [&](std::size_t i) {
      return (static_cast<unsigned char>(o[i]) << 24) |
             (static_cast<unsigned char>(o[i + 1]) << 16) |
             (static_cast<unsigned char>(o[i + 2]) << 8) | static_cast<unsigned char>(o[i + 3]);
    };
    return {be(16), be(20)};
  }

  fs::path dossier_;
};

TEST_F(RenderCli, DrawsAStripOfTheAskedSize) {
  ASSERT_EQ(lancer("new " + chemin("a.vtb")), 0);
  ASSERT_EQ(lancer("render " + chemin("a.vtb") + " " + chemin("a.png") +
                   " --width 640 --height 320 --view 3 --triplet --cursor 1:24:2"),
            0);
  EXPECT_EQ(taillePng(dossier_ / "a.png"), std::make_pair(640, 320));
  ASSERT_EQ(lancer("render " + chemin("a.vtb") + " " + chemin("b.png") + " --no-staff"), 0);
  EXPECT_EQ(taillePng(dossier_ / "b.png"), std::make_pair(1280, 400));
}

TEST_F(RenderCli, RefusesWhatItCannotDrawAndWritesNothing) {
  ASSERT_EQ(lancer("new " + chemin("a.vtb")), 0);
  EXPECT_EQ(lancer("render " + chemin("a.vtb") + " " + chemin("x.png") + " --track 2"), 2);
  EXPECT_EQ(lancer("render " + chemin("a.vtb") + " " + chemin("x.png") + " --scroll 5"), 2);
  EXPECT_EQ(lancer("render " + chemin("a.vtb") + " " + chemin("x.png") + " --cursor 1-2"), 2);
  EXPECT_EQ(lancer("render " + chemin("a.vtb") + " " + chemin("x.png") + " --view 5"), 2);
  EXPECT_EQ(lancer("render " + chemin("absent.vtb") + " " + chemin("x.png")), 1);
  EXPECT_FALSE(fs::exists(dossier_ / "x.png"));
}

}  // namespace
