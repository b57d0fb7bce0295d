// The player library's chord functions: the arrays come back in the shapes
// the dictionary reads, and nothing for what the search cannot take.
#include <gtest/gtest.h>

#include "player/accords.h"

namespace vt {
namespace {

// The open strings' pitch numbers as the dictionary passes them, lowest first.
std::array<std::string, 8> cordes(std::initializer_list<int> hauteurs) {
  std::array<std::string, 8> c;
  std::size_t i = 0;
  for (int h : hauteurs)
    c[i++] = std::string(1, static_cast<char>(h));
  return c;
}

TEST(PlayerAccords, PositionsHoldAFretPerStringAndTheConstructionTwelveSemitonesOrNothing) {
  SetAccordParametres(4, 9, 10, 2, 50, 12, 3);
  PositionsAccord p{{99}};
  std::string nom = "C";
  GetAccordPositions(p, nom, 4, cordes({7, 0, 5, 10}));  // a four-string bass E A D G
  ASSERT_FALSE(p.empty());
  EXPECT_EQ(p[0], (std::vector<int>{-1, 3, 2, 0}));
  for (const auto& ligne : p)
    EXPECT_EQ(ligne.size(), 4u);
  EXPECT_EQ(nom, "C");
  std::vector<int> c{5};
  nom = "Aminadd7";
  GetAccordConstruction(c, nom);
  EXPECT_EQ(c, (std::vector<int>{0, -1, -1, 3, -1, -1, -1, 7, -1, -1, 10, -1}));

  // Nothing for an unknown name.
  std::string inconnu = "Cmaj7";
  GetAccordPositions(p, inconnu, 6, cordes({7, 0, 5, 10, 2, 7}));
  EXPECT_TRUE(p.empty());
  GetAccordConstruction(c, inconnu);
  EXPECT_TRUE(c.empty());
  nom = "C";
  // Strings out of range, left empty, or a code past the twelve pitches.
  for (const auto& [n, h] : {std::pair{0, cordes({7, 0, 5, 10, 2, 7, 0, 5})},
                             {3, cordes({7, 0, 5, 10, 2, 7, 0, 5})},
                             {8, cordes({7, 0, 5, 10, 2, 7, 0, 5})},
                             {255, cordes({7, 0, 5, 10, 2, 7, 0, 5})},
                             {6, cordes({7, 0, 5, 10})},
                             {4, cordes({7, 0, 5, 40})}}) {
    p = {{1}};
    GetAccordPositions(p, nom, std::uint8_t(n), h);
    EXPECT_TRUE(p.empty()) << n;
  }
}

}  // namespace
}  // namespace vt
