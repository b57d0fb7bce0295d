// The geometry of the editor's strip: where a bar, a tick, a string and a staff
// line stand in pixels, how many bars fit, and the reverse mapping of the mouse.
// Every drawing routine takes its coordinates from here.
#pragma once

#include "document/tablature.h"
#include "render/tab_settings.h"

namespace vt {

// The 16-bit wrap of the stored integer arithmetic.
inline i16 wrap16(int v) { return static_cast<i16>(static_cast<std::uint16_t>(v)); }

class StripMetrics {
 public:
  StripMetrics(const CVantoroTablature& doc, const TabSettings& s) : m_doc(doc), m_s(s) {}

  // Width of a bar in pixels: its whole columns and the padding on both sides.
  i16 largeurMesure(int m) const;
  // x of the bar's inner origin, counted from the first bar shown
  // (the document's scroll position).
  i16 getMesurePixel(int m) const;
  // x of the bar's left bar line.
  int barreGaucheX(int m) const { return getMesurePixel(m) - m_s.TAB_VIEW_INTER_MESURE; }
  // How many whole bars fit from `from` to the right edge of a surface this wide.
  i16 getMesureOnScreen(int from, int largeurSurface) const;
  // Sum of bar widths in ticks, 0 when from > to.
  lng getTablatureLargeur(int from, int to) const;

  // Column of a note at tick X (16-bit product, truncating division).
  i16 colonneNote(int m, int X) const;
  // Column of a note's effect: the same with the bar padding as last term.
  i16 colonneEffet(int m, int X) const;
  // Pixel length of a duration.
  i16 longueur(int durée) const;

  int top() const { return m_s.TAB_VIEW_MARGIN_TOP + m_s.TAB_VIEW_MARGIN_TOP_TAB; }
  int cordeY(int c) const { return top() + (c - 1) * m_s.TAB_VIEW_INTER_STRINGS; }
  int porteeHaut() const { return m_s.TAB_VIEW_MARGIN_TOP + m_s.TAB_VIEW_MARGIN_TOP_PORTEE; }
  int porteeLigneY(int k) const { return porteeHaut() + k * 2 * m_s.TAB_VIEW_INTER_PORTEE; }
  // Two staff spaces above the top line: the origin of staff steps.
  int porteeBase() const { return porteeHaut() - 4 * m_s.TAB_VIEW_INTER_PORTEE; }
  // How high the strip must be to show all it draws: the tablature of
  // `nbCordes` strings with its rhythm and lower texts, and the staff with its
  // ledger lines when it is shown.
  int hauteurContenu(int nbCordes) const;

  // ---- Hit tests of the mouse ---------------------------------------------
  // The string under y, for a track of `nbCordes` strings.
  int cordeFromY(double y, int nbCordes) const;
  // The tick under x in the cursor's bar, snapped to the column whose note it hits.
  int tickFromX(double x) const;
  // The bar under x: the first bar shown left of it, at most the last bar.
  int mesureFromX(double x) const;

  const TabSettings& settings() const { return m_s; }
  const CVantoroTablature& document() const { return m_doc; }

 private:
  const CVantoroTablature& m_doc;
  const TabSettings& m_s;
};

// The cursor's tick after a change of scale: down to a multiple of the scale.
inline int snapCurseurX(int x, int scale) { return scale > 0 ? (x / scale) * scale : x; }

// ---- Page coordinates -------------------------------------------------------
// What a page coordinate needs to know of the device it goes to.
struct PageDevice {
  bool isPrinter = false;
  double widthTwips = 0;  // the device's Width in twips
  double heightTwips = 0;
  double scaleWidth = 1;  // its ScaleWidth, in page units
  double scaleHeight = 1;
};
inline constexpr int kTwipsParPixel = 15;
// A page coordinate for a device call that works in device pixels.
i16 setTwipPosToPixelPosX(double value, const PageDevice& device);
i16 setTwipPosToPixelPosY(double value, const PageDevice& device);

// The room a printed bar head takes for its signature and its key; both
// compare with the first bar of the system being laid out.
lng getOnPageLargeurSignature(const CVantoroTablature& doc, const PrintMetrics& prn, int m,
                              int premièreMesureSystème);
lng getOnPageLargeurTonalité(const CVantoroTablature& doc, const PrintMetrics& prn, int m,
                             int premièreMesureSystème);

}  // namespace vt
