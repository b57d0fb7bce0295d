// The cells of "PORTEE_SOURCE", the 127 x 61 strip every sign of the staff is
// blitted from (ink black on white, combined with SRCAND).
#pragma once

namespace vt::portee {

struct Cellule {
  int x, y, w, h;
};

inline constexpr int kLargeurSource = 127;
inline constexpr int kHauteurSource = 61;
inline constexpr const char* kNomSource = "PORTEE_SOURCE";

inline constexpr Cellule kDièse{8, 0, 8, 10};
inline constexpr Cellule kBémol{18, 0, 5, 10};  // key signatures only
inline constexpr Cellule kBécarre{25, 0, 5, 10};
inline constexpr Cellule kTêtePleine{42, 0, 8, 10};
inline constexpr Cellule kPoint{51, 0, 3, 10};
inline constexpr Cellule kTêteBlanche{55, 0, 8, 10};
inline constexpr Cellule kTêteRonde{68, 0, 9, 10};
inline constexpr Cellule kCléSol{78, 0, 21, 61};
inline constexpr Cellule kCléFa{104, 0, 23, 30};
inline constexpr Cellule kPauseRonde{0, 10, 10, 16};
inline constexpr Cellule kPauseBlanche{10, 10, 10, 16};
inline constexpr Cellule kSoupir{22, 10, 6, 16};
inline constexpr Cellule kDemiSoupir{31, 10, 6, 16};
inline constexpr Cellule kQuartSoupir{40, 10, 8, 16};
inline constexpr Cellule kHuitièmeSoupir{50, 10, 10, 16};

}  // namespace vt::portee
