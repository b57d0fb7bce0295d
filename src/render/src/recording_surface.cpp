#include "render/recording_surface.h"

#include <cmath>

namespace vt {

namespace {
// Characters, not bytes: the measure must not depend on the encoding of accents.
int codePoints(std::string_view s) {
  int n = 0;
  for (const char ch : s)
    if ((static_cast<unsigned char>(ch) & 0xC0) != 0x80) ++n;
  return n;
}
}  // namespace

int RecordingSurface::pixelSize(double points, double dpi) {
  return static_cast<int>(std::lround(points * dpi / 72.0));
}

int RecordingSurface::TextWidth(std::string_view texte) {
  return codePoints(texte) * ((pixelSize(Font().taille, m_dpi) * 3 + 4) / 5);
}

int RecordingSurface::TextHeight(std::string_view) {
  return pixelSize(Font().taille, m_dpi) * 5 / 4;
}

Primitive& RecordingSurface::add(Primitive::Kind kind, double x1, double y1, double x2,
                                 double y2) {
  Primitive p;
  p.kind = kind;
  p.x1 = x1;
  p.y1 = y1;
  p.x2 = x2;
  p.y2 = y2;
  p.state = state();
  m_primitives.push_back(std::move(p));
  return m_primitives.back();
}

void RecordingSurface::drawSegment(double x1, double y1, double x2, double y2) {
  add(Primitive::Kind::Segment, x1, y1, x2, y2);
}

void RecordingSurface::drawBox(double x1, double y1, double x2, double y2, bool filled) {
  add(filled ? Primitive::Kind::FilledBox : Primitive::Kind::Box, x1, y1, x2, y2);
}

void RecordingSurface::drawCircle(double x, double y, double rayon) {
  add(Primitive::Kind::Circle, x, y, rayon, 0);
}

void RecordingSurface::drawText(double x, double y, std::string_view texte, int largeur,
                                int hauteur) {
  add(Primitive::Kind::Text, x, y, largeur, hauteur).text = std::string(texte);
}

void RecordingSurface::drawDeviceLine(int x1, int y1, int x2, int y2) {
  add(Primitive::Kind::DeviceLine, x1, y1, x2, y2);
}

void RecordingSurface::drawGlyph(double x, double y, std::string_view texte) {
  add(Primitive::Kind::Glyph, x, y, 0, 0).text = std::string(texte);
}

void RecordingSurface::clear() { add(Primitive::Kind::Clear, 0, 0, m_width, m_height); }

void RecordingSurface::Rectangle(int l, int t, int r, int b) {
  add(Primitive::Kind::Rectangle, l, t, r, b);
}

void RecordingSurface::Arc(int l, int t, int r, int b, int xs, int ys, int xe, int ye) {
  Primitive& p = add(Primitive::Kind::Arc, l, t, r, b);
  p.xs = xs;
  p.ys = ys;
  p.xe = xe;
  p.ye = ye;
}

void RecordingSurface::BitBlt(int x, int y, int w, int h, const BlitSource& source, int sx,
                              int sy, RasterOp rop) {
  Primitive& p = add(Primitive::Kind::Blit, x, y, w, h);
  p.xs = sx;
  p.ys = sy;
  p.text = std::string(source.name());
  p.rop = rop;
}

std::vector<Primitive> RecordingSurface::select(
    const std::function<bool(const Primitive&)>& test) const {
  std::vector<Primitive> out;
  for (const Primitive& p : m_primitives)
    if (test(p)) out.push_back(p);
  return out;
}

std::vector<Primitive> RecordingSurface::ofKind(Primitive::Kind kind) const {
  return select([kind](const Primitive& p) { return p.kind == kind; });
}

std::vector<Primitive> RecordingSurface::texts(std::string_view text) const {
  return select(
      [text](const Primitive& p) { return p.kind == Primitive::Kind::Text && p.text == text; });
}

}  // namespace vt
