// Files on disk: a save replaces the file whole or not at all, even when the
// process dies half way or the disk is full: the old file keeps every byte, or
// the new one stands whole; never a mixture, never a truncated file.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "formats/file_io.h"
#include "formats/vtb.h"
#include "vtb_test_util.h"

namespace vt {
namespace {

namespace fs = std::filesystem;

std::string contenu(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

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

TEST_F(VtbFile, SaveReplacesALongerFileWholeKeepsItsPermissionsAndFollowsALink) {
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
  // Through a link, the save replaces what it points to.
  const fs::path vrai = dossier_ / "real.vtb";
  const fs::path lien = dossier_ / "link.vtb";
  poser(vrai, "old");
  fs::create_symlink(vrai, lien);
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
  poser(dossier_ / "empty.vtb", "");
  for (const auto& [chemin, messages] :
       {std::pair{dossier_ / "absent.vtb", std::vector<int>{msg::kFichierIntrouvable}},
        {dossier_, {msg::kLectureImpossible}},
        {dossier_ / "empty.vtb", {6005, 6004}}})
    EXPECT_EQ(io_ouvrir_vtb(chemin, test::contexte()).messages, messages) << chemin;
}

// Runs `corps` in a child process and gives its exit status (-1 when it did
// not exit normally). The child ends with _exit: nothing of the test runner's
// state is flushed twice.
template <class F>
int dansUnEnfant(F corps) {
  const pid_t pid = ::fork();
  if (pid == 0) ::_exit(corps());
  int statut = 0;
  ::waitpid(pid, &statut, 0);
  return WIFEXITED(statut) ? WEXITSTATUS(statut) : -1;
}

class SaveFaults : public VtbFile {
 protected:
  void SetUp() override {
    VtbFile::SetUp();
    cible_ = dossier_ / "piece.vtb";
    CVantoroTablature ancien;
    ancien.titre = "the old piece";
    ASSERT_TRUE(io_enregistrer_vtb(ancien, cible_).ok());
    ancienContenu_ = contenu(cible_);
    // Long enough to be written in several blocks and to pass the size limit.
    nouveau_ = test::documentRiche();
    while (nouveau_.getMesureLast() < 200)
      nouveau_.addMesure();
    for (int m = 4; m <= 200; ++m)
      for (int x = 0; x < 192; x += 24)
        nouveau_.setNoteWhole(1, m, 1 + x / 24 % 6, x, m % 20, 24);
    const VtbEcriture e = io_enregistrer_vtb(static_cast<const CVantoroTablature&>(nouveau_));
    ASSERT_TRUE(e.ok());
    nouveauContenu_ = std::string(e.octets.begin(), e.octets.end());
    ASSERT_GT(nouveauContenu_.size(), 4096u);
  }

  // Saves the new document over the old file; the child's exit status says
  // 0 when the save was refused with the write message and the document is
  // still marked as changed, 1 otherwise.
  int sauverRefusé() {
    nouveau_.modifi = kVrai;
    const VtbSauvegarde s = io_enregistrer_vtb(nouveau_, cible_);
    return s.message == msg::kEcritureImpossible && !s.détail.empty() && nouveau_.modifi == kVrai
               ? 0
               : 1;
  }

  fs::path cible_;
  std::string ancienContenu_, nouveauContenu_;
  CVantoroTablature nouveau_;
};

SaveStep g_mort;
void mourirÀ(SaveStep s) {
  if (s == g_mort) ::_exit(42);  // as abrupt as a kill: no clean-up runs
}

TEST_F(SaveFaults, AProcessKilledAtAnyStepLeavesTheOldFileOrTheNewOneWhole) {
  struct Cas {
    SaveStep étape;
    bool nouveauEnPlace;
  };
  const Cas cas[] = {{SaveStep::Opened, false},  {SaveStep::HalfWritten, false},
                     {SaveStep::Written, false}, {SaveStep::Flushed, false},
                     {SaveStep::Closed, false},  {SaveStep::Renamed, true}};
  for (const Cas& c : cas) {
    SCOPED_TRACE(static_cast<int>(c.étape));
    ASSERT_TRUE(writeFileAtomically(
                    cible_, std::span<const std::uint8_t>(
                                reinterpret_cast<const std::uint8_t*>(ancienContenu_.data()),
                                ancienContenu_.size()))
                    .empty());
    g_mort = c.étape;
    const int statut = dansUnEnfant([&] {
      setSaveStepHook(mourirÀ);
      io_enregistrer_vtb(nouveau_, cible_);
      return 0;
    });
    EXPECT_EQ(statut, 42);
    EXPECT_EQ(contenu(cible_), c.nouveauEnPlace ? nouveauContenu_ : ancienContenu_);
    // What a killed save leaves is a hidden temporary file, never the target.
    for (const auto& e : fs::directory_iterator(dossier_))
      if (e.path() != cible_) fs::remove(e.path());
  }
}

TEST_F(SaveFaults, AFullDiskKeepsTheOldFileAndTheDocumentChanged) {
  // A file size limit makes every write past it fail as a full disk does.
  const int statut = dansUnEnfant([&] {
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limite{4096, 4096};
    if (::setrlimit(RLIMIT_FSIZE, &limite) != 0) return 2;
    return sauverRefusé();
  });
  EXPECT_EQ(statut, 0);
  EXPECT_EQ(contenu(cible_), ancienContenu_);
  EXPECT_EQ(noms(), std::vector<std::string>{"piece.vtb"});  // no temporary file left behind
}

}  // namespace
}  // namespace vt
