// The drawing surface every routine of the renderer paints on: a picture in
// pixel scale with the properties and methods of a classic picture box (Line,
// Circle, Print at a current point, raster draw modes) and the few device calls
// the strip needs (Rectangle, MoveToEx/LineTo, Arc, BitBlt). Two backends: a
// QPainter on a QImage (render_qt) and a recording surface for tests.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vt {

// A colour as the settings store it: 0x00BBGGRR.
using Colour = std::uint32_t;
inline constexpr Colour kNoir = 0x000000;
inline constexpr Colour kBlanc = 0xFFFFFF;
inline constexpr Colour kRouge = 0x0000FF;
inline constexpr Colour rgb(int r, int g, int b) {
  return static_cast<Colour>((r & 0xFF) | ((g & 0xFF) << 8) | ((b & 0xFF) << 16));
}
inline constexpr int rouge(Colour c) { return static_cast<int>(c & 0xFF); }
inline constexpr int vert(Colour c) { return static_cast<int>((c >> 8) & 0xFF); }
inline constexpr int bleu(Colour c) { return static_cast<int>((c >> 16) & 0xFF); }

// How the pen combines with what is already there.
enum class DrawMode : int {
  MaskPen = 9,       // destination AND pen
  MergeNotPen = 12,  // destination OR NOT pen
  CopyPen = 13,      // the pen replaces the destination
};

enum class DrawStyle : int { Solid = 0, Dash = 1 };
enum class FillStyle : int { Solid = 0, Transparent = 1 };

// Raster operations of BitBlt.
enum class RasterOp : std::uint32_t {
  SrcCopy = 0x00CC0020,
  SrcAnd = 0x008800C6,
  SrcInvert = 0x00660046,
};

// The three forms of Line: a segment, an outlined box, a box filled with the pen.
enum class LineForm { Segment, Box, FilledBox };

struct FontSpec {
  std::string nom = "Arial";
  double taille = 8;  // points
  bool gras = false;
  bool italique = false;
  bool souligné = false;
  bool barrée = false;
  bool operator==(const FontSpec&) const = default;
};

// Everything a primitive draws with, as it stood when it was called.
struct SurfaceState {
  Colour foreColor = kNoir;
  Colour fillColor = kNoir;
  Colour backColor = kBlanc;
  FillStyle fillStyle = FillStyle::Transparent;
  FontSpec font;
  bool fontTransparent = true;
  DrawMode drawMode = DrawMode::CopyPen;
  DrawStyle drawStyle = DrawStyle::Solid;
  int drawWidth = 1;
  bool operator==(const SurfaceState&) const = default;
};

// An image BitBlt copies from, such as the staff's sign strip.
class BlitSource {
 public:
  virtual ~BlitSource() = default;
  virtual std::string_view name() const = 0;
  virtual int width() const = 0;
  virtual int height() const = 0;
};

class Surface {
 public:
  virtual ~Surface() = default;

  // Size of the picture in pixels.
  virtual int ScaleWidth() const = 0;
  virtual int ScaleHeight() const = 0;

  // ---- Properties --------------------------------------------------------
  const SurfaceState& state() const { return m_state; }
  Colour ForeColor() const { return m_state.foreColor; }
  void setForeColor(Colour c) { m_state.foreColor = c; }
  Colour FillColor() const { return m_state.fillColor; }
  void setFillColor(Colour c) { m_state.fillColor = c; }
  Colour BackColor() const { return m_state.backColor; }
  void setBackColor(Colour c) { m_state.backColor = c; }
  FillStyle fillStyle() const { return m_state.fillStyle; }
  void setFillStyle(FillStyle f) { m_state.fillStyle = f; }
  const FontSpec& Font() const { return m_state.font; }
  void setFont(const FontSpec& f) { m_state.font = f; }
  void setFontName(const std::string& nom) { m_state.font.nom = nom; }
  void setFontSize(double taille) { m_state.font.taille = taille; }
  void setFontBold(bool gras) { m_state.font.gras = gras; }
  void setFontItalic(bool italique) { m_state.font.italique = italique; }
  bool FontTransparent() const { return m_state.fontTransparent; }
  void setFontTransparent(bool t) { m_state.fontTransparent = t; }
  DrawMode drawMode() const { return m_state.drawMode; }
  void setDrawMode(DrawMode m) { m_state.drawMode = m; }
  DrawStyle drawStyle() const { return m_state.drawStyle; }
  void setDrawStyle(DrawStyle s) { m_state.drawStyle = s; }
  int DrawWidth() const { return m_state.drawWidth; }
  void setDrawWidth(int w) { m_state.drawWidth = w < 1 ? 1 : w; }
  double CurrentX() const { return m_currentX; }
  double CurrentY() const { return m_currentY; }
  void setCurrentX(double x) { m_currentX = x; }
  void setCurrentY(double y) { m_currentY = y; }

  // ---- Picture-box methods (coordinates in pixels, fractions allowed) ------
  // Line (x1, y1)-(x2, y2) in its three forms; the current point moves to (x2, y2).
  void Line(double x1, double y1, double x2, double y2, LineForm form = LineForm::Segment);
  // Line (x1, y1)-Step(dx, dy).
  void LineStep(double x1, double y1, double dx, double dy, LineForm form = LineForm::Segment);
  // Line -Step(dx, dy): from the current point.
  void LineStepOn(double dx, double dy);
  // Line -(x2, y2): from the current point.
  void LineOn(double x2, double y2);
  // A circle in ForeColor, filled with FillColor when FillStyle is solid.
  void Circle(double x, double y, double rayon);
  // Prints UTF-8 text with its top-left corner at the current point, on a box of
  // BackColor unless FontTransparent; the current point moves right past it.
  void Print(std::string_view texte);
  virtual int TextWidth(std::string_view texte) = 0;
  virtual int TextHeight(std::string_view texte) = 0;
  // Prints a sign of a music font with its origin on the baseline at (x, y),
  // in ForeColor and without a background: signs are placed by their outline,
  // which the baseline gives exactly where a text box would not.
  void Glyphe(double x, double y, std::string_view texte) { drawGlyph(x, y, texte); }
  // Fills the whole picture with BackColor.
  void Cls();

  // ---- Device calls (integer device pixels) -------------------------------
  // A rectangle from (l, t) to (r, b), right and bottom excluded, outlined with
  // the pen and filled with the brush (FillColor when FillStyle is solid).
  virtual void Rectangle(int l, int t, int r, int b) = 0;
  void MoveToEx(int x, int y) {
    m_gdiX = x;
    m_gdiY = y;
  }
  // A line with the pen from the device's current position, last pixel excluded.
  void LineTo(int x, int y);
  // The elliptic arc of the box (l, t, r, b), counter-clockwise from the ray
  // towards (xs, ys) to the ray towards (xe, ye).
  virtual void Arc(int l, int t, int r, int b, int xs, int ys, int xe, int ye) = 0;
  virtual void BitBlt(int x, int y, int w, int h, const BlitSource& source, int sx, int sy,
                      RasterOp rop) = 0;

 protected:
  virtual void drawSegment(double x1, double y1, double x2, double y2) = 0;
  virtual void drawBox(double x1, double y1, double x2, double y2, bool filled) = 0;
  virtual void drawCircle(double x, double y, double rayon) = 0;
  virtual void drawText(double x, double y, std::string_view texte, int largeur, int hauteur) = 0;
  virtual void drawGlyph(double x, double y, std::string_view texte) = 0;
  virtual void drawDeviceLine(int x1, int y1, int x2, int y2) = 0;
  virtual void clear() = 0;

 private:
  SurfaceState m_state;
  double m_currentX = 0;
  double m_currentY = 0;
  int m_gdiX = 0;
  int m_gdiY = 0;
};

}  // namespace vt
