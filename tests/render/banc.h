// A renderer on a recording surface, over a document the test builds.
#pragma once

#include <algorithm>

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
// centres with integer halves).
inline int centreX(const Primitive& p) { return static_cast<int>(p.x1) + static_cast<int>(p.x2) / 2; }
inline int centreY(const Primitive& p) { return static_cast<int>(p.y1) + static_cast<int>(p.y2) / 2; }
inline bool estVerticale(const Primitive& p, double x) {
  return p.kind == Primitive::Kind::Segment && p.x1 == x && p.x2 == x;
}

}  // namespace vt::test
