// A surface that draws nothing and keeps every primitive, with its coordinates
// and the colours, modes and font it was drawn with. Tests read the list; its
// text measure is a fixed function of the font size, the same on every machine.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "render/surface.h"

namespace vt {

struct Primitive {
  enum class Kind {
    Segment,     // Line: (x1, y1)-(x2, y2)
    Box,         // Line B: corners (x1, y1), (x2, y2)
    FilledBox,   // Line BF: corners (x1, y1), (x2, y2)
    Circle,      // centre (x1, y1), radius x2
    Text,        // top-left (x1, y1), size (x2, y2), `text`
    Rectangle,   // device rectangle (x1, y1)-(x2, y2), right and bottom excluded
    DeviceLine,  // MoveToEx (x1, y1), LineTo (x2, y2)
    Arc,         // box (x1, y1)-(x2, y2), rays towards (xs, ys) and (xe, ye)
    Blit,        // destination (x1, y1), size (x2, y2), source (xs, ys) of `text`
    Clear,       // Cls
    Glyph,       // a music sign: baseline origin (x1, y1), `text`
  };
  Kind kind = Kind::Segment;
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  int xs = 0, ys = 0, xe = 0, ye = 0;
  std::string text;
  RasterOp rop = RasterOp::SrcCopy;
  SurfaceState state;
};

// A named source image for blits, with nothing behind it.
class NamedBlitSource : public BlitSource {
 public:
  NamedBlitSource(std::string name, int width, int height)
      : m_name(std::move(name)), m_width(width), m_height(height) {}
  std::string_view name() const override { return m_name; }
  int width() const override { return m_width; }
  int height() const override { return m_height; }

 private:
  std::string m_name;
  int m_width;
  int m_height;
};

class RecordingSurface : public Surface {
 public:
  // `dpi` gives the size of a point: 96 for the strip's pixels, more for the
  // finer units of a page.
  RecordingSurface(int width, int height, double dpi = 96)
      : m_width(width), m_height(height), m_dpi(dpi) {}

  int ScaleWidth() const override { return m_width; }
  int ScaleHeight() const override { return m_height; }

  // Pixel height of a font size (96 dots to the inch, or the surface's own),
  // and the fixed measure: every character is 3/5 of that wide, a line 5/4 of
  // it high.
  static int pixelSize(double points, double dpi = 96);
  int TextWidth(std::string_view texte) override;
  int TextHeight(std::string_view texte) override;

  void Rectangle(int l, int t, int r, int b) override;
  void Arc(int l, int t, int r, int b, int xs, int ys, int xe, int ye) override;
  void BitBlt(int x, int y, int w, int h, const BlitSource& source, int sx, int sy,
              RasterOp rop) override;

  const std::vector<Primitive>& primitives() const { return m_primitives; }
  void clearRecord() { m_primitives.clear(); }
  // The primitives that satisfy a test, in drawing order.
  std::vector<Primitive> select(const std::function<bool(const Primitive&)>& test) const;
  std::vector<Primitive> ofKind(Primitive::Kind kind) const;
  std::vector<Primitive> texts(std::string_view text) const;

 protected:
  void drawSegment(double x1, double y1, double x2, double y2) override;
  void drawBox(double x1, double y1, double x2, double y2, bool filled) override;
  void drawCircle(double x, double y, double rayon) override;
  void drawText(double x, double y, std::string_view texte, int largeur, int hauteur) override;
  void drawDeviceLine(int x1, int y1, int x2, int y2) override;
  void drawGlyph(double x, double y, std::string_view texte) override;
  void clear() override;

 private:
  Primitive& add(Primitive::Kind kind, double x1, double y1, double x2, double y2);

  int m_width;
  int m_height;
  double m_dpi;
  std::vector<Primitive> m_primitives;
};

}  // namespace vt
