#include "render/strip_metrics.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace vt {

i16 StripMetrics::largeurMesure(int m) const {
  const int s = m_s.TAB_VIEW_SCALE > 0 ? m_s.TAB_VIEW_SCALE : 1;
  // The division truncates: a bar loses its last partial column.
  return wrap16((m_doc.getMesureLargeur(m) / s) * m_s.TAB_VIEW_INTER_NOTE +
                2 * m_s.TAB_VIEW_INTER_MESURE);
}

i16 StripMetrics::getMesurePixel(int m) const {
  int x = m_s.TAB_VIEW_MARGIN_LEFT + m_s.TAB_VIEW_INTER_MESURE;
  for (lng k = m_doc.m_lngScrollValue; k < m; ++k) x += largeurMesure(static_cast<int>(k));
  return wrap16(x);
}

int StripMetrics::hauteurContenu(int nbCordes) const {
  // Under the last string: the rhythm's foot and two lines of lower text.
  int bas = top() + (std::max(nbCordes, 1) + 4) * m_s.TAB_VIEW_INTER_STRINGS;
  // Under the staff: ledger lines down to the lowest note a guitar writes.
  if (m_s.cfgAffichePortée) bas = std::max(bas, porteeHaut() + 20 * m_s.TAB_VIEW_INTER_PORTEE);
  return bas;
}

i16 StripMetrics::getMesureOnScreen(int from, int largeurSurface) const {
  int pos = m_s.TAB_VIEW_MARGIN_LEFT + m_s.TAB_VIEW_INTER_MESURE;
  int count = 0;
  while (from + count <= m_doc.getMesureLast()) {
    pos += largeurMesure(from + count);
    if (pos > largeurSurface) break;
    ++count;
  }
  return wrap16(count);
}

lng StripMetrics::getTablatureLargeur(int from, int to) const {
  lng total = 0;
  for (int m = from; m <= to; ++m) total += m_doc.getMesureLargeur(m);
  return total;
}

i16 StripMetrics::colonneNote(int m, int X) const {
  const int s = m_s.TAB_VIEW_SCALE > 0 ? m_s.TAB_VIEW_SCALE : 1;
  return wrap16(getMesurePixel(m) + wrap16(X * m_s.TAB_VIEW_INTER_NOTE) / s +
                m_s.TAB_VIEW_INTER_NOTE);
}

i16 StripMetrics::colonneEffet(int m, int X) const {
  const int s = m_s.TAB_VIEW_SCALE > 0 ? m_s.TAB_VIEW_SCALE : 1;
  return wrap16(getMesurePixel(m) + wrap16(X * m_s.TAB_VIEW_INTER_NOTE) / s +
                m_s.TAB_VIEW_INTER_MESURE);
}

i16 StripMetrics::longueur(int durée) const {
  const int s = m_s.TAB_VIEW_SCALE > 0 ? m_s.TAB_VIEW_SCALE : 1;
  return wrap16(wrap16(durée * m_s.TAB_VIEW_INTER_NOTE) / s);
}

int StripMetrics::cordeFromY(double y, int nbCordes) const {
  const int is = m_s.TAB_VIEW_INTER_STRINGS;
  if (y < top() + is / 2) return 1;
  if (y <= cordeY(nbCordes) && is > 0) {
    const long r = std::lround(std::nearbyint(y - top() - is / 2));
    return static_cast<int>(r / is) + 2;
  }
  return nbCordes;
}

int StripMetrics::tickFromX(double x) const {
  if (x < m_s.TAB_VIEW_INTER_MESURE + m_s.TAB_VIEW_MARGIN_LEFT) return 0;
  const int in = m_s.TAB_VIEW_INTER_NOTE > 0 ? m_s.TAB_VIEW_INTER_NOTE : 1;
  const int m = m_doc.CurseurMesure();
  // Rounded half to even, then divided towards zero.
  const long r = std::lround(std::nearbyint(x - getMesurePixel(m) - in / 2.0));
  const long t = (r / in) * m_s.TAB_VIEW_SCALE;
  const long limite = m_doc.getMesureLargeur(m) - m_s.TAB_VIEW_SCALE;
  if (t < 0) return 0;
  if (t > limite) return static_cast<int>(limite < 0 ? 0 : limite);
  return static_cast<int>(t);
}

int StripMetrics::mesureFromX(double x) const {
  const int first = static_cast<int>(m_doc.m_lngScrollValue);
  int m = first;
  while (m < m_doc.getMesureLast() && x >= barreGaucheX(m + 1)) ++m;
  return m;
}

// ---- Page ---------------------------------------------------------------------

namespace {
i16 toPixel(double value, bool isPrinter, double size, double scale) {
  if (isPrinter) return wrap16(static_cast<int>(std::nearbyint(value)));
  if (scale == 0) return 0;
  return wrap16(static_cast<int>(std::nearbyint(size * value / scale / kTwipsParPixel)));
}
}  // namespace

i16 setTwipPosToPixelPosX(double value, const PageDevice& d) {
  return toPixel(value, d.isPrinter, d.widthTwips, d.scaleWidth);
}

i16 setTwipPosToPixelPosY(double value, const PageDevice& d) {
  return toPixel(value, d.isPrinter, d.heightTwips, d.scaleHeight);
}

lng getOnPageLargeurSignature(const CVantoroTablature& doc, const PrintMetrics& prn, int m,
                              int premièreMesureSystème) {
  if (m == premièreMesureSystème || m == 1) return prn.PRN_VIEW_INTER_NOTE;
  // The unchanged test compares the denominator with the previous numerator, on
  // purpose: a run of 4/4 takes no room, a run of 6/8 takes it at every bar.
  const bool inchangée = doc.getMesureSignatureUp(m) == doc.getMesureSignatureUp(m - 1) &&
                         doc.getMesureSignatureDn(m) == doc.getMesureSignatureUp(m - 1);
  return inchangée ? 0 : prn.PRN_VIEW_INTER_NOTE;
}

lng getOnPageLargeurTonalité(const CVantoroTablature& doc, const PrintMetrics& prn, int m,
                             int premièreMesureSystème) {
  const bool montrée = m == premièreMesureSystème || m == 1 ||
                       doc.getMesureTonalité(m) != doc.getMesureTonalité(m - 1);
  if (!montrée) return 0;
  return std::abs(doc.getMesureTonalitéAltérations(m)) * prn.PRN_VIEW_INTER_NOTE / 5;
}

}  // namespace vt
