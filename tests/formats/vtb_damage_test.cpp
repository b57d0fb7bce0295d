// Damaged files: cut anywhere or scrambled, a file gives a document that holds
// together or a refusal, never a crash or a hang.
#include <gtest/gtest.h>

#include <random>

#include "document/validate.h"
#include "formats/vtb.h"
#include "old_files.h"

namespace vt {
namespace {

// A read either refuses with "Bad file size!" alone, or gives a document that
// keeps the rules and that saves and reads back as itself.
void lectureSaine(const std::vector<std::uint8_t>& f, int* chargés = nullptr) {
  const VtbLecture r = io_ouvrir_vtb(f, test::contexte());
  if (chargés != nullptr && r.ok()) ++*chargés;
  if (!r.ok()) {
    ASSERT_FALSE(r.messages.empty());
    EXPECT_EQ(r.guitare, test::guitareInconnue());
    EXPECT_EQ(r.setGuitare, 0);
    return;
  }
  EXPECT_TRUE(r.messages.empty());
  ASSERT_EQ(validateDocument(*r.document), "");
  const VtbEcriture e = io_enregistrer_vtb(*r.document);
  ASSERT_TRUE(e.ok()) << e.détail;
  const VtbLecture encore = io_ouvrir_vtb(e.octets, test::contexte());
  ASSERT_TRUE(encore.ok()) << encore.détail;
  EXPECT_EQ(*encore.document, *r.document);
}

std::vector<std::vector<std::uint8_t>> fichiers() {
  const VtbEcriture riche = io_enregistrer_vtb(test::documentRiche());
  return {riche.octets, test::fichierVersion7(), test::fichierVersion6(), test::fichierVersion5(),
          test::fichierVersion4()};
}

TEST(VtbDamage, EveryTruncationIsRefusedWholeSoNoHalfPieceIsEverLoaded) {
  for (const auto& f : fichiers()) {
    SCOPED_TRACE(int{f[3]});
    // The end marker is not read: the body is whole three bytes before the end.
    const std::size_t entier = f.size() - 3;
    for (std::size_t n = 0; n < f.size(); ++n) {
      const std::vector<std::uint8_t> coupé(f.begin(), f.begin() + static_cast<std::ptrdiff_t>(n));
      const VtbLecture r = io_ouvrir_vtb(coupé, test::contexte());
      if (f[3] >= 6 && n >= entier) {
        EXPECT_TRUE(r.ok()) << n;
        continue;
      }
      if (f[3] < 6 && n > 4) {
        // The event stream runs to three bytes before the end of what is
        // there: a cut between two records leaves a shorter, sound piece.
        ASSERT_NO_FATAL_FAILURE(lectureSaine(coupé)) << "cut at " << n;
        continue;
      }
      const std::vector<int> attendu =
          n < 3 ? std::vector<int>{6005, 6004} : std::vector<int>{6005};
      EXPECT_EQ(r.messages, attendu) << "cut at " << n;
      EXPECT_FALSE(r.ok());
      ASSERT_NO_FATAL_FAILURE(lectureSaine(coupé));
    }
  }
}

TEST(VtbDamage, RandomCorruptionNeverBreaksTheReader) {
  std::mt19937 g(20240601);
  for (const auto& f : fichiers()) {
    SCOPED_TRACE(int{f[3]});
    int chargés = 0;
    constexpr int kEssais = 400;
    for (int essai = 0; essai < kEssais; ++essai) {
      std::vector<std::uint8_t> abîmé = f;
      const int coups = std::uniform_int_distribution<int>(1, 6)(g);
      for (int k = 0; k < coups; ++k) {
        const std::size_t i = std::uniform_int_distribution<std::size_t>(4, abîmé.size() - 1)(g);
        abîmé[i] = static_cast<std::uint8_t>(g());
      }
      if (essai % 5 == 0)
        abîmé.resize(std::uniform_int_distribution<std::size_t>(4, abîmé.size())(g));
      ASSERT_NO_FATAL_FAILURE(lectureSaine(abîmé, &chargés)) << "trial " << essai;
    }
    // Both ways out are taken: the damage reaches past the checks that refuse.
    EXPECT_GT(chargés, 0);
    EXPECT_LT(chargés, kEssais);
  }
}

TEST(VtbDamage, CountsBeyondTheBytesAreRefusedBeforeAnythingIsBuilt) {
  // 255 tracks of 32767 bars announced by a file of a few bytes.
  test::Octets o;
  o.raw("VTB").b(8).b(255).bs({0, 0, 0, 0, 0}).b(120).b(0).b(0).be16(32767).raw("TRK0");
  o.v.resize(o.v.size() + 4096, 0);
  EXPECT_EQ(io_ouvrir_vtb(o.v, test::contexte()).messages, std::vector<int>{6005});
  // A bar count past the document's limit, and none at all.
  for (int mesures : {0, 32768, 65535}) {
    test::Octets z;
    z.raw("VTB").b(8).b(1).bs({0, 0, 0, 0, 0}).b(120).b(0).b(0).be16(mesures).raw("TRK0");
    z.v.resize(z.v.size() + 400000, 0);
    EXPECT_EQ(io_ouvrir_vtb(z.v, test::contexte()).messages, std::vector<int>{6005}) << mesures;
  }
}

TEST(VtbDamage, StringCountsOutsideOneToSevenAreRefused) {
  for (int cordes : {0, 8, 255}) {
    test::Octets o = test::têteAncienne(6, 1);
    o.raw("TRK").b(1).str("x").b(cordes);
    o.v.resize(o.v.size() + 300, 40);
    EXPECT_EQ(io_ouvrir_vtb(o.v, test::contexte()).messages, std::vector<int>{6005}) << cordes;
  }
}

TEST(VtbDamage, BodiesThatBreakTheRulesAreRefused) {
  // Notes out of order on a string, and a zero denominator.
  test::Octets o;
  o.raw("VTB").b(8).b(1).bs({0, 0, 0, 0, 0}).b(120).b(0).b(0).be16(1).raw("TRK0");
  o.bs({8, 4, 4, 0, 0, 0, 0, 0});
  o.raw("TRK").b(1).str("").str("").b(1).b(40).b(0).b(24).b(0).be32(0).b(27).b(127).bs(
      {64, 0, 0, 0, 0, 1, 0, 0, 0});
  o.b(0).b(0).b(0).b(2).bs({1, 0, 0, 127, 0, 48, 12}).bs({2, 0, 0, 127, 0, 0, 12}).raw("END");
  const VtbLecture r = io_ouvrir_vtb(o.v, test::contexte());
  EXPECT_EQ(r.messages, std::vector<int>{6005});
  EXPECT_NE(r.détail.find("note list"), std::string::npos) << r.détail;
  ASSERT_EQ(o.v[21], 4);  // the bar's denominator
  o.v[21] = 0;
  EXPECT_EQ(io_ouvrir_vtb(o.v, test::contexte()).messages, std::vector<int>{6005});
}

TEST(VtbDamage, BytesAfterTheEndAreIgnored) {
  // A file written over a longer one keeps the old tail behind "END".
  for (auto f : fichiers()) {
    if (f[3] < 6) continue;
    f.insert(f.end(), {'g', 'a', 'r', 'b', 'a', 'g', 'e'});
    EXPECT_TRUE(io_ouvrir_vtb(f, test::contexte()).ok());
  }
}

}  // namespace
}  // namespace vt
