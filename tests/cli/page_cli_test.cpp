// vantoro-cli and pages: convert to PDF (every track from a new page, or one),
// render one page or the strip to PNG, and the refusals that write nothing.
#include <cstdio>

#include "cli_banc.h"
#include "formats/vtb.h"

namespace vt {
namespace {

class PagesCli : public CliBanc {
 protected:
  // Two tracks of 30 bars of eighths, a title: several pages each.
  void morceau(const std::string& nom) {
    CVantoroTablature doc;
    doc.titre = "Etude";
    doc.addPiste(1, tGuitare{});
    while (doc.getMesureLast() < 30)
      doc.addMesure();
    for (int p = 1; p <= 2; ++p)
      for (int m = 1; m <= 30; ++m)
        for (int k = 0; k < 8; ++k)
          doc.setNoteWhole(p, m, 1 + (k + p) % 6, k * 24, (m + k) % 12, 24);
    ASSERT_TRUE(io_enregistrer_vtb(doc, dossier_ / nom).ok());
  }
  // A line of pdfinfo's report ("Pages", "Page size"); empty without it.
  std::string info(const std::string& fichier, const std::string& clé) {
    const std::string commande = "pdfinfo " + c(fichier) + " 2>/dev/null";
    FILE* f = popen(commande.c_str(), "r");
    if (f == nullptr) return {};
    char ligne[512];
    std::string valeur;
    while (std::fgets(ligne, sizeof ligne, f) != nullptr) {
      const std::string l(ligne);
      if (l.rfind(clé + ":", 0) == 0) {
        valeur = l.substr(l.find_first_not_of(' ', clé.size() + 1));
        valeur.erase(valeur.find_last_not_of("\n") + 1);
      }
    }
    pclose(f);
    return valeur;
  }
  int pages(const std::string& fichier) {
    const std::string v = info(fichier, "Pages");
    return v.empty() ? -1 : std::stoi(v);
  }
};

TEST_F(PagesCli, PdfOfEveryTrackOrOneOnTheAskedSheetAndPngOfAPageOrTheStrip) {
  morceau("a.vtb");
  ASSERT_EQ(
      lancer("render " + c("a.vtb") + " " + c("p.png") + " --page 2 --track 2 --dpi 50 --paper a4")
          .code,
      0);
  EXPECT_EQ(taillePng("p.png"), std::make_pair(413, 585));  // A4 at 50 dots to the inch
  ASSERT_EQ(lancer("new " + c("n.vtb")).code, 0);
  ASSERT_EQ(lancer("render " + c("n.vtb") + " " + c("a.png") +
                   " --width 640 --height 320 --view 3 --triplet --cursor 1:24:2")
                .code,
            0);
  EXPECT_EQ(taillePng("a.png"), std::make_pair(640, 320));
  ASSERT_EQ(lancer("render " + c("n.vtb") + " " + c("b.png") + " --no-staff").code, 0);
  EXPECT_EQ(taillePng("b.png"), std::make_pair(1280, 400));

  ASSERT_EQ(lancer("convert " + c("a.vtb") + " " + c("toutes.pdf")).code, 0);
  ASSERT_EQ(lancer("convert " + c("a.vtb") + " " + c("une.pdf") + " --track 1").code, 0);
  ASSERT_EQ(
      lancer("convert " + c("a.vtb") + " " + c("deux.pdf") + " --track 2 --paper letter").code, 0);
  if (pages("toutes.pdf") < 0) GTEST_SKIP() << "pdfinfo is not installed";
  EXPECT_GE(pages("une.pdf"), 2);
  EXPECT_EQ(pages("toutes.pdf"), 2 * pages("une.pdf"));
  EXPECT_EQ(info("deux.pdf", "Page size").rfind("612 x 792 pts", 0), 0U);
}

TEST_F(PagesCli, RefusalsWriteNothing) {
  morceau("a.vtb");
  ASSERT_EQ(lancer("new " + c("n.vtb")).code, 0);
  const std::string strip = "render " + c("n.vtb") + " " + c("x.png");
  const struct {
    std::string arguments, sortie;
    int code;
    std::string message;
  } cas[] = {
      {"convert " + c("a.vtb") + " " + c("x.pdf") + " --track 3", "x.pdf", 2, "--track"},
      {"render " + c("a.vtb") + " " + c("x.png") + " --page 99", "x.png", 2, "no page 99"},
      {"render " + c("a.vtb") + " " + c("x.png") + " --page 1 --track 3", "x.png", 2, "no track 3"},
      {"convert " + c("a.vtb") + " " + c("absent/x.pdf"), "absent/x.pdf", 1,
       "The file could not be saved"},
      {strip + " --track 2", "x.png", 2, ""},
      {strip + " --scroll 5", "x.png", 2, ""},
      {strip + " --cursor 1-2", "x.png", 2, ""},
      {strip + " --view 5", "x.png", 2, ""},
      {"render " + c("absent.vtb") + " " + c("x.png"), "x.png", 1, ""},
  };
  for (const auto& k : cas) {
    SCOPED_TRACE(k.arguments);
    const Résultat r = lancer(k.arguments);
    EXPECT_EQ(r.code, k.code);
    EXPECT_NE(r.erreurs.find(k.message), std::string::npos) << r.erreurs;
    EXPECT_FALSE(std::filesystem::exists(dossier_ / k.sortie));
  }
}

}  // namespace
}  // namespace vt
