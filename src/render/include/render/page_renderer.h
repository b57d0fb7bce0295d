// One track laid out on printed pages: the head on the first page, systems of
// bars broken to the page's width and justified, the page numbers. The same
// layout pass gives the page count and places what each page draws, so the
// two can never disagree; it measures every bar once, in time linear in the
// number of bars.
//
// A page surface works in page units of 1/360 inch whatever the device: its
// ScaleWidth and ScaleHeight are the printable area in those units, and font
// sizes are points. The PRN_VIEW_* metrics are in page units.
//
//   CPageRenderer r(doc, settings);
//   const MiseEnPage mise = r.miseEnPage(surface, zoom, piste);
//   for (int page = 1; page <= mise.nombrePages(); ++page) r.drawOnPage(surface, mise, page);
#pragma once

#include <string>
#include <vector>

#include "document/tablature.h"
#include "render/music_glyphs.h"
#include "render/staff_pitch.h"
#include "render/surface.h"
#include "render/tab_settings.h"

namespace vt {

// Page units to the inch.
inline constexpr double kUnitésParPouce = 360;

// A line of bars on a page.
struct SystèmePage {
  int première = 1;      // its first bar
  int dernière = 1;      // its last bar
  double étirement = 1;  // every x inside it is multiplied by this
  lng largeur = 0;       // its natural width, before the stretch
  lng y = 0;             // its top on the page
  bool operator==(const SystèmePage&) const = default;
};

struct PagePlan {
  std::vector<SystèmePage> systèmes;
  bool operator==(const PagePlan&) const = default;
};

// Where everything of one track goes: the pages and their systems.
struct MiseEnPage {
  int piste = 1;
  double zoom = 1;  // the page factor over 3: fonts grow with it
  PrintMetrics prn;
  lng salleHaut = 0;  // room above the staff for chords, texts and tempos
  lng hauteurSystème = 0;
  lng débordBas = 0;      // what hangs below a system: the tablature's stems
  lng hauteurEntête = 0;  // the head of page 1
  std::vector<PagePlan> pages;
  int nombrePages() const { return static_cast<int>(pages.size()); }
};

// Where a bar stands in its system.
struct PlaceMesure {
  int m = 1;
  double xDébut = 0;  // its left edge
  double xNotes = 0;  // the origin of its notes, after its key and signature
  double xFin = 0;    // its right bar line
  int échelle = 192;  // ticks per column (getOnPageViewMode)
  double étirement = 1;
  lng interNote = 0;    // PRN_VIEW_INTER_NOTE
  lng interMesure = 0;  // PRN_VIEW_INTER_MESURE
  double yPortée = 0;   // the staff's top line
  double yTab = 0;      // the first string
  // The x of tick X: the bar's x and the stretched column and padding.
  double xTick(int X) const;
};

// The beam state of a note as the page draws it: a note before and after in
// the beat, the next of the same length, the next long; its place in the beat.
struct EtatRythmePage {
  bool P = false, N = false, M = false, L = false;
  int position = 0;
};

class CPageRenderer {
 public:
  CPageRenderer(const CVantoroTablature& doc, const TabSettings& settings);

  // ---- The layout -------------------------------------------------------------
  // `zoom` is the page factor over 3. `device` measures the head's texts.
  MiseEnPage miseEnPage(Surface& device, double zoom, int piste);
  i16 getNumberOfPages(Surface& device, double zoom, int piste);

  // ---- Drawing ------------------------------------------------------------------
  // Paints page `page` (from 1) of `piste`; with `dessine` false only lays out.
  void drawOnPage(Surface& device, double zoom, int page, int piste, bool dessine = true);
  // Paints a page of a layout already made on a surface of the same size.
  void drawOnPage(Surface& device, const MiseEnPage& mise, int page);

  // A head element's text at y with its style and alignment; the y after it.
  // An empty text prints nothing and takes no room.
  lng drawOnPageText(lng y, int index, const std::string& texte, Surface& device, bool dessine,
                     double zoom);

  // ---- The page's twins of the strip's routines ----------------------------------
  void drawOnPageNote(int p, const PlaceMesure& b, int c, int n);
  void drawOnPageEffet(int p, const PlaceMesure& b, int c, int n, const PlaceMesure* suivante);
  void drawOnPageRythme(int d, double x, double y, double h, double unité, const EtatRythmePage& e);
  void drawOnPageNotePortée(int p, const PlaceMesure& b, int c, int n);
  void drawOnPageNotePortéeSilences(int p, const PlaceMesure& b);

  // ---- State of the layout, read by the widths of a bar head ---------------------
  // The first bar of the system being laid out.
  int premièreMesureSystème() const { return m_premièreMesure; }
  double étirement() const { return m_étirement; }
  // The natural width of bar m at the head of a system that starts at `première`.
  lng largeurMesure(int p, int m, int première) const;
  // The texts of the head of page 1, in the order they are printed.
  std::vector<std::pair<int, std::string>> textesEntête(int piste) const;
  // "E A D G B E" for a track whose strings are not the usual ones of their
  // number (and not a drum track), with its capo; empty otherwise.
  std::string ligneAccordage(int piste) const;

 private:
  // Painting of one system.
  void dessineSystème(int p, const SystèmePage& s);
  std::vector<PlaceMesure> placesMesures(int p, const SystèmePage& s) const;
  void dessineLignes(int p, const SystèmePage& s, double xFin);
  void dessineClé(int p, const SystèmePage& s);
  void dessineArmure(int p, const PlaceMesure& b, double x, double largeur);
  void dessineSignature(int p, const PlaceMesure& b, double x, double largeur);
  void dessineBarre(int p, const PlaceMesure& b, double x, bool gauche);
  void dessineAccords(int p, const PlaceMesure& b);
  void dessineDiagramme(const tAccord& accord, int nbCordes, double x, double yBas);
  void dessineTempos(const PlaceMesure& b);
  void dessineTextes(int p, const PlaceMesure& b);
  void dessineAttaque(int p, const PlaceMesure& b, int c, const tNote& note, double x);
  void dessineHampe(int p, const PlaceMesure& b, int c, int n, int u, double x);
  void dessineDrapeaux(double x, double pointe, int barres, bool versLeBas);

  // A sign of the music font, its outline `hauteur` units high, placed by the
  // centre of its outline (or of its head, for the notes with a stem).
  void signe(const glyphe::Signe& g, double emUnités, double cx, double cy);
  double emPortée() const;  // the em that makes a note head one staff space high
  double espace() const { return 2.0 * m_prn.PRN_VIEW_INTER_PORTEE; }
  double yPas(const PlaceMesure& b, int u) const;  // the y of staff step u
  Colour couleurLignes() const;
  Colour couleurNotes() const;
  FontSpec policeTab() const;
  int épaisseur(double unités) const;

  const CVantoroTablature& m_doc;
  const TabSettings& m_s;
  Surface* m_dev = nullptr;
  PrintMetrics m_prn;
  double m_zoom = 1;
  lng m_salleHaut = 0;
  int m_premièreMesure = 1;
  double m_étirement = 1;
  Altérations m_altérations{};
};

// The usual open strings for a number of strings, from string 1: the guitar's
// for six and seven, the bass's for four and five; empty for other counts.
std::vector<int> accordageStandard(int nbCordes);

}  // namespace vt
