// The full paint of the strip, in its fixed order: strings, staff lines and
// clef, bar heads and bar lines, notes and effects, staff notes, ruler, loop
// markers, then cursor and selection in their raster modes.
#include "render/strip_renderer.h"

#include <array>

#include "texte.h"

namespace vt {

namespace {
// Names of the pitch classes, A first.
constexpr std::array<const char*, 12> kNomsNotes{"A",  "A#", "B", "C",  "C#", "D",
                                                 "D#", "E",  "F", "F#", "G",  "G#"};
// Names of the strings of a drum track, from string 1.
constexpr std::array<const char*, 7> kNomsBatterie{"P", "RC", "CC", "HH", "T", "SD", "BD"};
}  // namespace

CStripRenderer::CStripRenderer(const CVantoroTablature& doc, const TabSettings& settings,
                               Surface& surface, const tGuitare& guitare,
                               const BlitSource* portée)
    : m_doc(doc),
      m_s(settings),
      m_surface(surface),
      m_guitare(guitare),
      m_lngPort(portée),
      m_metrics(doc, settings) {}

int CStripRenderer::dernièreMesureVisible() const {
  const int first = static_cast<int>(m_doc.m_lngScrollValue);
  int m = first;
  while (m < m_doc.getMesureLast() && getMesurePixel(m + 1) <= m_surface.ScaleWidth()) ++m;
  return m;
}

void CStripRenderer::drawTextCenter(Surface& surface, double x, double y, std::string_view texte) {
  surface.setCurrentX(x - surface.TextWidth(texte) / 2);
  surface.setCurrentY(y - surface.TextHeight(texte) / 2);
  surface.Print(texte);
}

void CStripRenderer::drawScreenRectangle(int x, int y, int w, int h) {
  m_surface.Rectangle(x, y, x + w + 1, y + h + 1);
}

void CStripRenderer::drawScreenLine(int x, int y, int dx, int dy) {
  m_surface.MoveToEx(x, y);
  m_surface.LineTo(x + dx, y + dy);
}

int CStripRenderer::yBasBarre() const {
  const int p = m_doc.CurseurPiste();
  if (m_s.cfgAffichePortée && m_s.portéeEnDessous()) return m_metrics.porteeLigneY(4);
  return m_metrics.cordeY(cordes(p));
}

void CStripRenderer::drawCordes(int p) {
  const bool batterie = m_doc.getStaffType(p) == kStaffBatterie;
  const int droite = m_surface.ScaleWidth() + 1;
  for (int c = 1; c <= cordes(p); ++c) {
    const int y = m_metrics.cordeY(c);
    // Strings go through the device, like every line the partial repaint restores.
    drawScreenLine(m_s.TAB_VIEW_MARGIN_LEFT, y, droite - m_s.TAB_VIEW_MARGIN_LEFT, 0);
    const std::string nom =
        batterie ? kNomsBatterie[static_cast<std::size_t>(c - 1)]
                 : kNomsNotes[static_cast<std::size_t>((m_doc.getGuitareCorde(p, c) + 3) % 12)];
    m_surface.setCurrentX(m_s.TAB_VIEW_MARGIN_LEFT - 20);
    m_surface.setCurrentY(y - m_surface.TextHeight(nom) / 2);
    m_surface.Print(nom);
  }
}

void CStripRenderer::drawPortéeLignes() {
  for (int k = 0; k <= 4; ++k)
    drawScreenLine(0, m_metrics.porteeLigneY(k), m_surface.ScaleWidth() + 1, 0);
}

void CStripRenderer::drawInLine() {
  const int p = m_doc.CurseurPiste();
  if (!m_doc.hasPiste(p)) return;
  m_surface.setDrawMode(DrawMode::CopyPen);
  m_surface.setBackColor(m_s.cfgBackColor);
  m_surface.Cls();

  // 1-2. Strings and their names.
  m_surface.setForeColor(m_s.cfgLineColor);
  m_surface.setFillColor(m_s.cfgLineColor);
  m_surface.setFont(m_s.policeTablature());
  m_surface.setFontTransparent(true);
  drawCordes(p);

  // 3. Staff lines and clef.
  if (m_s.cfgAffichePortée) {
    drawPortéeLignes();
    drawClef(p);
  }

  // 4. Bar heads and bar lines. The remembered key and signature start at 0,
  // so the first bar shown always displays both. A bar cut by the right edge
  // is drawn too, clipped, like its notes: a window narrower than one bar
  // still shows that bar whole with its lines.
  const int first = static_cast<int>(m_doc.m_lngScrollValue);
  int x = m_s.TAB_VIEW_MARGIN_LEFT;
  int tonalité = 0;
  int up = 0;
  int dn = 0;
  for (int m = first; m <= m_doc.getMesureLast() && x < m_surface.ScaleWidth(); ++m) {
    if (m_s.cfgAffichePortée && m_doc.getMesureTonalité(m) != tonalité) {
      tonalité = m_doc.getMesureTonalité(m);
      drawArmure(p, m, x);
    }
    if (m_doc.getMesureSignatureUp(m) != up || m_doc.getMesureSignatureDn(m) != dn) {
      up = m_doc.getMesureSignatureUp(m);
      dn = m_doc.getMesureSignatureDn(m);
      drawSignature(m, x);
    }
    drawAccords(p, m, x);
    drawTempos(m, x, kRouge);
    drawTextes(p, m, x);
    drawBarre(m, x, true);
    x += m_metrics.largeurMesure(m);
    drawBarre(m, x, false);
  }

  // 5. Notes and effects.
  const int dernière = dernièreMesureVisible();
  m_surface.setForeColor(m_s.cfgEventColor);
  m_surface.setFillColor(m_s.cfgEventColor);
  m_surface.setFont(m_s.policeTablature());
  m_surface.setFontTransparent(m_s.cfgFontTransparent);
  for (int m = first; m <= dernière; ++m) drawContenuMesure(p, m);

  // 6. The staff's notes and rests.
  m_surface.setFontTransparent(true);
  if (m_s.cfgAffichePortée) {
    m_surface.setForeColor(kNoir);
    for (int m = first; m <= dernière; ++m) drawPortéeMesure(p, m);
  }

  // 7-8. Ruler and loop markers.
  drawRègle();
  drawMarqueurs();

  // 9. Cursor and selection last, in their own raster mode.
  m_surface.setFont(m_s.policeTablature());
  curEfface();
  curAffiche();
  selAffiche();
}

void CStripRenderer::drawContenuMesure(int p, int m) {
  for (int c = 1; c <= cordes(p); ++c) {
    const OneBased<tNote>* l = m_doc.notes(p, m, c);
    if (l == nullptr) continue;
    for (int n = 1; n <= l->last(); ++n) {
      if ((*l)[n].bytCase < kCaseVide) drawNote(p, m, c, n);
      drawEffet(p, m, c, n);
    }
  }
}

void CStripRenderer::drawPortéeMesure(int p, int m) {
  portéeCalculeAltérations(m);
  for (int c = 1; c <= cordes(p); ++c)
    for (int n = 1; n <= m_doc.getNoteLast(p, m, c); ++n) drawNotePortée(p, m, c, n);
  drawNotePortéeSilences(p, m);
}

}  // namespace vt
