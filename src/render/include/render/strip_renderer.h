// The editor's strip: one line of bars of the cursor's track, with tablature,
// staff, signatures, chords, tempos, texts, bar lines, the ruler, the loop
// markers, the cursor and the selection.
//
// The editor makes one renderer per surface and calls:
//   drawInLine()                              for a scroll, view change, resize
//   effaceCurrentMesure(), edit, drawCurrentMesure()   around a one-note edit
//   curEfface()/curAffiche(), selEfface()/selAffiche() around a cursor move
// The cursor and the selection are painted by raster modes and never stored:
// whatever changes the pixels under them must hide them first.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "document/tablature.h"
#include "render/staff_pitch.h"
#include "render/staff_source.h"
#include "render/strip_metrics.h"
#include "render/surface.h"
#include "render/tab_settings.h"

namespace vt {

class CStripRenderer {
 public:
  // `guitare` is the current instrument, whose open strings decide which note of
  // a chord carries the staff's stem; `portée` is the staff's sign strip (no
  // staff signs are drawn without one). All are held by reference.
  CStripRenderer(const CVantoroTablature& doc, const TabSettings& settings, Surface& surface,
                 const tGuitare& guitare, const BlitSource* portée);

  // ---- Paints ----------------------------------------------------------------
  void drawInLine();
  void effaceCurrentMesure();
  void drawCurrentMesure();

  // ---- Cursor and selection ----------------------------------------------------
  void curAffiche();
  void curEfface();
  void curDraw();
  void selAffiche();
  void selEfface();
  void selDraw();
  // Called by curDraw: the fretboard and the floating windows follow the cursor.
  std::function<void()> onCurseurDessiné;

  // ---- Geometry ------------------------------------------------------------------
  const StripMetrics& metrics() const { return m_metrics; }
  i16 getMesurePixel(int m) const { return m_metrics.getMesurePixel(m); }
  // Whole bars that fit on the surface from `from`.
  i16 getMesureOnScreen(int from) const {
    return m_metrics.getMesureOnScreen(from, m_surface.ScaleWidth());
  }
  // The last bar drawn on the surface, whole or clipped.
  int dernièreMesureVisible() const;

  // ---- The routines of one note or bar -------------------------------------------
  void drawNote(int p, int m, int c, int n);
  void drawEffet(int p, int m, int c, int n);
  void drawRythme(Surface& surface, int d, int x, int y, int h, int unité);
  void portéeCalculeAltérations(int m);
  void drawNotePortée(int p, int m, int c, int n);
  void drawNotePortéeSilences(int p, int m);
  void drawRythmePortée(int d, int x, int y, int h, int unité);
  // The triplet's "3" and the dotted length's dot of a rhythm, centred on (x, y).
  void marquesRythme(Surface& surface, int d, int x, int y);
  void drawScreenRectangle(int x, int y, int w, int h);
  void drawScreenLine(int x, int y, int dx, int dy);
  static void drawTextCenter(Surface& surface, double x, double y, std::string_view texte);

  // ---- Beam state of the note being drawn ----------------------------------------
  vbool rythmePrecedent = kFaux;
  vbool rythmeSuivant = kFaux;
  vbool rythmeSuivantMemeDurée = kFaux;
  vbool rythmeSuivantLong = kFaux;
  byt rythmePosition = 0;
  // Fills the four flags and the position for note n.
  void calculeEtatRythme(int p, int m, int c, int n);

  const Altérations& altérations() const { return m_altérations; }

 private:
  // drawInLine's steps.
  void drawCordes(int p);
  void drawPortéeLignes();
  void drawClef(int p);
  void drawArmure(int p, int m, int xBarre);
  void drawSignature(int m, int xBarre);
  void drawBarre(int m, int x, bool gauche);
  void drawAccords(int p, int m, int xBarre);
  void drawTempos(int m, int xBarre, Colour couleur);
  void drawTextes(int p, int m, int xBarre);
  void drawContenuMesure(int p, int m);
  void drawPortéeMesure(int p, int m);
  void drawRègle();
  void drawMarqueurs();
  void drawAttaque(int p, int m, int c, const tNote& note, int x);
  void drawDiagramme(const tAccord& accord, int nbCordes, int x, int y);
  void blit(const portee::Cellule& cellule, int x, int y);
  int yBasBarre() const;
  int cordes(int p) const { return m_doc.getGuitareNbrCordes(p); }

  const CVantoroTablature& m_doc;
  const TabSettings& m_s;
  Surface& m_surface;  // the picture drawn on (m_picDevice)
  const tGuitare& m_guitare;
  const BlitSource* m_lngPort;  // the staff's sign strip
  StripMetrics m_metrics;
  Altérations m_altérations{};
};

}  // namespace vt
