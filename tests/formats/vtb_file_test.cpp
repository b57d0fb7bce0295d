// Files on disk: a save replaces the file whole or not at all.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "formats/vtb.h"
#include "vtb_test_util.h"

namespace vt {
namespace {

namespace fs = std::filesystem;

class VtbFile : public ::testing::Test {
 protected:
  void SetUp() override {
    dossier_ = fs::temp_directory_path() /
               ("vt_vtb_file_" + std::to_string(::getpid()) + "_" +
                ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(dossier_);
    fs::create_directories(dossier_);
  }
  void TearDown() override { fs::remove_all(dossier_); }

  std::string contenu(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  }
  void poser(const fs::path& p, const std::string& s) { std::ofstream(p, std::ios::binary) << s; }
  // Every name in the folder: a failed save leaves no temporary file behind.
  std::vector<std::string> noms() {
    std::vector<std::string> n;
    for (const auto& e : fs::directory_iterator(dossier_))
      n.push_back(e.path().filename().string());
    std::sort(n.begin(), n.end());
    return n;
  }

  fs::path dossier_;
};

TEST_F(VtbFile, SaveThenOpen) {
  CVantoroTablature d = test::documentRiche();
  d.modifi = kVrai;
  const fs::path f = dossier_ / "piece.vtb";
  const VtbSauvegarde s = io_enregistrer_vtb(d, f);
  ASSERT_TRUE(s.ok()) << s.détail;
  EXPECT_EQ(d.modifi, kFaux);
  EXPECT_EQ(noms(), std::vector<std::string>{"piece.vtb"});
  const VtbLecture r = io_ouvrir_vtb(f, test::contexte());
  ASSERT_TRUE(r.ok());
  EXPECT_EQ(*r.document, test::contenuStocké(d));
}

TEST_F(VtbFile, SaveReplacesALongerFileWholeAndKeepsItsPermissions) {
  const fs::path f = dossier_ / "piece.vtb";
  poser(f, std::string(5000, 'x'));
  ::chmod(f.c_str(), 0640);
  CVantoroTablature d;
  ASSERT_TRUE(io_enregistrer_vtb(d, f).ok());
  const VtbEcriture e = io_enregistrer_vtb(static_cast<const CVantoroTablature&>(d));
  EXPECT_EQ(contenu(f), std::string(e.octets.begin(), e.octets.end()));
  struct stat st {};
  ASSERT_EQ(::stat(f.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0640u);
}

TEST_F(VtbFile, SaveThroughALinkReplacesWhatItPointsTo) {
  const fs::path vrai = dossier_ / "real.vtb";
  const fs::path lien = dossier_ / "link.vtb";
  poser(vrai, "old");
  fs::create_symlink(vrai, lien);
  CVantoroTablature d;
  ASSERT_TRUE(io_enregistrer_vtb(d, lien).ok());
  EXPECT_TRUE(fs::is_symlink(lien));
  EXPECT_EQ(contenu(vrai).substr(0, 3), "VTB");
}

TEST_F(VtbFile, FailedSavesLeaveTheOldFileWholeSinceTheyWriteATemporaryFileFirst) {
  CVantoroTablature d;
  d.modifi = kVrai;
  // A folder that does not exist.
  VtbSauvegarde s = io_enregistrer_vtb(d, dossier_ / "gone" / "piece.vtb");
  EXPECT_EQ(s.message, msg::kEcritureImpossible);
  EXPECT_FALSE(s.détail.empty());
  EXPECT_EQ(d.modifi, kVrai);
  // A folder where the file should be.
  fs::create_directory(dossier_ / "piece.vtb");
  s = io_enregistrer_vtb(d, dossier_ / "piece.vtb");
  EXPECT_EQ(s.message, msg::kEcritureImpossible);
  EXPECT_TRUE(fs::is_directory(dossier_ / "piece.vtb"));
  // A document that cannot be written: the old file keeps its bytes.
  const fs::path f = dossier_ / "other.vtb";
  poser(f, "previous content");
  d.titre = std::string(256, 't');
  s = io_enregistrer_vtb(d, f);
  EXPECT_EQ(s.message, msg::kTexteTropLong);
  EXPECT_EQ(contenu(f), "previous content");
  EXPECT_EQ(d.modifi, kVrai);
  EXPECT_EQ(noms(), (std::vector<std::string>{"other.vtb", "piece.vtb"}));
}

TEST_F(VtbFile, OpenReportsMissingAndUnreadableFiles) {
  VtbLecture r = io_ouvrir_vtb(dossier_ / "absent.vtb", test::contexte());
  EXPECT_EQ(r.messages, std::vector<int>{msg::kFichierIntrouvable});
  r = io_ouvrir_vtb(dossier_, test::contexte());
  EXPECT_EQ(r.messages, std::vector<int>{msg::kLectureImpossible});
  poser(dossier_ / "empty.vtb", "");
  r = io_ouvrir_vtb(dossier_ / "empty.vtb", test::contexte());
  EXPECT_EQ(r.messages, (std::vector<int>{6005, 6004}));
}

}  // namespace
}  // namespace vt
