// A renderer on a recording surface, over a document the test builds.
#pragma once

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "render/recording_surface.h"
#include "render/staff_source.h"
#include "render/strip_renderer.h"

namespace vt::test {

struct Banc {
  CVantoroTablature doc;
  TabSettings s;
  RecordingSurface surface{1200, 400};
  tGuitare guitare;
  NamedBlitSource source{portee::kNomSource, portee::kLargeurSource, portee::kHauteurSource};
  CStripRenderer r{doc, s, surface, guitare, &source};

  const StripMetrics& m() const { return r.metrics(); }
  std::vector<Primitive> blits(const portee::Cellule& c) const {
    return surface.select([&](const Primitive& p) {
      return p.kind == Primitive::Kind::Blit && p.xs == c.x && p.ys == c.y;
    });
  }
};

// Test helpers on primitives: where a centred text was centred (the surface
// centres with integer halves); the four coordinates, the top-left corner and
// the ray ends of an arc, to compare with expected values in one assertion.
using Quatre = std::array<double, 4>;
using Coin = std::pair<double, double>;
// clang-format off
inline int centreX(const Primitive& p) { return static_cast<int>(p.x1) + static_cast<int>(p.x2) / 2; }
inline int centreY(const Primitive& p) { return static_cast<int>(p.y1) + static_cast<int>(p.y2) / 2; }
inline Quatre coins(const Primitive& p) { return {p.x1, p.y1, p.x2, p.y2}; }
inline Quatre q(double x1, double y1, double x2, double y2) { return {x1, y1, x2, y2}; }
inline Coin coin(const Primitive& p) { return {p.x1, p.y1}; }
inline Coin coin(double x, double y) { return {x, y}; }
inline std::array<int, 4> rayons(const Primitive& p) { return {p.xs, p.ys, p.xe, p.ye}; }
inline bool estVerticale(const Primitive& p, double x) {
  return p.kind == Primitive::Kind::Segment && p.x1 == x && p.x2 == x;
}
// clang-format on

}  // namespace vt::test
