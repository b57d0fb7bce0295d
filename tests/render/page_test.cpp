// Pages through the recording surface: the layout's edge cases, the head, the
// signs of a system, and a randomized check that the page count and the pages
// drawn agree and that every note lands once, on its page.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <map>
#include <random>
#include <set>
#include <tuple>

#include "render/page_renderer.h"
#include "render/recording_surface.h"
#include "render/strip_metrics.h"
#include "showcase.h"

namespace vt {
namespace {

using K = Primitive::Kind;

// The printable area of an A4 sheet with 10 mm sides and 12 mm top and bottom,
// in page units.
constexpr int kLargeur = 2692;
constexpr int kHauteur = 3869;

struct Pages {
  CVantoroTablature doc;
  TabSettings s;
  RecordingSurface surface{kLargeur, kHauteur, kUnitésParPouce};

  MiseEnPage mise() { return CPageRenderer(doc, s).miseEnPage(surface, s.cfgPrintFactor / 3.0, 1); }
  std::vector<Primitive> page(int n) {
    surface.clearRecord();
    CPageRenderer(doc, s).drawOnPage(surface, s.cfgPrintFactor / 3.0, n, 1);
    return surface.primitives();
  }
  std::vector<SystèmePage> systèmes() {
    std::vector<SystèmePage> l;
    for (const PagePlan& p : mise().pages)
      l.insert(l.end(), p.systèmes.begin(), p.systèmes.end());
    return l;
  }
  // `mesures` bars of 4/4, each with eighths on string 1 (`fret` from 1).
  void croches(int mesures) {
    while (doc.getMesureLast() < mesures)
      doc.addMesure();
    for (int m = 1; m <= mesures; ++m)
      for (int k = 0; k < 8; ++k)
        test::note(doc, m, 1, k * 24, 1 + (m + k) % 12, 24);
  }
};

std::size_t compte(const std::vector<Primitive>& ps,
                   const std::function<bool(const Primitive&)>& f) {
  return static_cast<std::size_t>(std::count_if(ps.begin(), ps.end(), f));
}
std::size_t glyphes(const std::vector<Primitive>& ps, char32_t code) {
  return compte(
      ps, [&](const Primitive& p) { return p.kind == K::Glyph && p.text == glyphe::utf8(code); });
}
std::size_t textes(const std::vector<Primitive>& ps, const std::string& t) {
  return compte(ps, [&](const Primitive& p) { return p.kind == K::Text && p.text == t; });
}

TEST(PageLayout, LinesAreJustifiedExceptAShortLastOne) {
  Pages t;
  t.croches(9);
  const lng marge = t.mise().prn.PRN_VIEW_MARGIN_LEFT;
  const std::vector<SystèmePage> systèmes = t.systèmes();
  ASSERT_GE(systèmes.size(), 2U);
  for (std::size_t i = 0; i < systèmes.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(systèmes[i].première, i == 0 ? 1 : systèmes[i - 1].dernière + 1);
    if (i + 1 == systèmes.size()) break;
    // A full line ends one margin short of the page's edge.
    EXPECT_GT(systèmes[i].étirement, 1.0);
    EXPECT_NEAR(marge + systèmes[i].étirement * systèmes[i].largeur, kLargeur - marge, 0.5);
  }
  EXPECT_LE(systèmes.back().largeur, kLargeur / 2);
  EXPECT_EQ(systèmes.back().étirement, 1.0);
  EXPECT_EQ(systèmes.back().dernière, 9);
  // A tick's x on a stretched line is rounded half to even: 12.5, 37.5, 62.5, 87.5.
  const PlaceMesure b{
      .xNotes = 100, .échelle = 24, .étirement = 1.25, .interNote = 20, .interMesure = 10};
  EXPECT_EQ((std::vector<double>{b.xTick(0), b.xTick(24), b.xTick(48), b.xTick(72)}),
            (std::vector<double>{112, 138, 162, 188}));
}

TEST(PageLayout, SignatureRoomFollowsTheNumeratorTest) {
  // The unchanged test compares the denominator with the previous numerator:
  // 4/4 takes room once, 6/8 and 3/4 at every bar.
  const struct {
    int up, dn;
    bool àChaqueMesure;
  } cas[] = {{4, 4, false}, {6, 8, true}, {3, 4, true}, {2, 2, false}};
  for (const auto& c : cas) {
    SCOPED_TRACE(std::to_string(c.up) + "/" + std::to_string(c.dn));
    Pages t;
    for (int m = 1; m <= 4; ++m) {
      if (m > 1) t.doc.addMesure();
      t.doc.setMesureSignature(m, c.up, c.dn);
    }
    const MiseEnPage mise = t.mise();
    ASSERT_EQ(mise.nombrePages(), 1);
    for (int m = 2; m <= 4; ++m)
      EXPECT_EQ(getOnPageLargeurSignature(t.doc, mise.prn, m, 1),
                c.àChaqueMesure ? mise.prn.PRN_VIEW_INTER_NOTE : 0);
    // Drawn on the staff and on the tablature wherever the room is.
    EXPECT_EQ(glyphes(t.page(1), U'0' + static_cast<char32_t>(c.dn)),
              (c.àChaqueMesure ? 4U : 1U) * (c.up == c.dn ? 4U : 2U));
  }
}

TEST(PageLayout, SystemHeightWithAndWithoutStaffAndChords) {
  const struct {
    bool portée, accords;
    lng salle, tab;
  } cas[] = {{true, true, 420, 288},
             {false, true, 420, 0},
             {true, false, 210, 288},
             {false, false, 210, 0}};
  for (const auto& c : cas) {
    SCOPED_TRACE(std::to_string(c.portée) + std::to_string(c.accords));
    Pages t;
    t.s.cfgPrintPortée = c.portée;
    t.s.cfgPrintAccords = c.accords;
    t.croches(1);
    const MiseEnPage m = t.mise();
    EXPECT_EQ((std::vector<lng>{m.salleHaut, m.prn.PRN_VIEW_MARGIN_TOP_TAB, m.hauteurSystème}),
              (std::vector<lng>{c.salle, c.tab, c.salle + c.tab + 6 * 39}));
    // The staff's lines inside the top and bottom ones, or none.
    const auto page = t.page(1);
    const double y0 = static_cast<double>(m.hauteurEntête + m.salleHaut);
    EXPECT_EQ(compte(page,
                     [&](const Primitive& p) {
                       return p.kind == K::Segment && p.y1 == p.y2 && p.x1 == 105 && p.x2 > 500 &&
                              p.y1 > y0 && p.y1 <= y0 + 96 && std::fmod(p.y1 - y0, 24) == 0;
                     }),
              c.portée ? 4U : 0U);
    EXPECT_EQ(glyphes(page, glyphe::kCléSol.code), c.portée ? 1U : 0U);
  }
}

TEST(PageLayout, HeadElementsInTheirOrderAndEmptyOnesCostNothing) {
  Pages t;
  t.doc.titre = "Song";
  t.doc.Auteur = "Me";
  t.doc.Comments = "first\r\nsecond";
  t.doc.setPisteNom(1, "Lead");
  t.croches(1);
  std::vector<int> ordre;
  for (const auto& [i, texte] : CPageRenderer(t.doc, t.s).textesEntête(1))
    ordre.push_back(i);
  EXPECT_EQ(ordre, (std::vector<int>{kEntêteTitre, kEntêteAuteur, kEntêteCommentaires,
                                     kEntêteNomPiste, kEntêteTempo}));
  const lng sans = t.mise().hauteurEntête;
  t.doc.SousTitre = "live";
  EXPECT_GT(t.mise().hauteurEntête, sans);
  t.s.cfgPrint[kEntêteSousTitre] = 0;
  EXPECT_EQ(t.mise().hauteurEntête, sans);

  // Printed top to bottom, the title centred, the comments on the left margin.
  std::map<std::string, Primitive> textes;
  for (const Primitive& p : t.page(1))
    if (p.kind == K::Text) textes[p.text] = p;
  EXPECT_NEAR(textes["Song"].x1 + textes["Song"].x2 / 2, kLargeur / 2.0, 1);
  EXPECT_EQ(textes["first"].x1, 105);
  std::vector<double> ys;
  for (const char* s : {"Song", "Me", "first", "second", "Lead", "Tempo: 120"})
    ys.push_back(textes.count(s) ? textes[s].y1 : -1);
  EXPECT_EQ(ys.front(), 0);
  EXPECT_TRUE(std::adjacent_find(ys.begin(), ys.end(), std::greater_equal<>()) == ys.end());
}

TEST(PageLayout, ABarWiderThanThePageStandsAloneAndFits) {
  Pages t;
  t.croches(3);
  t.doc.setMesureSignature(2, 12, 4);
  for (int x = 0; x < 576; x += 6)
    test::note(t.doc, 2, 2, x, 5, 6);
  const std::vector<SystèmePage> systèmes = t.systèmes();
  const auto seul = std::find_if(systèmes.begin(), systèmes.end(),
                                 [](const SystèmePage& s) { return s.première == 2; });
  ASSERT_NE(seul, systèmes.end());
  EXPECT_EQ(seul->dernière, 2);
  EXPECT_LT(seul->étirement, 1.0);
  for (const Primitive& p : t.page(1))
    EXPECT_TRUE(p.kind != K::Text || p.x1 + p.x2 <= kLargeur) << p.text;
}

TEST(PageLayout, PagesBreakBeforeASystemWouldPassTheBottom) {
  Pages t;
  t.croches(120);
  const MiseEnPage m = t.mise();
  ASSERT_GT(m.nombrePages(), 2);
  for (std::size_t i = 0; i < m.pages.size(); ++i) {
    SCOPED_TRACE(i);
    const auto& s = m.pages[i].systèmes;
    ASSERT_FALSE(s.empty());
    // Later pages start at the top; each system keeps its stems on the page;
    // a page is full: one more system would not fit.
    EXPECT_EQ(s.front().y, i == 0 ? m.hauteurEntête : 0);
    EXPECT_LE(s.back().y + m.hauteurSystème + m.débordBas, kHauteur);
    EXPECT_TRUE(i + 1 == m.pages.size() ||
                s.back().y + 2 * m.hauteurSystème + m.débordBas > kHauteur);
  }
  // The zoom changes the page count; an empty piece is one system on one page.
  std::vector<int> pages;
  for (const float f : {2.0f, 3.0f, 4.0f}) {
    t.s.cfgPrintFactor = f;
    pages.push_back(t.mise().nombrePages());
  }
  EXPECT_TRUE(pages[0] < pages[1] && pages[1] < pages[2]) << pages[0] << pages[1] << pages[2];
  Pages vide;
  ASSERT_EQ(vide.mise().nombrePages(), 1);
  EXPECT_EQ(vide.mise().pages[0].systèmes.size(), 1U);
  EXPECT_EQ(CPageRenderer(vide.doc, vide.s).getNumberOfPages(vide.surface, 1, 1), 1);
}

TEST(PagePaint, PageNumbersClefsAndColours) {
  Pages t;
  t.croches(60);
  t.doc.setPortéeClef(1, 2);
  const auto page2 = t.page(2);
  const auto numéro = std::find_if(page2.begin(), page2.end(),
                                   [](const Primitive& p) { return p.text == "- 2 -"; });
  ASSERT_NE(numéro, page2.end());
  EXPECT_EQ(numéro->y1, 0);
  // Page 1 carries the head, not its number; a bass clef heads every system.
  EXPECT_EQ(textes(t.page(1), "- 1 -"), 0U);
  EXPECT_EQ(glyphes(page2, glyphe::kCléFa.code), t.mise().pages[1].systèmes.size());
  EXPECT_EQ(glyphes(page2, glyphe::kCléSol.code), 0U);
  EXPECT_TRUE(t.page(t.mise().nombrePages() + 1).empty());

  // Black and white, or the note colour of the settings.
  t.s.cfgEventColor = kRouge;
  const auto couleurDesFrettes = [&] {
    std::set<Colour> c;
    for (const Primitive& p : t.page(1))
      if (p.kind == K::Text && p.text == "5" && p.state.font.gras) c.insert(p.state.foreColor);
    return c;
  };
  EXPECT_EQ(couleurDesFrettes(), std::set<Colour>{kNoir});
  t.s.cfgPrintNB = 0;
  EXPECT_EQ(couleurDesFrettes(), std::set<Colour>{kRouge});
}

TEST(PagePaint, KeyAccidentalsRestsAndBarNumbers) {
  Pages t;
  t.croches(2);
  t.doc.addMesure();
  for (const auto& [m, clé] : {std::pair{1, 3}, {2, 3}, {3, -2}})
    t.doc.setMesureTonalitéDétails(m, clé, kVrai);
  test::note(t.doc, 3, 1, 0, 5, 48);
  const auto page = t.page(1);
  // Three sharps at the head of the system, then two flats where the key
  // changes; a quarter then silence in bar 3: a quarter rest and a half rest;
  // the first bar's number above the system and no other.
  EXPECT_GE(glyphes(page, glyphe::kDièse.code), 3U);
  EXPECT_EQ((std::vector<std::size_t>{
                glyphes(page, glyphe::kBémol.code), glyphes(page, glyphe::kSoupir.code),
                glyphes(page, glyphe::kPauseBlanche.code),
                compte(page,
                       [](const Primitive& p) {
                         return p.kind == K::Text && p.text == "1" && !p.state.font.gras;
                       })}),
            (std::vector<std::size_t>{2, 1, 1, 1}));
  // An empty bar shows its rests only when asked; without rests, none.
  t.doc.addMesure();
  EXPECT_EQ(glyphes(t.page(1), glyphe::kPauseRonde.code), 0U);
  t.s.cfgPrintPortéeSilence1Mesure = true;
  EXPECT_EQ(glyphes(t.page(1), glyphe::kPauseRonde.code), 1U);
  t.s.cfgPrintPortéeSilence = false;
  EXPECT_EQ(glyphes(t.page(1), glyphe::kSoupir.code) + glyphes(t.page(1), glyphe::kPauseRonde.code),
            0U);
}

TEST(PagePaint, TuningAndCapoUnderTheTrackName) {
  const struct {
    std::vector<int> cordes;
    int capo;
    std::string ligne;
  } cas[] = {{{64, 59, 55, 50, 45, 40}, 0, ""},
             {{64, 59, 55, 50, 45, 38}, 0, "Tuning: D A D G B E"},
             {{64, 59, 55, 50, 45, 40}, 2, "Capo: fret 2"},
             {{62, 57, 55, 50, 45, 38}, 5, "Tuning: D A D G A D   Capo: fret 5"},
             {{43, 38, 33, 28}, 0, ""},
             {{69, 64, 60, 67}, 0, "Tuning: G C E A"}};
  for (const auto& c : cas) {
    SCOPED_TRACE(c.ligne);
    Pages t;
    t.doc.setGuitareNbrCordes(1, static_cast<int>(c.cordes.size()));
    for (std::size_t i = 0; i < c.cordes.size(); ++i)
      t.doc.setGuitareCorde(1, static_cast<int>(i + 1), static_cast<byt>(c.cordes[i]));
    t.doc.setGuitareCapodastre(1, static_cast<byt>(c.capo));
    EXPECT_EQ(CPageRenderer(t.doc, t.s).ligneAccordage(1), c.ligne);
    EXPECT_EQ(textes(t.page(1), c.ligne), c.ligne.empty() ? 0U : 1U);
  }
  Pages batterie;
  batterie.doc.setStaffType(1, kStaffBatterie);
  batterie.doc.setGuitareCorde(1, 6, 38);
  EXPECT_EQ(CPageRenderer(batterie.doc, batterie.s).ligneAccordage(1), "");
}

// Random pieces: the count and the pages drawn agree, and every note's fret is
// drawn once, inside the page it is on.
TEST(PageRandom, PageCountMatchesThePagesDrawnAndEveryNoteOnce) {
  std::mt19937 aléa(20240614);
  const int signatures[][2] = {{4, 4}, {3, 4}, {6, 8}, {2, 4}, {5, 8}, {12, 8}, {7, 4}};
  for (int essai = 0; essai < 40; ++essai) {
    SCOPED_TRACE(essai);
    Pages t;
    t.s.cfgPrintFactor = std::uniform_real_distribution<float>(1.5f, 4.5f)(aléa);
    t.s.cfgPrintPortée = aléa() % 4 != 0;
    t.s.cfgPrintAccords = aléa() % 3 != 0;
    t.s.cfgPrintTabRythme = aléa() % 4 != 0;
    if (aléa() % 2) t.doc.titre = "Piece " + std::to_string(essai);
    const int mesures = 1 + static_cast<int>(aléa() % 90);
    while (t.doc.getMesureLast() < mesures)
      t.doc.addMesure();
    int notes = 0;
    for (int m = 1; m <= mesures; ++m) {
      const auto& sig = signatures[aléa() % std::size(signatures)];
      t.doc.setMesureSignature(m, sig[0], sig[1]);
      t.doc.setMesureTonalitéDétails(m, static_cast<int>(aléa() % 15) - 7, kVrai);
      const int pas = std::array{6, 12, 24, 48}[aléa() % 4];
      for (int x = 0; x + pas <= t.doc.getMesureLargeur(m); x += pas) {
        if (aléa() % 3 == 0) continue;
        const int c = 1 + static_cast<int>(aléa() % 6);  // drawn before the fret
        test::note(t.doc, m, c, x, static_cast<int>(aléa() % 20), pas);
        ++notes;
      }
      if (aléa() % 5 == 0) {
        OneBased<byt> accord(6);
        for (int c = 1; c <= 6; ++c)
          accord[c] = static_cast<byt>(aléa() % 5);
        t.doc.setMesureAccord(1, m, t.doc.addandplaceMesureAccord(1, m, 0), "Am", accord);
      }
    }
    const int nombre =
        CPageRenderer(t.doc, t.s).getNumberOfPages(t.surface, t.s.cfgPrintFactor / 3.0, 1);
    ASSERT_GE(nombre, 1);
    std::set<std::tuple<int, double, double>> places;
    int frettes = 0;
    for (int page = 1; page <= nombre + 1; ++page) {
      const auto ps = t.page(page);
      EXPECT_EQ(ps.empty(), page > nombre) << page;
      for (const Primitive& p : ps) {
        // Fret digits are the only texts in the tablature's bold font.
        if (p.kind != K::Text || !p.state.font.gras || p.state.font.nom != "Arial" ||
            p.text.empty() || !std::isdigit(static_cast<unsigned char>(p.text[0])) ||
            p.state.foreColor != kNoir ||
            p.state.font.taille != t.s.cfgFontSize * (t.s.cfgPrintFactor / 3.0))
          continue;
        ++frettes;
        EXPECT_TRUE(places.emplace(page, p.x1, p.y1).second) << "twice at " << p.x1 << "," << p.y1;
        EXPECT_TRUE(p.x1 >= 0 && p.y1 >= 0 && p.x1 + p.x2 <= kLargeur && p.y1 + p.y2 <= kHauteur)
            << p.x1 << "," << p.y1;
      }
    }
    EXPECT_EQ(frettes, notes);
  }
}

}  // namespace
}  // namespace vt
