// The signs of the font "MusicalSymbols" (data/musical.ttf, made by
// tools/make_music_font.py): the character code of each sign and its outline
// in font units, so that the page can place a sign by its outline without
// asking the font. A test of the Qt backend holds this table to the font.
#pragma once

#include <string>

namespace vt::glyphe {

// Font units to the em.
inline constexpr int kEm = 2048;

struct Signe {
  char32_t code;
  // The outline's box, y upwards from the baseline.
  int xMin, yMin, xMax, yMax;
  int largeur() const { return xMax - xMin; }
  int hauteur() const { return yMax - yMin; }
};

inline constexpr Signe kCléSol{0x26, -1307, -410, -657, 1426};
inline constexpr Signe kCléFa{0x3F, -1286, 172, -311, 1296};
inline constexpr Signe kDièse{0x49, 80, -392, 756, 1556};
inline constexpr Signe kBémol{0x69, 150, -392, 813, 1556};
inline constexpr Signe kBécarre{0xE9, 150, -392, 686, 1556};
inline constexpr Signe kPoint{0x2E, 35, -283, 182, -137};
inline constexpr Signe kRonde{0x77, 67, -409, 644, -52};
inline constexpr Signe kBlanche{0x68, 67, -413, 497, 974};  // head and stem up
inline constexpr Signe kNoire{0x71, 67, -413, 497, 974};
inline constexpr Signe kCroche{0x65, 67, -413, 850, 974};
inline constexpr Signe kDoubleCroche{0x78, 67, -413, 850, 974};
inline constexpr Signe kTripleCroche{0x72, 67, -413, 850, 1204};
inline constexpr Signe kPauseRonde{0xEE, 50, 16, 581, 258};
inline constexpr Signe kPauseBlanche{0xB7, 50, -42, 581, 200};
inline constexpr Signe kSoupir{0xCE, 97, -426, 470, 637};
inline constexpr Signe kDemiSoupir{0xE4, 34, -426, 418, 227};
inline constexpr Signe kQuartSoupir{0xC5, 34, -426, 512, 563};
inline constexpr Signe kHuitièmeSoupir{0xA8, 34, -426, 606, 900};
inline constexpr Signe kTêtePleine{0xF6, 67, -413, 497, -52};
inline constexpr Signe kHampe{0xFA, -117, -181, -67, 974};
// The digits of time signatures stand at their own codes, "0" to "9".
inline constexpr Signe kChiffre{0x30, 79, -23, 945, 1365};

inline constexpr Signe kTous[] = {
    kCléSol,  kCléFa,      kDièse,       kBémol,          kBécarre,      kPoint,      kRonde,
    kBlanche, kNoire,      kCroche,      kDoubleCroche,   kTripleCroche, kPauseRonde, kPauseBlanche,
    kSoupir,  kDemiSoupir, kQuartSoupir, kHuitièmeSoupir, kTêtePleine,   kHampe,
};

// A sign as text: its code in UTF-8.
std::string utf8(char32_t code);

}  // namespace vt::glyphe
